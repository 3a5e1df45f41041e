#pragma once

#include "support/Falsos.h"
#include "tables/BancoDeDados.h"

#include <fstream>
#include <iterator>
#include <string>

namespace quilatador::testes {

constexpr const char* caminhoDoBanco = "/programa/TabelaErrosZUL.mdb";

inline std::string lerBytes(const std::string& caminho) {
    std::ifstream arquivo(caminho, std::ios::binary);
    return {std::istreambuf_iterator<char>(arquivo), {}};
}

/// A file of tests/tables/fixtures, where README.txt tells what is in each.
inline std::string lerBanco(const std::string& nome) {
    return lerBytes(QUILATADOR_BANCOS + ("/" + nome));
}

/// A database opened from its bytes.
inline BancoDeDados abrirBanco(const std::string& bytes, VistaTexto conexao = BancoDeDados::conexaoDoPrograma) {
    ArquivosEmMemoria arquivos;
    arquivos.conteudo[caminhoDoBanco] = Texto(textoDosBytes(bytes));
    return {arquivos, caminhoDoBanco, conexao};
}

} // namespace quilatador::testes
