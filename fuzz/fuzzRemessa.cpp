#include "Alvo.h"

using namespace quilatador;
using namespace quilatador::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    conferirPromessas(TipoArquivo::ZUL702, entrada(dados, tamanho), leiauteDoPrograma(), {});
    return 0;
}
