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
    constexpr const char* descricao = R"(<?xml version="1.0" encoding="UTF-8"?>
<ArquivoRemessa>
  <Registro Nome="A" Tamanho="19" Identificador="Tipo">
    <Campo Nome="Tipo" Tipo="S" Tamanho="1" Formato="" Decimais="0" Valor="&lt;"/>
    <Campo Nome="Valor" Tipo="N" Tamanho="3" Formato="" Decimais="2"/>
    <Campo Nome="N&amp;o" Tipo="N" Tamanho="2" Formato="" Decimais="0"/>
    <Campo Nome="Data" Tipo="D" Tamanho="8" Formato="AAAAMMDD" Decimais="0"/>
    <Campo Nome="Sequencial" Tipo="R" Tamanho="5" Formato="" Decimais="0"/>
  </Registro>
  <Registro Nome="B" Tamanho="1" Identificador="Tipo">
    <Campo Nome="Tipo" Tipo="S" Tamanho="1" Formato="" Decimais="0" Valor="B"/>
  </Registro>
</ArquivoRemessa>)";
    testes::MundoFalso mundo;
    mundo.arquivos.conteudo["/leiaute.xml"] = textoDosBytes(descricao);
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
    const std::string cabecalho =
        "<table>\n<thead><tr><th>Campo</th><th class=\"n\">De</th><th class=\"n\">Até</th>"
        "<th class=\"n\">Tamanho</th><th>Tipo</th><th>Conteúdo fixo</th></tr></thead>\n<tbody>\n";
    const auto linha = [](const char* nome, const char* de, const char* ate, const char* tamanho, const char* resto) {
        return std::string("<tr><th scope=\"row\">") + nome + "</th><td class=\"n\">" + de + "</td><td class=\"n\">" +
               ate + "</td><td class=\"n\">" + tamanho + "</td>" + resto + "</tr>\n";
    };
    EXPECT_EQ(preencher("<p>é</p><!-- registro B -->|<!-- registro A -->."),
              "<p>é</p>" + cabecalho + linha("Tipo", "1", "1", "1", "<td>Texto</td><td>B</td>") +
                  "</tbody>\n</table>|" + cabecalho + linha("Tipo", "1", "1", "1", "<td>Texto</td><td>&lt;</td>") +
                  linha("Valor", "2", "4", "3", "<td>Número, 2 decimais</td><td></td>") +
                  linha("N&amp;o", "5", "6", "2", "<td>Número</td><td></td>") +
                  linha("Data", "7", "14", "8", "<td>Data AAAAMMDD</td><td></td>") +
                  linha("Sequencial", "15", "19", "5", "<td>Número do registro</td><td></td>") + "</tbody>\n</table>.");
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
