#include "Alvo.h"

using namespace quilatador::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    conferirPromessas(Analise::ZUL708, textoDe(dados, tamanho), leiauteDoPrograma(), tabelasDoPrograma());
    return 0;
}
