#pragma once

#include "support/Falsos.h"
#include "support/PastaTemporaria.h"
#include "tables/BancoDeDados.h"
#include "tables/FormatoJet.h"

#include <string>

namespace quilatador::testes {

/// A file of tests/tables/fixtures, where README.txt tells what is in each.
inline std::string lerBanco(const std::string& nome) {
    return lerTudo(QUILATADOR_BANCOS + ("/" + nome));
}

/// A database file with other bytes in a place (0-based) of a page (0-based).
inline std::string mudado(std::string bytes, std::size_t pagina, std::size_t lugar, std::string_view novos) {
    const FormatoJet& formato = bytes[lugarJet::versao] == 0 ? jet3 : jet4;
    return bytes.replace(pagina * formato.pagina + lugar, novos.size(), novos);
}

/// A database opened from its bytes.
inline BancoDeDados abrirBanco(const std::string& bytes, VistaTexto conexao = BancoDeDados::conexaoDoPrograma) {
    ArquivosEmMemoria arquivos;
    arquivos.conteudo["/b.mdb"] = Texto(textoDosBytes(bytes));
    return {arquivos, "/b.mdb", conexao};
}

} // namespace quilatador::testes
