#include "cli/Argumentos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

/// What is asked for, in the order of the help text; the files behind a colon.
Texto descrever(const Argumentos& lidos) {
    switch (lidos.acao) {
    case Argumentos::Acao::MostrarAjuda:
        return "ajuda";
    case Argumentos::Acao::MostrarVersao:
        return "versao";
    case Argumentos::Acao::Recusar:
        return lidos.motivo;
    case Argumentos::Acao::Analisar:
        break;
    }
    Texto descricao;
    if (lidos.tipo) descricao += junta("tipo ", std::to_string(static_cast<int>(*lidos.tipo)), " ");
    if (lidos.comData) descricao += "com data ";
    if (lidos.posicao != 20) descricao += junta("posicao ", std::to_string(static_cast<int>(lidos.posicao)), " ");
    if (lidos.formato != "ADDD") descricao += junta("formato ", lidos.formato, " ");
    if (lidos.primeiras) descricao += junta("primeiras ", std::to_string(static_cast<int>(*lidos.primeiras)), " ");
    if (lidos.pasta) descricao += junta("pasta ", lidos.pasta->string(), " ");
    if (lidos.log) descricao += junta("log ", lidos.log->string(), " ");
    for (const auto& [opcao, nome] :
         {std::pair{lidos.abrir, "abrir "}, {lidos.json, "json "}, {lidos.silencioso, "q "}})
        if (opcao) descricao += nome;
    descricao += ":";
    for (const auto& arquivo : lidos.arquivos)
        descricao += junta(" ", arquivo.string());
    return descricao;
}

TEST(Argumentos, opcoesEArquivos) {
    const std::string aqui = std::filesystem::current_path().string();
    const std::pair<std::vector<std::string>, Texto> casos[] = {
        {{"/a"}, ": /a"},
        {{"/b", "/a", "/b"}, ": /b /a /b"},
        {{"a", "./x/../b.rem", "/c//d/./e"}, ": " + aqui + "/a " + aqui + "/b.rem /c/d/e"},
        {{"--tipo", "ZUL702", "/a"}, "tipo 0 : /a"},
        {{"/a", "--tipo=ZUL708"}, "tipo 1 : /a"},
        {{"--tipo", "TAV001", "/a"}, "tipo 2 : /a"},
        {{"--com-data", "--posicao", "25", "--formato", "AAAAMMDD", "/a"}, "com data posicao 25 formato AAAAMMDD : /a"},
        {{"--posicao", " 4 1x", "/a"}, "posicao 41 : /a"},
        {{"--posicao", "abc", "--formato", "", "/a"}, "posicao 0 formato  : /a"},
        {{"--posicao=-5", "/a"}, "posicao -5 : /a"},
        {{"--formato", "AAÇ", "/a"}, Texto("formato AAÇ : /a"_t)},
        {{"--primeiras", "0", "/a"}, "primeiras 0 : /a"},
        {{"--primeiras", "999999", "/a"}, "primeiras 999999 : /a"},
        {{"--pasta", "p/..", "--log", "/x/../l.txt", "/a"}, "pasta " + aqui + "/ log /l.txt : /a"},
        {{"--abrir", "--json", "-q", "/a"}, "abrir json q : /a"},
        {{"--silencioso", "--", "-a", "--json"}, "q : " + aqui + "/-a " + aqui + "/--json"},
        {{"-h"}, "ajuda"},
        {{"--ajuda", "--versao", "/a"}, "ajuda"},
        {{"--versao"}, "versao"},
    };
    for (const auto& [argumentos, esperado] : casos)
        EXPECT_EQ(descrever(lerArgumentos(argumentos)), esperado);
}

TEST(Argumentos, recusas) {
    const std::pair<std::vector<std::string>, VistaTexto> casos[] = {
        {{}, "Falta o nome do ARQUIVO."},
        {{"--json"}, "Falta o nome do ARQUIVO."},
        {{"--xyz", "/a"}, "Opção desconhecida: --xyz"_t},
        {{"-x", "/a", "--aju"}, "Opção desconhecida: -x --aju"_t},
        {{"--tipo", "zul702", "/a"}, "Tipo de arquivo desconhecido: zul702"},
        {{"--tipo", "", "/a"}, "Tipo de arquivo desconhecido: "},
        {{"--primeiras", "2.5", "/a"}, "Quantidade de guias inválida: 2.5"_t},
        {{"--primeiras", "", "/a"}, "Quantidade de guias inválida: "_t},
        {{"--primeiras=-1", "/a"}, "Quantidade de guias inválida: -1"_t},
        {{"--log", "/l", "/a", "/b"}, "--log vale somente com um ARQUIVO."},
        {{"/a", "--posicao"}, "Valor ausente ou inválido em --posicao"_t},
        {{"--log", "/l", "--log", "/m", "/a"}, "Valor ausente ou inválido em --log"_t},
        {{"--json=talvez", "/a"}, "Valor ausente ou inválido em --json"_t},
    };
    for (const auto& [argumentos, esperado] : casos)
        EXPECT_EQ(descrever(lerArgumentos(argumentos)), esperado);
}

TEST(Argumentos, ajudaTrazTodasAsOpcoes) {
    for (const char* opcao :
         {"--tipo ZUL702|ZUL708|TAV001", "--com-data", "--posicao N", "--formato F", "--primeiras N", "--pasta PASTA",
          "--log CAMINHO", "--abrir", "--json", "-q, --silencioso", "-h, --ajuda", "--versao"})
        EXPECT_NE(textoDeAjuda().find(junta("\n  ", opcao, " ")), VistaTexto::npos) << opcao;
    EXPECT_TRUE(textoDeAjuda().starts_with("Uso: quilatador-cli [opções] ARQUIVO...\n"_t));
    EXPECT_TRUE(textoDaVersao().starts_with("quilatador-cli 1."));
    EXPECT_TRUE(textoDeAjuda().ends_with('\n') && textoDaVersao().ends_with('\n'));
}

} // namespace
} // namespace quilatador
