#include "Alvo.h"
#include "support/Completa.h"

using namespace quilatador;
using namespace quilatador::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    const Texto arquivo = entrada(dados, tamanho);
    constexpr std::size_t maisBytes = 32 * 1024; // the file is analysed once more for each of its slips
    if (arquivo.size() > maisBytes) return 0;
    for (const std::int16_t posicao : {std::int16_t{0}, std::int16_t{20}})
        exigir(testes::desacordo(arquivo, leiauteDoPrograma(), posicao));
    return 0;
}
