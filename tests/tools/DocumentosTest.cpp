#include "gerarLeiautes/Documento.h"

#include "layout/ArquivoRemessaBD.h"
#include "support/Falhas.h"
#include "support/Falsos.h"
#include "support/PastaTemporaria.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <sstream>

namespace quilatador {

namespace {

const std::filesystem::path fontes = QUILATADOR_FONTES;

std::string preencher(std::string_view modelo) {
    testes::MundoFalso mundo;
    mundo.arquivos.conteudo["/leiaute.xml"] = testes::lerTexto(QUILATADOR_LEIAUTE_DE_TESTE ".xml");
    const auto leiaute =
        ArquivoRemessaBD::obterArquivoRemessa("/leiaute.xml", mundo.arquivos, mundo.painel, mundo.relogio);
    return leiautes::preencher(modelo, *leiaute);
}

std::string semEntidades(std::string html) {
    constexpr std::pair<const char*, const char*> entidades[] = {{"&nbsp;", " "}, {"&lt;", "<"}, {"&gt;", ">"}};
    for (const auto& [entidade, texto] : entidades)
        html = std::regex_replace(html, std::regex(entidade), texto);
    return html;
}

} // namespace

TEST(Leiautes, cadaLugarViraATabelaDoRegistro) {
    EXPECT_EQ(preencher("<p>é</p>\n<!-- registro B -->\n<!-- registro A -->\n"),
              testes::lerTudo(QUILATADOR_LEIAUTE_DE_TESTE ".html"));
}

TEST(Leiautes, modeloDeOutroLeiauteFalha) {
    const std::pair<const char*, VistaTexto> casos[] = {
        {"<!-- registro A -->", "1 gerarLeiautes: O modelo não tem lugar para o registro B"_t},
        {"<!-- registro A --><!-- registro B --><!-- registro C -->",
         "1 gerarLeiautes: O leiaute não tem o registro C"_t},
        {"<!-- registro A", "1 gerarLeiautes: O modelo tem um lugar sem fim"_t},
    };
    for (const auto& [modelo, falha] : casos)
        EXPECT_EQ(testes::textoDaFalha([&, &texto = modelo] { return preencher(texto); }), falha) << modelo;
}

/// One row a finding, and its message in it: the user finds in the help whatever the log says.
TEST(Ajuda, explicaTodosOsAchados) {
    const std::string ajuda = semEntidades(testes::lerTudo(fontes / "data/Documentos/TAV/Ajuda/Quilatador.htm"));
    const std::regex achado(R"(\| `([^`]+)` \| [^|]* \| \w+ \| ([^|]*) \| .*)");
    std::istringstream catalogo(testes::lerTudo(fontes / "docs/findings.md"));
    int achados = 0;
    std::smatch partes;
    for (std::string linha; std::getline(catalogo, linha);) {
        if (!std::regex_match(linha, partes, achado)) continue;
        ++achados;
        const std::string esperado =
            "<tr id=\"" + partes.str(1) + "\"><th scope=\"row\">" + partes.str(2) + "</th><td>";
        EXPECT_NE(ajuda.find(esperado), ajuda.npos) << esperado;
    }
    EXPECT_GT(achados, 100);
}

} // namespace quilatador
