#include "validator/Depurador.h"

#include "gerarRemessa/PosicoesZUL702.h"
#include "support/Remessas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace quilatador {
namespace {

using gerador::campo;
using testes::bytesDaLinha;
using testes::comCampo;
using testes::letrasDe;
using testes::remessa;
using Operacao = testes::ArquivosEmMemoria::Operacao;

constexpr VistaTexto titulo = "LOG DE DEPURAÇÃO DO ARQUIVO /d/remessa.rem  -   10/03/2026\r\n\r\n"_t;
constexpr VistaTexto sequencia = "VERIFICAÇÃO DA SEQUÊNCIA DE REGISTROS!\r\n"_t;
constexpr VistaTexto cancelada = "\r\nDEPURACAO CANCELADA!\r\n";
constexpr VistaTexto fim = "Depuração terminada!\r\n"_t;
constexpr VistaTexto semHeader = "Primeira linha do arquivo não corresponde ao Header!\r\n"_t;
const Falha discoCheio(numeroDeFalha::discoCheio, "Gravacao", "Disco cheio");

/// A `Depurador` in a world that has one remittance.
struct Bancada {
    explicit Bancada(Texto conteudo = remessa(), const std::filesystem::path& caminho = "/d/remessa.rem")
        : entrada(caminho), mundo(std::move(conteudo), caminho) {}

    Resumo depurar() { return depurador.DepurarArquivo(entrada); }
    /// The log of a run.
    Texto log() {
        depurar();
        return mundo.arquivos.conteudo["/d/remessa.log"];
    }
    /// Asks the run to stop at a line of one of its two passes.
    void cancelarNaLinha(std::int32_t linha, int fase) {
        mundo.painel.naLinha(
            linha, [this] { depurador.Cancelado = true; }, fase);
    }

