#include "common/Falha.h"
#include "criarTabelaErros/FonteDasTabelas.h"

#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>

namespace {

/// Writes the database `destino` from the text `fonte`.
void criar(const char* fonte, const char* destino) {
    std::ifstream entrada(fonte);
    if (!entrada) throw std::runtime_error("fonte não encontrada");
    const quilatador::Texto bytes = quilatador::escreverJet(quilatador::lerTabelas(entrada));
    std::ofstream saida(destino, std::ios::binary | std::ios::trunc);
    saida.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    saida.close();
    if (!saida) throw std::runtime_error("não foi possível gravar o banco de dados");
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "Uso: criarTabelaErros FONTE DESTINO\n";
        return EXIT_FAILURE;
    }
    try {
        criar(argv[1], argv[2]);
        return EXIT_SUCCESS;
    } catch (const std::exception& falha) {
        std::cerr << argv[1] << ": " << falha.what() << '\n';
        return EXIT_FAILURE;
    }
}
