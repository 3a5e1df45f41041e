#include "cli/BancadaDoPrograma.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iomanip>
#include <tuple>

namespace quilatador {
namespace {

using Bancada = testes::BancadaDoPrograma;
using testes::remessa;

/// A command line of linhasDeComando.txt, and all that it brings about.
struct Caso {
    std::string argumentos;
    std::string efeito;
};

std::vector<Caso> lerCasos() {
    std::vector<Caso> casos;
    std::ifstream arquivo(QUILATADOR_LINHAS_DE_COMANDO);
    for (std::string linha; std::getline(arquivo, linha);) {
        if (linha.starts_with('$'))
            casos.push_back({linha.substr(1), ""});
        else if (!linha.empty() && !linha.starts_with('#'))
            casos.back().efeito += linha + "\n";
    }
    return casos;
}

std::vector<std::string> separar(const std::string& argumentos) {
    std::vector<std::string> separados;
    std::istringstream resto(argumentos);
    for (std::string argumento; resto >> std::quoted(argumento);)
        separados.push_back(argumento);
    return separados;
}

std::string marcar(const char* marca, const std::string& texto) {
    std::string marcado;
    std::istringstream linhas(texto);
    for (std::string linha; std::getline(linhas, linha);)
        marcado.append(marca).append(linha.empty() ? "" : " ").append(linha).append("\n");
    return marcado;
}

TEST(Programa, linhasDeComando) {
    std::filesystem::current_path("/");
    for (const auto& [argumentos, efeito] : lerCasos()) {
        Bancada bancada;
        auto& arquivos = bancada.arquivos.conteudo;
        arquivos["/d/abertura"] = arquivos["/d/liquidacao"].substr(0, arquivos["/d/liquidacao"].find('\n') + 1);
        arquivos["/d/ocorrencia"] = arquivos["/d/impressao.ret"].substr(0, 10 * testes::bytesDaLinha);
        const Texto boa = remessa();
        const Texto parcela = boa.substr(14 * testes::bytesDaLinha, 240);
        arquivos["/d/torta.rem"] = junta(boa.substr(0, testes::bytesDaLinha), "\r\n?\x1b     12  3"_t, Texto(60, 'x'),
                                         "\r\n"_t, parcela, "12\n"_t, Texto(parcela).replace(14, 8, "20280229"_t));
        arquivos["/d/convenio.rem"] = testes::comCampo(boa, 3, {'C', "FormatoData", 23, 1}, Texto("2"_t));
        const Texto duas = remessa({.guias = 2});
        const std::size_t primeiraU = testes::letrasDe(duas).find('U') + 1;
        arquivos["/d/primeira.rem"] = testes::comCampo(duas, primeiraU, {'U', "ValorRec9", 156, 13}, Texto(13, '1'));
        arquivos["/d/total.ret"] = arquivos["/d/liquidacao"];
        arquivos["/d/total.ret"].replace(arquivos["/d/total.ret"].rfind('Z') + 1, 6, "000006"_t);
        const std::string_view meta = R"(<meta name="quilatador-sha256" content=")";
        arquivos["/d/boa.html"] = junta(textoDosBytes(meta), textoDosBytes(testes::ArquivosEmMemoria::soma), "\">"_t);
        arquivos["/d/outro.html"] = junta(textoDosBytes(meta), Texto(64, 'a'), "\">"_t);
        arquivos["/d/semSoma.html"] = junta(textoDosBytes(meta), "\">"_t);
        bancada.arquivos.ligacoes = {{"/d/elo.log", "/d/ruim.rem"}, {"/d/boa.elo", "/d/boa.rem"}};
        const auto antes = arquivos;
        const int situacao = bancada.rodar(separar(argumentos));
        std::string logs;
        for (const auto& log : bancada.lancador.textos)
            logs += log.string() + "\n";
        EXPECT_EQ(marcar("|", bancada.saida.str()) + marcar("!", bancada.erros.str()) + marcar("@", logs) + "= " +
                      std::to_string(situacao) + "\n",
                  efeito)
            << "$" << argumentos;
        for (const auto& [nome, conteudo] : antes)
            EXPECT_TRUE(arquivos[nome] == conteudo) << nome;
        EXPECT_TRUE(bancada.arquivos.tudoFechado());
    }
}

/// The user stops at each of the questions in turn, up to that between the files: the log is a true beginning.
TEST(Programa, interrompidaParaComOLogEmOrdem) {
    constexpr VistaTexto fim = "\r\nDEPURACAO CANCELADA!\r\nDepuração terminada!\r\n"_t;
    Bancada inteira;
    inteira.rodar({"/d/boa.rem"});
    const Texto inteiro = inteira.arquivos.conteudo["/d/boa.log"];
    for (int perguntas = 1;; ++perguntas) {
        Bancada bancada;
        bancada.interrompido = [restam = perguntas]() mutable { return --restam < 0; };
        EXPECT_EQ(bancada.rodar({"/d/boa.rem", "/d/ruim.rem"}), 130);
        EXPECT_FALSE(bancada.arquivos.existe("/d/ruim.log"));
        const Texto log = bancada.arquivos.conteudo["/d/boa.log"];
        if (perguntas > 29 && log == inteiro) break;
        EXPECT_EQ(bancada.saida.str(), "/d/boa.rem: análise cancelada\n  log: /d/boa.log\n"
                                       "Total de 2 arquivos: 0 erros; 1 cancelado; 1 não analisado\n");
        EXPECT_EQ(log.find("VERIFICAÇÃO DE CONTEÚDO"_t) != Texto::npos, perguntas > 15); // the second pass
        ASSERT_TRUE(log.ends_with(fim));
        EXPECT_TRUE(inteiro.starts_with(log.substr(0, log.size() - fim.size()))) << log;
    }
}

TEST(Programa, interrompidaNaConferenciaCompletaDeixaOLogInteiroENenhumaTabela) {
    Bancada inteira;
    inteira.rodar({"/d/boa.rem"});
    int canceladas = 0;
    for (int perguntas = 1, situacao = 130; situacao == 130; ++perguntas) {
        Bancada bancada;
        bancada.interrompido = [restam = perguntas]() mutable { return --restam < 0; };
        situacao = bancada.rodar({"--csv", "/x.csv", "--json", "/d/boa.rem"});
        const std::string saida = bancada.saida.str();
        if (saida.find(R"("parcial":true,"situacao":130})") == std::string::npos) continue;
        EXPECT_FALSE(bancada.arquivos.existe("/x.csv"));
        if (saida.find(R"("desfecho":"concluida")") == std::string::npos) continue;
        EXPECT_TRUE(bancada.arquivos.conteudo["/d/boa.log"] == inteira.arquivos.conteudo["/d/boa.log"]);
        ++canceladas;
    }
    EXPECT_GE(canceladas, 16); // at each of the lines
}

TEST(Programa, oLaudoDizDeCadaGuiaComoEsta) {
    const Texto duas = remessa({.guias = 2});
    const std::size_t primeiraU = testes::letrasDe(duas).find('U') + 1;
    const Texto errada = testes::comCampo(duas, primeiraU, {'U', "ValorRec9", 156, 13}, Texto(13, '1'));
    const Texto semDefinicao = testes::comCampo(duas, 3, {'C', "SegFebraban", 12, 1}, Texto("x"_t));
    using Presentes = std::initializer_list<VistaTexto>;
    const auto conferir = [](const Texto& arquivo, const std::string& opcao, Presentes presentes) {
        Bancada bancada;
        bancada.arquivos.conteudo["/d/a"] = arquivo;
        EXPECT_LT(bancada.rodar({"-q", "--laudo=/l.html", "/d/a", opcao}), 2);
        const Texto laudo = textoDeUtf8(bytesDoTexto(bancada.arquivos.conteudo["/l.html"]));
        for (const VistaTexto presente : presentes)
            EXPECT_NE(laudo.find(presente), Texto::npos) << presente;
    };
    conferir(duas, "-q",
             {"Sem erros e sem avisos"_t, "(2):</b> 1 e 2."_t, "Opções</dt><dd>Código de barras sem data"_t});
    conferir(errada, "-q", {"Certas (1):</b> 2."_t, "data-t=\"Guia\">1</th>"_t, "Com erro<"_t, "<em>erro</em>"_t});
    conferir(errada, "--primeiras=1", {"conferidas (1):</b> 2."_t, "data-t=\"Guia\">1</th>"_t, "só as primeiras"_t});
    conferir(semDefinicao, "-q", {"Conferida em parte<"_t});
    conferir(duas.substr(0, 21 * testes::bytesDaLinha), "-q", {"<b>O log parou</b>"_t, "corrija primeiro a linha "_t});
    conferir(remessa({.tipo = gerador::Tipo::ZUL708, .guias = 5}), "-q",
             {"Com ocorrência<"_t, "<em>ocorrência</em>"_t});
    conferir(remessa({.tipo = gerador::Tipo::TAV001, .registros = 3}), "-q", {"Totais do trailer"_t, "<li>Nada. "_t});
}

/// Each failure of a file, and each place to interrupt: a report is whole, or the old one.
TEST(Programa, nenhumLaudoPelaMetade) {
    const auto rodar = [](Bancada& bancada) {
        Texto& laudo = bancada.arquivos.conteudo["/l.html"];
        laudo = "antigo"_t;
        const int situacao = bancada.rodar({"-q", "--laudo=/l.html", "/d/ruim.rem"});
        EXPECT_TRUE(laudo.ends_with("</html>\n"_t) || (laudo == "antigo"_t && situacao >= 2)) << situacao << laudo;
        EXPECT_TRUE(bancada.arquivos.tudoFechado());
        return situacao;
    };
    const int falhas = testes::emCadaFalhaDeArquivo([&](auto operacao, int vez) {
        Bancada bancada;
        bancada.arquivos.falhar(operacao, vez, testes::discoCheio);
        rodar(bancada);
        return bancada.arquivos.vezes(operacao) >= vez;
    });
    EXPECT_GT(falhas, 20);
    for (int perguntas = 1, situacao = 130; situacao == 130; perguntas += 3) {
        Bancada bancada;
        bancada.interrompido = [restam = perguntas]() mutable { return --restam < 0; };
        situacao = rodar(bancada);
    }
}

TEST(Programa, perguntaInterrompidaOuDeArquivoAlteradoNaoTemResposta) {
    for (const std::string pergunta : {"--linha=16", "--linha=2", "--sugerir-data"}) {
        Bancada bancada;
        int linhas = 0;
        bancada.interrompido = [&] { return ++linhas > 15; };
        EXPECT_EQ(bancada.rodar({pergunta, "--json", "/d/boa.rem"}), 130);
        bancada.interrompido = [&] { return bancada.arquivos.conteudo["/d/boa.rem"].resize(17 * 242), false; };
        EXPECT_EQ(bancada.rodar({pergunta, "--json", "/d/boa.rem"}), 2);
        EXPECT_EQ(bancada.saida.str() + bancada.erros.str(),
                  "/d/boa.rem: leitura cancelada\n"
                  "/d/boa.rem: não foi possível analisar: O arquivo foi alterado durante a análise!\n");
    }
}

TEST(Programa, linhaSemFimNaoPrendeQuemDesiste) {
    Bancada bancada;
    auto& arquivos = bancada.arquivos.conteudo;
    for (const char* nome : {"/d/boa.rem", "/d/impressao.ret", "/d/liquidacao"})
        arquivos[nome].insert(240, Texto(3'000'000, 'x'));
    EXPECT_EQ(bancada.rodar({"/d/boa.rem"}), 1); // says what is wrong, and reads no further
    EXPECT_LE(bancada.arquivos.vezes(testes::ArquivosEmMemoria::Operacao::Ler), 8); // it has more blocks
    for (const char* nome : {"/d/impressao.ret", "/d/liquidacao"}) {
        int perguntas = 0;
        bancada.interrompido = [&] { return ++perguntas > 9; }; // past the first line
        EXPECT_EQ(bancada.rodar({"--json", "--log", "/log", nome}), 130);
        EXPECT_TRUE(arquivos["/log"].ends_with("\r\nTRATAMENTO CANCELADO!!!\r\n"_t)) << arquivos["/log"];
        EXPECT_NE(bancada.saida.str().find(R"("guiasRejeitadas":0,"situacao":130})"), std::string::npos);
        bancada.saida.str("");
    }
}

TEST(Programa, progressoNoTerminalNoMaximoDezVezesPorSegundo) {
    const auto progressoDe = [](std::vector<std::string> argumentos) {
        Bancada bancada;
        bancada.noTerminal = true;
        bancada.largura = 60;
        bancada.arquivos.conteudo["/d/grande.rem"] = remessa({.registros = 20'000});
        // Two passes of two seconds.
        bancada.interrompido = [&] { return bancada.relogio.avancar(std::chrono::microseconds(100)), false; };
        argumentos.emplace_back("/d/grande.rem");
        EXPECT_EQ(bancada.rodar(argumentos), 0);
        return bancada.erros.str();
    };
    EXPECT_EQ(progressoDe({"-q"}), "");
    EXPECT_NE(progressoDe({"--sugerir-data"}).find(" de 20083 (50%)  decorrido 00:00:01"), std::string::npos);
    const std::string progresso = progressoDe({});
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
    const std::string hostil = "/d/\x1b[2J\r\x7f\x9b\xE7.rem";
    EXPECT_EQ(bancada.rodar({hostil, "--tipo", "ZUL702"}), 2);
    EXPECT_EQ(bancada.erros.str(),
              "/d/\\x1B[2J\\x0D\\x7F\\x9Bç.rem: não foi possível analisar: Arquivo não encontrado!\n"
              "  log: /d/\\x1B[2J\\x0D\\x7F\\x9Bç.log\n");
    EXPECT_EQ(bancada.rodar({hostil, "--json"}), 2);
    EXPECT_NE(bancada.saida.str().find("\"/d/\\u001b[2J\\r\x7f›ç.rem\""), std::string::npos);
    bancada.erros.str("");
    EXPECT_EQ(bancada.rodar({"--x\x1b[2J"}), 2);
    EXPECT_EQ(bancada.erros.str(), "Opção desconhecida: --x\\x1B[2J\nUse --ajuda para ver o uso.\n");
}

TEST(Programa, soOSistemaSabeOQueHaAcimaDeUmLink) {
    const testes::PastaTemporaria pasta;
    std::filesystem::create_directories(pasta / "a/b");
    std::filesystem::create_directory_symlink(pasta / "a/b", pasta / "link");
    const std::pair<const char*, const char*> casos[] = {{"a/b/.././x", "a/x"},
                                                         {"link/../a", "link/../a"},
                                                         {"x/../link/y/../../..", "link/../../"},
                                                         {"a/../../../../../../../../../../..", "/"},
                                                         {"link/.", "link/"}};
    for (const auto& [dado, completo] : casos)
        EXPECT_EQ(lerArgumentos({pasta / dado}).arquivos.at(0), pasta / completo) << dado;
}

TEST(Programa, semPastaDeTrabalhoOsCaminhosCompletosAindaValem) {
    const testes::PastaTemporaria pasta;
    std::filesystem::create_directory(pasta / "apagada");
    std::filesystem::current_path(pasta / "apagada");
    std::filesystem::remove(pasta / "apagada");
    Bancada bancada;
    EXPECT_EQ(bancada.rodar({"x.rem", "/d/boa.rem", "-q"}), 2);
    EXPECT_EQ(bancada.erros.str(), "x.rem: não foi possível analisar: A pasta de trabalho não existe mais; informe o "
                                   "caminho completo do arquivo\n");
    EXPECT_TRUE(bancada.arquivos.existe("/d/boa.log"));
    std::filesystem::current_path("/");
}

} // namespace
} // namespace quilatador
