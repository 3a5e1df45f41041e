#include "cli/BancadaDoPrograma.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace quilatador {
namespace {

using Bancada = testes::BancadaDoPrograma;
using testes::remessa;

Texto primeirasLinhas(const Texto& texto, int quantas) {
    std::size_t fim = 0;
    while (quantas-- > 0)
        fim = texto.find('\n', fim) + 1;
    return texto.substr(0, fim);
}

TEST(Programa, situacaoEOQueEscreve) {
    const std::tuple<std::vector<std::string>, int, std::string, std::string> casos[] = {
        {{"/d/boa.rem"}, 0, "/d/boa.rem: 0 erros; 1 guia lida\n  log: /d/boa.log\n", ""},
        {{"/d/ruim.rem"}, 1, "/d/ruim.rem: 33 erros; 3 guias lidas\n  log: /d/ruim.log\n", ""},
        {{"/d/cortada.rem"},
         1,
         "/d/cortada.rem: análise interrompida por erro no arquivo: Tamanho de registro inválido. Esperado 240\n  log: "
         "/d/cortada.log\n",
         ""},
        {{"/d/falta.rem"},
         2,
         "/d/falta.rem: não foi possível analisar: Arquivo não encontrado!\n  log: /d/falta.log\n",
         ""},
        {{"/d/impressao.ret"}, 1, "/d/impressao.ret: 7 registros com ocorrência\n  log: /d/impressao.log\n", ""},
        {{"/d/liquidacao"}, 0, "/d/liquidacao: 5 registros lidos\n  log: /d/liquidacao.log\n", ""},
        {{"/d/abertura"}, 0, "/d/abertura: 1 registro lido\n  log: /d/abertura.log\n", ""},
        {{"/d/ocorrencia"}, 1, "/d/ocorrencia: 1 registro com ocorrência\n  log: /d/ocorrencia.log\n", ""},
        {{"-q", "--tipo", "ZUL708", "/d/boa.rem"}, 1, "", ""},
        {{"-q", "--tipo", "ZUL702", "/d/liquidacao"}, 1, "", ""},
        {{"-q", "--tipo", "TAV001", "/d/boa.rem"}, 1, "", ""},
        {{"--primeiras", "0", "/d/ruim.rem"}, 1, "/d/ruim.rem: 15 erros; 0 guias lidas\n  log: /d/ruim.log\n", ""},
        {{"--log", "/x.txt", "/d/boa.rem"}, 0, "/d/boa.rem: 0 erros; 1 guia lida\n  log: /x.txt\n", ""},
        {{"-q", "/d/boa.rem", "/d/ruim.rem"}, 1, "", ""},
        {{"--posicao", "99", "/d/boa.rem"}, 0, "/d/boa.rem: 0 erros; 1 guia lida\n  log: /d/boa.log\n", ""},
        {{"--com-data", "--posicao", "40", "-q", "/d/boa.rem"}, 1, "", ""},
        {{"--com-data", "--posicao", "19", "/d/boa.rem"},
         2,
         "",
         "Posição da data no código de barras deve estar entre 20 e 41 (limites do campo livre)!\n"},
        {{"--com-data", "--posicao", "42", "/d/boa.rem"},
         2,
         "",
         "Posição da data no código de barras deve estar entre 20 e 41 (limites do campo livre)!\n"},
        {{"--com-data", "--posicao", "41", "-q", "/d/boa.rem"},
         2,
         "",
         "Posição da data no código de barras para este formato não pode ser maior que 40\n"},
        {{"--com-data", "--posicao", "37", "--formato", "AAAAMMDD", "-q", "/d/boa.rem"},
         2,
         "",
         "Posição da data no código de barras para este formato não pode ser maior que 36\n"},
        {{"--pasta", "/vazia", "/d/boa.rem"},
         2,
         "",
         "Não foi possível abrir o arquivo TabelaErrosZUL.mdb! Reinstale o aplicativo.\n"},
        {{"-q", "--log", "/d/boa.rem", "/d/boa.rem"},
         2,
         "",
         "O arquivo de log seria o próprio arquivo analisado: /d/boa.rem\n"},
        {{"/d/falta.rem", "/d/boa.rem"},
         2,
         "/d/falta.rem: não foi possível analisar: Arquivo não encontrado!\n  log: /d/falta.log\n"
         "/d/boa.rem: 0 erros; 1 guia lida\n  log: /d/boa.log\n",
         ""},
        {{"--xyz"}, 2, "", "Opção desconhecida: --xyz\nUse --ajuda para ver o uso.\n"},
        {{"--ajuda"}, 0, utf8DeTexto(textoDeAjuda()), ""},
        {{"--versao"}, 0, textoDaVersao(), ""},
    };
    for (const auto& [argumentos, situacao, saida, erros] : casos) {
        Bancada bancada;
        bancada.arquivos.conteudo["/d/abertura"] = primeirasLinhas(bancada.arquivos.conteudo["/d/liquidacao"], 1);
        bancada.arquivos.conteudo["/d/ocorrencia"] = primeirasLinhas(bancada.arquivos.conteudo["/d/impressao.ret"], 10);
        EXPECT_EQ(bancada.rodar(argumentos), situacao) << saida;
        EXPECT_EQ(bancada.saida.str(), saida);
        EXPECT_EQ(bancada.erros.str(), erros);
        EXPECT_TRUE(bancada.lancador.textos.empty());
        EXPECT_EQ(bancada.arquivos.conteudo["/d/boa.rem"], remessa());
    }
}

TEST(Programa, cadaArquivoTemSeuLog) {
    Bancada bancada;
    EXPECT_EQ(bancada.rodar({"-q", "/d/falta.rem", "/d/liquidacao", "/d/boa.rem", "--abrir"}), 2);
    const std::vector<std::filesystem::path> logs{"/d/falta.log", "/d/liquidacao.log", "/d/boa.log"};
    EXPECT_EQ(bancada.lancador.textos, logs);
    for (const auto& log : logs)
        EXPECT_TRUE(bancada.arquivos.conteudo[log].starts_with("LOG DE DEPURAÇÃO DO ARQUIVO /d/"_t)) << log;
    EXPECT_TRUE(bancada.arquivos.tudoFechado());
}

TEST(Programa, jsonUmObjetoPorArquivo) {
    Bancada bancada;
    const Texto hostil = "/d/\"\x1b[2J\n\xE7\x80.rem";
    bancada.arquivos.conteudo[hostil] = remessa();
    const std::pair<Texto, Texto> casos[] = {
        {"/d/boa.rem", "ZUL702 /d/boa.log concluida 0 0"},
        {"/d/ruim.rem", "ZUL702 /d/ruim.log concluida 1 33"},
        {"/d/cortada.rem", "ZUL702 /d/cortada.log falhou 1 1"},
        {"/d/falta.rem", "ZUL702 /d/falta.log naoRodou 2 0"},
        {"/d/liquidacao", "TAV001 /d/liquidacao.log concluida 0 0"},
        {hostil, "ZUL702 " + utf8DeTexto(hostil.substr(0, hostil.size() - 3)) + "log concluida 0 0"},
    };
    std::vector<std::string> argumentos{"--json"};
    for (const auto& [arquivo, esperado] : casos)
        argumentos.push_back(arquivo);
    EXPECT_EQ(bancada.rodar(argumentos), 2);
    EXPECT_EQ(bancada.erros.str(), "");
    std::istringstream linhas(bancada.saida.str());
    for (const auto& [arquivo, esperado] : casos) {
        std::string linha;
        std::getline(linhas, linha);
        const auto objeto = nlohmann::json::parse(linha);
        EXPECT_EQ(objeto["arquivo"], utf8DeTexto(arquivo));
        EXPECT_EQ(junta(objeto["tipo"].get<std::string>(), " ", objeto["log"].get<std::string>(), " ",
                        objeto["desfecho"].get<std::string>(), " ", objeto["situacao"].dump(), " ",
                        std::to_string(objeto["achados"].size())),
                  esperado);
    }
    EXPECT_EQ(linhas.peek(), std::istringstream::traits_type::eof());
}

TEST(Programa, interrompidaParaComOLogEmOrdem) {
    for (const int perguntas : {0, 1, 10, 25, 29}) {
        Bancada bancada;
        int feitas = 0;
        bancada.interrompido = [&] { return ++feitas > perguntas; };
        EXPECT_EQ(bancada.rodar({"/d/boa.rem", "/d/ruim.rem"}), 130);
        EXPECT_TRUE(bancada.arquivos.conteudo["/d/boa.log"].ends_with(
            "\r\n\r\nDEPURACAO CANCELADA!\r\nDepuração terminada!\r\n"_t))
            << perguntas;
        EXPECT_EQ(bancada.saida.str(), "/d/boa.rem: análise cancelada\n  log: /d/boa.log\n");
        EXPECT_FALSE(bancada.arquivos.existe("/d/ruim.log"));
    }
}

TEST(Programa, saidaQueFalhaEhSituacao2) {
    for (const char* argumento : {"/d/boa.rem", "/d/ruim.rem", "--ajuda", "--versao"}) {
        Bancada bancada;
        bancada.saida.setstate(std::ios::badbit);
        EXPECT_EQ(bancada.rodar({argumento}), 2) << argumento;
    }
}

TEST(Programa, progressoSoNoTerminalENoMaximoDezVezesPorSegundo) {
    const auto progressoDe = [](bool noTerminal, std::vector<std::string> argumentos) {
        Bancada bancada;
        bancada.noTerminal = noTerminal;
        bancada.largura = 60;
        bancada.arquivos.conteudo["/d/grande.rem"] = remessa({.registros = 20'000});
        // Two passes of two seconds.
        bancada.interrompido = [&] { return bancada.relogio.avancar(std::chrono::microseconds(100)), false; };
        argumentos.emplace_back("/d/grande.rem");
        EXPECT_EQ(bancada.rodar(argumentos), 0);
        return bancada.erros.str();
    };
    EXPECT_EQ(progressoDe(false, {}), "");
    EXPECT_EQ(progressoDe(true, {"-q"}), "");
    const std::string progresso = progressoDe(true, {});
    EXPECT_TRUE(
        progresso.starts_with("\rRegistro 0 de 20083 (0%)  decorrido 00:00:00  restante 00:0\x1b[K\rRegistro "));
    EXPECT_NE(progresso.find(" de 20000 (51%)  decorrido 00:00:01"), std::string::npos);
    EXPECT_TRUE(progresso.ends_with("\r\x1b[K"));
    const auto desenhos = std::ranges::count(progresso, '\r');
    EXPECT_GE(desenhos, 30);
    EXPECT_LE(desenhos, 43);
}

TEST(Programa, controlesNuncaChegamAoTerminal) {
    Bancada bancada;
    const Texto hostil = "/d/\x1b[2J\r\x7f\x9b\xE7.rem";
    EXPECT_EQ(bancada.rodar({hostil, "--tipo", "ZUL702"}), 2);
    EXPECT_EQ(bancada.saida.str(),
              "/d/\\x1B[2J\\x0D\\x7F\\x9Bç.rem: não foi possível analisar: Arquivo não encontrado!\n"
              "  log: /d/\\x1B[2J\\x0D\\x7F\\x9Bç.log\n");
    EXPECT_EQ(bancada.rodar({"--x\x1b[2J"}), 2);
    EXPECT_EQ(bancada.erros.str(), "Opção desconhecida: --x\\x1B[2J\nUse --ajuda para ver o uso.\n");
}

} // namespace
} // namespace quilatador
