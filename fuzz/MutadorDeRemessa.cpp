// The mutator of the targets that read remittances: half of the changes are of one field of one record, so that the
// rules behind the structure are reached.
#include "Alvo.h"
#include "support/Completa.h"

#include <random>

using namespace quilatador;
using namespace quilatador::fuzz;

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* dados, std::size_t tamanho, std::size_t maior);

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* dados, std::size_t tamanho, std::size_t maior,
                                               unsigned semente) {
    constexpr std::size_t linha = 242;
    constexpr std::size_t registro = 240;
    static const testes::Estragador estragar(leiauteDoPrograma());
    std::mt19937 sorteio(semente);
    if (tamanho < linha || sorteio() % 2 == 0) return LLVMFuzzerMutate(dados, tamanho, maior);
    char* const lugar = reinterpret_cast<char*>(dados) + sorteio() % (tamanho / linha) * linha;
    estragar({lugar, registro}, sorteio, false);
    return tamanho;
}