    std::filesystem::path entrada;
    testes::MundoComRemessa mundo;
    modVariaveis globais;
    Depurador depurador{mundo.ambiente, globais};
};

Texto logDe(Texto conteudo) {
    return Bancada(std::move(conteudo)).log();
}

/// The lines of the summary that count slips, without labels.
Texto guiasNo(const Texto& log) {
    Texto numeros;
    for (const VistaTexto rotulo : {"Guias depuradas  : ", "Guias aceitas    : ", "Guias rejeitadas : "})
        numeros += log.substr(log.find(rotulo) + rotulo.size(), 1);
    return numeros;
}

TEST(Depurador, logNomeadoPeloPrimeiroPonto) {
    const std::pair<const char*, const char*> casos[] = {{"/d/remessa.rem", "/d/remessa.log"},
                                                         {"/d/REMESSA", "/d/REMESSAlog"},
                                                         {"/d/a.b.rem", "/d/a.log"},
                                                         {"/d.2026/arq.rem", "/d.log"}};
    for (const auto& [entrada, log] : casos) {
        Bancada bancada(remessa(), entrada);
        bancada.mundo.arquivos.conteudo[log] = "old content";
        bancada.depurar();
        EXPECT_EQ(bancada.mundo.arquivos.conteudo[log].substr(0, 7), "LOG DE ");
        EXPECT_EQ(bancada.mundo.lancador.textos, std::vector<std::filesystem::path>{log});
    }
    Bancada bancada;
    bancada.depurador.DepurarArquivo(bancada.entrada, "/outro/x.txt");
    EXPECT_TRUE(bancada.mundo.arquivos.existe("/outro/x.txt"));
    EXPECT_FALSE(bancada.mundo.arquivos.existe("/d/remessa.log"));
}

/// Whatever run came before, the same request on the same file gives the same bytes, as a fresh `Depurador` does.
TEST(Depurador, nadaDeUmaExecucaoApareceNaSeguinte) {
    const Texto outra = remessa({.semente = 7, .guias = 3, .falhas = true});
    const std::function<void(Bancada&)> antes[] = {
        [](Bancada& b) { b.depurar(); },
        [&](Bancada& b) { b.mundo.arquivos.conteudo[b.entrada] = outra, b.depurar(); },
        [&](Bancada& b) { b.mundo.arquivos.conteudo[b.entrada] = outra.substr(0, outra.size() / 2), b.depurar(); },
        [](Bancada& b) { b.mundo.arquivos.conteudo.erase(b.entrada), b.depurar(); },
        [](Bancada& b) { b.cancelarNaLinha(5, 1), b.depurar(); },
        [](Bancada& b) { b.cancelarNaLinha(12, 2), b.depurar(); },
        [](Bancada& b) { b.mundo.arquivos.falhar(Operacao::Escrever, 1, discoCheio), b.depurar(); },
        [](Bancada& b) {
            b.depurador.PosicaoDataBarra = 20;
            b.depurador.FormatoDataBarra = "ADDD";
            b.depurar();
            b.depurador.PosicaoDataBarra = 0;
        },
    };
    // Without a date format of its own the agreement echoes whatever format is known.
    const Texto conferida = comCampo(remessa(), 3, campo('C', "FormatoData"), "X");
    const Texto esperado = logDe(conferida);
    for (const auto& executar : antes) {
        Bancada bancada;
        executar(bancada);
        bancada.mundo.painel.naLinha(0, {});
        bancada.mundo.arquivos.conteudo[bancada.entrada] = conferida;
        EXPECT_EQ(bancada.log(), esperado) << &executar - antes;
        EXPECT_EQ(bancada.log(), esperado) << &executar - antes;
        EXPECT_EQ(bancada.mundo.arquivos.conteudo[bancada.entrada], conferida);
        EXPECT_TRUE(bancada.mundo.arquivos.tudoFechado());
    }
}

TEST(Depurador, canceladaEmQualquerLinha) {
    const Texto inteiro = logDe(remessa());
    for (const int fase : {1, 2}) {
        for (const std::int32_t linha : {2, 8, 15, 16}) {
            Bancada bancada;
            bancada.cancelarNaLinha(linha, fase);
            const Resumo resumo = bancada.depurar();
            const Texto log = bancada.mundo.arquivos.conteudo["/d/remessa.log"];
            if (fase == 2 && linha == 16) { // asked for when nothing is left to read
                EXPECT_EQ(log, inteiro);
                continue;
            }
            EXPECT_EQ(resumo.desfecho, Desfecho::Cancelada);
            ASSERT_TRUE(log.ends_with(junta(cancelada, fim)));
            const Texto comeco = log.substr(0, log.size() - cancelada.size() - fim.size());
            EXPECT_TRUE(inteiro.starts_with(comeco));
            EXPECT_EQ(comeco == junta(titulo, sequencia), fase == 1);
            EXPECT_EQ(bancada.mundo.lancador.textos.size(), 1u);
            EXPECT_TRUE(bancada.mundo.arquivos.tudoFechado());
        }
    }
}

TEST(Depurador, somenteAsPrimeirasGuias) {
    const Texto arquivo = remessa({.guias = 5});
    struct Caso {
        std::optional<double> primeiras;
        std::int32_t guias;
        VistaTexto noLog;
    };
    for (const auto& [primeiras, guias, noLog] :
         {Caso{0, 0, "000"}, Caso{1, 1, "000"}, Caso{2, 2, "000"}, Caso{4, 4, "000"}, Caso{5, 5, "110"},
          Caso{999, 5, "110"}, Caso{std::nullopt, 5, "110"}}) {
        Bancada bancada(arquivo);
        bancada.mundo.painel.primeiras = primeiras;
        const Resumo resumo = bancada.depurar();
        const Texto& log = bancada.mundo.arquivos.conteudo["/d/remessa.log"];
        EXPECT_EQ(resumo.guiasDepuradas, guias);
        EXPECT_EQ(guiasNo(log), noLog);
        EXPECT_TRUE(log.ends_with(fim));
        // The last line read is the S that is one too many, or the trailer.
        const Texto letras = letrasDe(arquivo);
        std::size_t ultima = letras.find('S');
        for (std::int32_t vez = 0; vez < guias && ultima != Texto::npos; ++vez)
            ultima = letras.find('S', ultima + 1);
        EXPECT_TRUE(bancada.mundo.painel.chamadas.back().starts_with(
            junta("concluir ", std::to_string(std::min(ultima, letras.size() - 1) + 1), "/")));
    }
}

TEST(Depurador, soAUltimaGuiaEhVerificada) {
    const Texto boa = remessa({.guias = 2});
    const Texto letras = letrasDe(boa);
    const auto semIdentificacao = [&](std::size_t s) {
        return comCampo(boa, s + 1, campo('S', "IdGuia"), Texto(15, '0'));
    };
    EXPECT_EQ(logDe(semIdentificacao(letras.find('S'))), logDe(boa));
    EXPECT_EQ(guiasNo(logDe(boa)), "110");
    EXPECT_EQ(guiasNo(logDe(semIdentificacao(letras.rfind('S')))), "101");
}

TEST(Depurador, entradaQueNaoSeAbre) {
    const std::tuple<int, VistaTexto, VistaTexto> casos[] = {
        {53, "do sistema", "Arquivo não encontrado!"_t},
        {52, "do sistema", "Nome de arquivo inválido!"_t},
        {70, "Permissão negada"_t, "Permissão negada"_t},
        {75, "Erro de acesso", "Erro de acesso"},
    };
    for (const auto& [numero, doSistema, noLog] : casos) {
        Bancada bancada;
        bancada.mundo.arquivos.falhar(Operacao::Abrir, 2, Falha(numero, "Gravacao", Texto(doSistema)));
        const Resumo resumo = bancada.depurar();
        EXPECT_EQ(bancada.mundo.arquivos.conteudo["/d/remessa.log"], junta(titulo, noLog, "\r\n", fim));
        EXPECT_EQ(resumo.desfecho, Desfecho::NaoRodou);
        EXPECT_EQ(resumo.descricao, noLog);
    }
}

TEST(Depurador, logQueNaoPodeSer) {
    Bancada mesmo(remessa(), "/d/x.log");
    testes::RelatorMemoria ouvinte;
    mesmo.depurador.adicionarRelator(ouvinte);
    EXPECT_EQ(mesmo.depurar().desfecho, Desfecho::NaoRodou);
    EXPECT_EQ(mesmo.mundo.arquivos.conteudo["/d/x.log"], remessa());
    EXPECT_EQ(ouvinte.resumos.size(), 1u);
    Bancada recusado;
    recusado.mundo.arquivos.falhar(Operacao::Criar, 1, discoCheio);
    EXPECT_EQ(recusado.depurar().desfecho, Desfecho::NaoRodou);
    for (Bancada* bancada : {&mesmo, &recusado}) {
        EXPECT_EQ(bancada->mundo.painel.mensagens.size(), 1u);
        EXPECT_EQ(bancada->mundo.painel.mensagens[0].titulo, tituloDeErro);
        EXPECT_EQ(bancada->mundo.painel.chamadas.size(), 1u); // no run
        EXPECT_TRUE(bancada->mundo.lancador.textos.empty());
        EXPECT_EQ(bancada->mundo.arquivos.vezes(Operacao::Escrever), 0);
    }
    EXPECT_EQ(mesmo.mundo.painel.mensagens[0].texto, "O arquivo de log seria o próprio arquivo analisado: /d/x.log"_t);
    EXPECT_EQ(recusado.mundo.painel.mensagens[0].texto, "Erro na criacao do arquivo de log: /d/remessa.log");
}

/// Each reading, opening, creating, writing and closing of a run fails once: the log never claims success, nothing
/// stays open, and the next run is as if nothing had happened.
TEST(Depurador, falhaEmQualquerOperacaoDeArquivo) {
    Texto grande = remessa({.registros = 20000}); // more than one block to read, and a finding in each line to write
    for (std::size_t i = 220; i < grande.size(); i += bytesDaLinha)
        grande[i] = "ç"_t[0];
    const Texto inteiro = logDe(grande);
    for (const Operacao operacao :
         {Operacao::Abrir, Operacao::Ler, Operacao::Criar, Operacao::Escrever, Operacao::Fechar}) {
        int feitas = 0;
        for (bool tocada = true; tocada; ++feitas) {
            Bancada bancada(grande);
            const int vez = bancada.mundo.arquivos.vezes(operacao) + feitas + 1;
            bancada.mundo.arquivos.falhar(operacao, vez, discoCheio);
            const Resumo resumo = bancada.depurar();
            tocada = bancada.mundo.arquivos.vezes(operacao) >= vez;
            const Texto log = bancada.mundo.arquivos.conteudo["/d/remessa.log"];
            EXPECT_EQ(resumo.desfecho == Desfecho::NaoRodou, tocada);
            EXPECT_EQ(log == inteiro, !tocada || operacao == Operacao::Fechar);
            EXPECT_TRUE(bancada.mundo.arquivos.tudoFechado());
            const bool doLog = operacao != Operacao::Abrir && operacao != Operacao::Ler;
            EXPECT_EQ(bancada.mundo.painel.mensagens.size(), tocada && doLog ? 1u : 0u);
            EXPECT_EQ(bancada.mundo.lancador.textos.size(), tocada && doLog ? 0u : 1u);
            EXPECT_EQ(log.ends_with(junta("Disco cheio!\r\n", fim)) || log.ends_with(junta("Disco cheio\r\n", fim)),
                      tocada && !doLog);
            EXPECT_TRUE(!tocada || bancada.log() == inteiro);
        }
        EXPECT_GE(feitas, operacao == Operacao::Ler || operacao == Operacao::Escrever ? 3 : 2);
    }
}

TEST(Depurador, arquivoAlteradoDuranteAAnaliseNaoTemConclusao) {
    const Texto original = remessa({.registros = 40});
    const std::pair<const char*, Texto> alteracoes[] = {
        {"grown", original + original},
        {"cut", original.substr(0, original.size() / 2)},
        {"another of the same size", remessa({.registros = 40}).replace(300, 1, "&")},
        {"no remittance", "nada"}};
    for (const auto& [nome, alterado] : alteracoes) {
        for (const int fase : {1, 2}) {
            Bancada bancada(original);
            bancada.mundo.painel.naLinha(
                20, [&, &outro = alterado] { bancada.mundo.arquivos.conteudo[bancada.entrada] = outro; }, fase);
            const Resumo resumo = bancada.depurar();
            EXPECT_EQ(resumo.desfecho, Desfecho::NaoRodou) << nome << fase;
            EXPECT_EQ(resumo.descricao, "O arquivo foi alterado durante a análise!"_t);
            const Texto log = bancada.mundo.arquivos.conteudo["/d/remessa.log"];
            EXPECT_TRUE(log.ends_with(junta(arquivoAlterado, "\r\n", fim))) << nome << fase;
            EXPECT_EQ(log.find("Erros encontrados"), Texto::npos);
        }
    }
}

TEST(Depurador, semLeiauteCadaExecucaoDizQueFalta) {
    const std::pair<const char*, VistaTexto> casos[] = {
        {nullptr, "mensagem [Solvara - Quilatador de Leiaute] Arquivo nao encontrado!"},
        {"<a", "mensagem [Solvara - Quilatador de Leiaute - Erro!] Leiaute inválido: não é XML (byte 1)"_t},
        {"<?xml version=\"1.0\"?><a/>",
         "mensagem [Solvara - Quilatador de Leiaute] Arquivo XML não corresponde a um arquivo de remessa!"_t},
    };
    for (const auto& [leiaute, mensagem] : casos) {
        testes::MundoComRemessa mundo;
        mundo.arquivos.conteudo.erase("/programa/Arquivo_ZUL702.xml");
        if (leiaute) mundo.arquivos.conteudo["/programa/Arquivo_ZUL702.xml"] = leiaute;
        modVariaveis globais;
        Depurador depurador(mundo.ambiente, globais);
        EXPECT_EQ(mundo.painel.chamadas, std::vector<Texto>{Texto(mensagem)});
        for (int vez = 0; vez < 2; ++vez) {
            EXPECT_EQ(depurador.DepurarArquivo("/d/remessa.rem").desfecho, Desfecho::NaoRodou);
            EXPECT_EQ(mundo.arquivos.conteudo["/d/remessa.log"], junta(titulo, "Leiaute não carregado!\r\n"_t, fim));
        }
    }
}

TEST(Depurador, arquivosQueParamNaSequencia) {
    const Texto boa = remessa();
    const auto ate = [&](std::size_t linhas) { return boa.substr(0, linhas * bytesDaLinha); };
    constexpr VistaTexto tamanhoErrado = "Tamanho de registro inválido. Esperado 240\r\n"_t;
    constexpr VistaTexto semZ = "Linha: 000010 -  Segmento 'Z' exigido ao final do arquivo\r\n";
    constexpr std::size_t dezMega = 10'000'000;
    const std::pair<Texto, VistaTexto> casos[] = {
        {"", semHeader},
        {"\x1A", semHeader},
        {"\r\n" + boa, semHeader},
        {"\n", semHeader},
        {"q", semHeader},
        {boa.substr(bytesDaLinha), semHeader},
        {Texto(dezMega, '\0'), semHeader},
        {Texto(dezMega, ' '), semHeader},
        {Texto(dezMega, 'A'), tamanhoErrado},
        {"A", tamanhoErrado},
        {"B", tamanhoErrado}, // the length is tested before the letter
        {" " + boa, semHeader},
        {ate(1), "Linha: 000001 -  Segmento 'Z' exigido ao final do arquivo\r\n"},
        {boa.substr(0, 240), "Linha: 000001 -  Segmento 'Z' exigido ao final do arquivo\r\n"},
        {ate(10), semZ},
        {ate(10) + "\r\n" + boa.substr(10 * bytesDaLinha), semZ},
        {ate(10) + "\x1A" + boa.substr(10 * bytesDaLinha), semZ},
        {ate(10) + boa.substr(10 * bytesDaLinha, 100) + "\x1A" + boa, tamanhoErrado},
        {ate(10) + Texto(dezMega, 'K') + "\r\n", tamanhoErrado},
        {ate(10) + "q" + boa.substr(10 * bytesDaLinha + 1), "Tipo de registro não identificado!\r\n"_t},
        {ate(10) + Texto(240, '\0'), "Tipo de registro não identificado!\r\n"_t},
    };
    for (const auto& [conteudo, esperado] : casos) {
        Bancada bancada(conteudo);
        EXPECT_EQ(bancada.depurar().desfecho, Desfecho::Falhou);
        EXPECT_EQ(bancada.mundo.arquivos.conteudo["/d/remessa.log"], junta(titulo, sequencia, esperado, fim));
    }
}

TEST(Depurador, finsDeLinhaNaoMudamOLog) {
    const Texto boa = remessa();
    const auto comFim = [&](VistaTexto fimPar, VistaTexto fimImpar) {
        Texto resultado;
        for (std::size_t i = 0; i < boa.size(); i += bytesDaLinha)
            resultado += junta(boa.substr(i, 240), i / bytesDaLinha % 2 == 0 ? fimPar : fimImpar);
        return resultado;
    };
    const Texto casos[] = {comFim("\n", "\n"),
                           comFim("\r", "\r"),
                           comFim("\r\n", "\n"),
                           comFim("\r", "\n"),
                           boa.substr(0, boa.size() - 2),
                           boa + "\x1A",
                           boa + "\r\n\r\nwhatever follows a blank line",
                           boa + "\x1A\r\nwhatever follows the end"};
    for (const Texto& caso : casos)
        EXPECT_EQ(logDe(caso), logDe(boa)) << &caso - casos;
}

TEST(Depurador, progressoUmaVezPorLinha) {
    Bancada bancada;
    bancada.mundo.painel.naLinha(
        9, [&] { bancada.mundo.relogio.avancar(std::chrono::seconds(3661)); }, 2);
    const Texto log = bancada.log();
    std::vector<Texto> esperadas{"rotulo Operacao: Verificando a integridade do arquivo...", "iniciar 0/16 guias 0"};
    const auto linhas = [&](bool comGuias) {
        Texto guias = "0";
        for (std::size_t linha = 2; linha <= 16; ++linha) {
            esperadas.push_back(junta("avancar ", std::to_string(linha), "/16 guias ", guias));
            if (!comGuias || remessa()[(linha - 1) * bytesDaLinha] != 'S') continue;
            esperadas.emplace_back("rotulo Operacao: Depurando guias");
            guias = "1";
        }
    };
    linhas(false);
    esperadas.emplace_back("rotulo Operacao: Verificando registros de definição!"_t);
    esperadas.emplace_back("iniciar 0/16 guias 0");
    linhas(true);
    esperadas.emplace_back("concluir 16/16 guias 1");
    std::erase_if(bancada.mundo.painel.chamadas, [](const Texto& chamada) {
        return chamada.starts_with("rotulo Empresa") || chamada.starts_with("rotulo Remessa");
    });
    EXPECT_EQ(bancada.mundo.painel.chamadas, esperadas);
    EXPECT_EQ(bancada.mundo.painel.rotulos,
              (std::map<Rotulo, Texto>{{Rotulo::Operacao, "Depurando guias"},
                                       {Rotulo::Empresa, "Convenente: PREFEITURA MUNICIPAL DE VILA SERENA"},
                                       {Rotulo::Remessa, "Remessa: 350898"}}));
    EXPECT_TRUE(log.ends_with(junta("\r\nTempo Decorrido  : 01:01:01\r\n", fim)));

    Bancada estimada(Texto(2410, 'x'));
    estimada.depurar();
    EXPECT_EQ(estimada.mundo.painel.chamadas[1], "iniciar 0/10 guias 0");
}

TEST(Depurador, ouvintesRecebemOQueOLogRecebe) {
    Bancada bancada(remessa({.guias = 3, .falhas = true}));
    RelatorLog espelho(bancada.mundo.arquivos.criarSaida("/espelho"));
    testes::RelatorMemoria memoria;
    bancada.depurador.adicionarRelator(espelho);
    bancada.depurador.adicionarRelator(memoria);
    const Resumo resumo = bancada.depurar();
    espelho.fechar();
    EXPECT_EQ(bancada.mundo.arquivos.conteudo["/espelho"], bancada.mundo.arquivos.conteudo["/d/remessa.log"]);
    EXPECT_GT(resumo.totalErros, 12);
    EXPECT_EQ(memoria.achados.size(), static_cast<std::size_t>(resumo.totalErros));
    ASSERT_EQ(memoria.resumos.size(), 1u);
    EXPECT_EQ(memoria.resumos[0].totalErros, resumo.totalErros);
    EXPECT_EQ(memoria.resumos[0].desfecho, Desfecho::Concluida);
    EXPECT_EQ(resumo.totalRegistros, 54);
    EXPECT_EQ(std::tuple(resumo.guiasDepuradas, resumo.guiasAceitas, resumo.guiasRejeitadas), std::tuple(3, 0, 1));
}

TEST(Depurador, achadoDizCampoEPosicoes) {
    const Texto boa = remessa();
    const Texto letras = letrasDe(boa);
    const std::size_t linhaDoS = letras.find('S') + 1;
    const auto numero = std::to_string(linhaDoS);
    const std::pair<Texto, Texto> casos[] = {
        {comCampo(boa, 2, campo("IDRegistro"), "0007"),
         "sequencia.idRegistro.naoZero 0 linha 2 B IDRegistro 8-11 [0007] esperado 0"},
        {comCampo(boa, linhaDoS, campo('S', "IdGuia"), Texto(15, '0')),
         "s.idGuia.invalida 0 linha " + numero + " S IdGuia 12-26 [000000000000000]"},
        {comCampo(boa, linhaDoS, campo('S', "indEndereco"), "X"),
         "s.indEndereco.invalido 0 linha " + numero + " S indEndereco 62-62 [X]"},
        {comCampo(boa, 2, campo('B', "Nome"), Texto("SÃO"_t)), "linha.caracteresEspeciais 0 linha 2 B"},
        {comCampo(boa, 4, campo("Sequencial"), "000005"), "sequencia.sequencial 2 linha 4 D"},
        {boa.substr(0, bytesDaLinha), "sequencia.z.ausente 2 linha 1 -"},
        {boa.substr(0, 5 * bytesDaLinha - 9), "sequencia.tamanho 2 linha 5 -"}, // though its text tells no line
    };
    for (const auto& [conteudo, esperado] : casos) {
        Bancada bancada(conteudo);
        testes::RelatorMemoria memoria;
        bancada.depurador.adicionarRelator(memoria);
        bancada.depurar();
        Texto achados;
        for (const Achado& a : memoria.achados) {
            achados += junta(a.id, " ", std::to_string(static_cast<int>(a.gravidade)), " linha ",
                             std::to_string(a.linha), " ", Texto(1, a.segmento == 0 ? '-' : a.segmento));
            if (!a.campo) continue;
            achados +=
                junta(" ", a.campo->nome, " ", std::to_string(a.campo->inicio), "-", std::to_string(a.campo->fim), " [",
                      a.campo->encontrado, "]", a.campo->esperado ? " esperado " + *a.campo->esperado : Texto());
        }
        EXPECT_EQ(achados, esperado);
    }
}

/// A remittance changed at random ends in order, says nothing of lines that it does not have, and says it again.
TEST(Depurador, bytesAoAcaso) {
    const Texto boa = remessa({.guias = 2});
    const auto linhas = static_cast<std::int32_t>(boa.size() / bytesDaLinha);
    std::mt19937 sorteio(1);
    Bancada bancada;
    testes::RelatorMemoria memoria;
    bancada.depurador.adicionarRelator(memoria);
    int concluidas = 0;
    for (int vez = 0; vez < 800; ++vez) {
        Texto arquivo = boa;
        for (auto trocas = 1 + sorteio() % 4; trocas > 0; --trocas) {
            const std::size_t onde = sorteio() % boa.size();
            arquivo[onde] = vez % 4 == 0 ? static_cast<char>(sorteio()) : "09 ABÇ-,"_t[sorteio() % 8];
        }
        bancada.mundo.arquivos.conteudo[bancada.entrada] = arquivo;
        const Texto log = bancada.log();
        EXPECT_TRUE(log.starts_with(titulo) && log.ends_with(fim));
        EXPECT_EQ(bancada.log(), log);
        concluidas += memoria.resumos.back().desfecho == Desfecho::Concluida;
        for (const Achado& achado : memoria.achados)
            EXPECT_LE(achado.linha, linhas + 2) << achado.id; // a line cut in two makes one more
        memoria = {};
    }
    EXPECT_GT(concluidas, 150);
}

TEST(Depurador, converterMascara) {
    constexpr VistaTexto caractere = "; Caractere inválido na máscara"_t;
    constexpr VistaTexto tamanhoErrado = "; Tamanho do identificador não confere com a máscara!"_t;
    const std::tuple<VistaTexto, VistaTexto, int, VistaTexto, VistaTexto> casos[] = {
        {"999", "N", 3, "@@@", ""},
        {"99", "N", 3, "@@", ""},
        {"9999", "N", 3, "@@@@", tamanhoErrado},
        {"AAA", "A", 3, "@@@", ""},
        {"A9A", "A", 3, "@@", ""}, // what is neither place nor separator is skipped
        {"xyz", "N", 0, "", ""},
        {"99.9-9/(9)[9]", "N", 7, "@@.@-@/(@)[@]", caractere}, // a separator is said to be invalid, yet converted
        {"9.99", "N", 2, "@.@@", tamanhoErrado},
        {"", "N", 0, "", ""},
        {"99.9", "X", 0, "", ""},
        {"99", "n", 1, "", ""},
    };
    for (const auto& [mascara, tipo, tamanho, esperada, mensagem] : casos) {
        Texto convertida = "<";
        EXPECT_EQ(Depurador::converterMascara(mascara, tipo, tamanho, convertida), mensagem) << mascara;
        EXPECT_EQ(convertida, junta("<", esperada)) << mascara;
    }
}

TEST(Depurador, conferirMascara) {
    constexpr VistaTexto naoConfere = "; Identificador não confere com a máscara cadastrada"_t;
    const std::tuple<VistaTexto, VistaTexto, VistaTexto, VistaTexto> casos[] = {
        {"123.456-7", "999.999-9", "1234567", ""},
        {"1x/ ", "9A/A", "1x ", ""},
        {"", "", "", ""},
        {"12", "999", "12", naoConfere},
        {"1234", "999", "1234", naoConfere},
        {"12a", "999", "12a", naoConfere},
        {"12-3", "99.9", "12-3", naoConfere},
        {"@1", "@9", "1", ""},
    };
    for (const auto& [identificador, mascara, esperado, mensagem] : casos) {
        Texto conferido(identificador);
        EXPECT_EQ(Depurador::conferirMascara(conferido, mascara), mensagem) << identificador;
        EXPECT_EQ(conferido, esperado);
    }
}

} // namespace
} // namespace quilatador
