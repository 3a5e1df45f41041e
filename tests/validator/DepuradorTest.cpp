#include "validator/Depurador.h"

#include "gerarRemessa/PosicoesZUL702.h"
#include "support/Comparacao.h"
#include "support/Remessas.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using gerador::campo;
using testes::bytesDaLinha;
using testes::comCampo;
using testes::comRepetidos;
using testes::discoCheio;
using testes::letrasDe;
using testes::remessa;
using Operacao = testes::ArquivosEmMemoria::Operacao;

constexpr VistaTexto titulo = "LOG DE DEPURAÇÃO DO ARQUIVO /d/remessa.rem  -   10/03/2026\r\n\r\n"_t;
constexpr VistaTexto sequencia = "VERIFICAÇÃO DA SEQUÊNCIA DE REGISTROS!\r\n"_t;
constexpr VistaTexto cancelada = "\r\nDEPURACAO CANCELADA!\r\n"_t;
constexpr VistaTexto fim = "Depuração terminada!\r\n"_t;

/// A `Depurador` in a world that has one remittance.
struct Bancada {
    explicit Bancada(Texto conteudo = remessa()) : mundo(std::move(conteudo)) {}

    Resumo depurar() {
        Rodada rodada(mundo.ambiente, {.nomeArquivo = "/d/remessa.rem", .ouvintes = ouvintes}, cancelado);
        return depurador.depurar(rodada);
    }
    /// The log of a run.
    Texto log() {
        depurar();
        return logFeito();
    }
    Texto& logFeito() { return mundo.arquivos.conteudo["/d/remessa.log"]; }
    Texto& entrada() { return mundo.arquivos.conteudo["/d/remessa.rem"]; }

    testes::MundoComRemessa mundo;
    modVariaveis globais;
    std::atomic<bool> cancelado = false;
    std::vector<Relator*> ouvintes;
    Depurador depurador{mundo.ambiente, globais, cancelado};
};

Texto logDe(Texto conteudo) {
    return Bancada(std::move(conteudo)).log();
}

/// Where the log differs from the one expected.
std::string diferenca(const Texto& log, const Texto& esperado) {
    return testes::diferenca(utf8DeTexto(log), utf8DeTexto(esperado));
}

/// Whatever run came before, the same request on the same file gives the same bytes, as a fresh `Depurador` does.
TEST(Depurador, nadaDeUmaExecucaoApareceNaSeguinte) {
    const Texto outra = remessa({.semente = 7, .guias = 3, .falhas = true});
    const std::function<void(Bancada&)> antes[] = {
        [&](Bancada& b) { b.entrada() = outra; },
        [&](Bancada& b) { b.entrada() = outra.substr(0, outra.size() / 2); },
        [](Bancada& b) { b.mundo.arquivos.conteudo.erase("/d/remessa.rem"); },
        [](Bancada& b) { b.depurador.PosicaoDataBarra = 20, b.depurador.FormatoDataBarra = Texto("ADDD"_t); },
    };
    // Without a date format of its own the agreement echoes whatever format is known.
    const Texto conferida = comCampo(remessa(), 3, campo('C', "FormatoData"), Texto("X"_t));
    for (const auto& preparar : antes) {
        Bancada bancada;
        preparar(bancada);
        bancada.logFeito() = Texto("old content"_t);
        bancada.depurar();
        bancada.depurador.PosicaoDataBarra = 0;
        bancada.entrada() = conferida;
        EXPECT_EQ(diferenca(bancada.log(), logDe(conferida)), "") << &preparar - antes;
    }
}

TEST(Depurador, canceladaEmQualquerLinha) {
    const Texto inteiro = logDe(remessa());
    for (const int fase : {1, 2}) {
        for (const std::int32_t linha : {2, 8, 15, 16}) {
            Bancada bancada;
            bancada.mundo.painel.naLinha(
                linha, [&] { bancada.depurador.Cancelado = true; }, fase);
            const Resumo resumo = bancada.depurar();
            const Texto log = bancada.logFeito();
            bancada.mundo.painel.naLinha(0, {});
            EXPECT_EQ(diferenca(bancada.log(), inteiro), "");
            EXPECT_EQ(resumo.desfecho, Desfecho::Cancelada);
            ASSERT_TRUE(log.ends_with(junta(cancelada, fim)));
            const Texto comeco = log.substr(0, log.size() - cancelada.size() - fim.size());
            EXPECT_TRUE(inteiro.starts_with(comeco));
            EXPECT_EQ(comeco == junta(titulo, sequencia), fase == 1);
        }
    }
}

TEST(Depurador, canceladaEntreAsParcelasDeUmaGuia) {
    Bancada bancada(comRepetidos(remessa(), "LY"_t, 100));
    bancada.mundo.painel.nosEventos = [&] { bancada.cancelado = true; };
    const Resumo resumo = bancada.depurar();
    EXPECT_EQ(resumo.desfecho, Desfecho::Cancelada);
    EXPECT_EQ(resumo.guiasAceitas + resumo.guiasRejeitadas, 0);
    EXPECT_TRUE(bancada.logFeito().ends_with(junta(cancelada, fim)));
}

TEST(Depurador, somenteAsPrimeirasGuias) {
    using Caso = std::tuple<std::optional<double>, std::int32_t, std::int32_t>;
    for (const auto& [primeiras, lidas, aceitas] :
         {Caso{0, 0, 0}, Caso{4, 4, 0}, Caso{5, 5, 1}, Caso{std::nullopt, 5, 1}}) {
        Bancada bancada(remessa({.guias = 5}));
        bancada.mundo.painel.primeiras = primeiras;
        const Resumo resumo = bancada.depurar();
        EXPECT_EQ(std::tuple(resumo.guiasDepuradas, resumo.guiasAceitas), std::tuple(lidas, aceitas));
    }
}

TEST(Depurador, soAUltimaGuiaEhVerificada) {
    const Texto boa = remessa({.guias = 2});
    const auto semIdentificacao = [&](std::size_t s) {
        return comCampo(boa, s + 1, campo('S', "IdGuia"), Texto(15, '0'));
    };
    EXPECT_EQ(diferenca(logDe(semIdentificacao(letrasDe(boa).find('S'))), logDe(boa)), "");
    EXPECT_EQ(Bancada(boa).depurar().guiasAceitas, 1);
    const Resumo resumo = Bancada(semIdentificacao(letrasDe(boa).rfind('S'))).depurar();
    EXPECT_EQ(std::tuple(resumo.guiasAceitas, resumo.guiasRejeitadas), std::tuple(0, 1));
    const std::size_t linhas = letrasDe(boa).size() + 1;
    const Texto outroTrailer = junta(boa, ultimos(boa, bytesDaLinha));
    const Texto numero = comZeros(static_cast<long long>(linhas), 6);
    EXPECT_EQ(Bancada(comCampo(outroTrailer, linhas, campo('Z', "Sequencial"), numero)).depurar().guiasAceitas, 2);
}

/// Whatever fails, the log never claims success, nothing stays open, and the next run is as if nothing had happened.
TEST(Depurador, falhaEmQualquerOperacaoDeArquivo) {
    Texto grande = remessa({.registros = 14000}); // more than one block to read, and a finding in each line to write
    for (std::size_t i = 220; i < grande.size(); i += bytesDaLinha)
        grande[i] = "ç"_t[0];
    const Texto inteiro = logDe(grande);
    const int falhas = testes::emCadaFalhaDeArquivo([&](Operacao operacao, int vez) {
        Bancada bancada(grande);
        testes::RelatorMemoria ouvinte;
        bancada.ouvintes = {&ouvinte};
        vez += bancada.mundo.arquivos.vezes(operacao);
        bancada.mundo.arquivos.falhar(operacao, vez, discoCheio);
        bancada.depurar();
        const bool tocada = bancada.mundo.arquivos.vezes(operacao) >= vez;
        const bool doLog = tocada && operacao != Operacao::Abrir && operacao != Operacao::Ler;
        const Texto log = bancada.logFeito();
        EXPECT_EQ(ouvinte.resumos.size(), 1u);
        EXPECT_EQ(ouvinte.resumos[0].desfecho == Desfecho::NaoRodou, tocada);
        EXPECT_EQ(log == inteiro, !tocada || operacao == Operacao::Fechar);
        EXPECT_EQ(bancada.mundo.painel.mensagens.size(), doLog ? 1u : 0u);
        EXPECT_EQ(bancada.mundo.lancador.textos.size(), doLog ? 0u : 1u);
        EXPECT_EQ(log.ends_with(junta(ouvinte.resumos[0].descricao, "\r\n"_t, fim)), !doLog);
        EXPECT_TRUE(bancada.mundo.arquivos.tudoFechado());
        EXPECT_TRUE(!tocada || bancada.log() == inteiro);
        return tocada;
    });
    EXPECT_GE(falhas, 8);
}

TEST(Depurador, arquivoAlteradoDuranteAAnaliseNaoTemConclusao) {
    for (const int fase : {1, 2}) {
        Bancada bancada(remessa({.registros = 40}));
        bancada.mundo.painel.naLinha(
            20, [&] { bancada.entrada().replace(300, 1, "&"_t); }, fase);
        EXPECT_EQ(bancada.depurar().desfecho, Desfecho::NaoRodou);
        EXPECT_TRUE(bancada.logFeito().ends_with(junta("O arquivo foi alterado durante a análise!\r\n"_t, fim)));
        EXPECT_EQ(bancada.logFeito().find("Erros encontrados"_t), Texto::npos);
    }
}

TEST(Depurador, semLeiauteCadaExecucaoDizQueFalta) {
    const std::pair<VistaTexto, VistaTexto> casos[] = {
        {""_t, "mensagem [Solvara - Quilatador de Leiaute] Arquivo nao encontrado!"_t},
        {"<a"_t, "mensagem [Solvara - Quilatador de Leiaute - Erro!] Leiaute inválido: não é XML (byte 1)"_t},
        {"<?xml version=\"1.0\"?><a/>"_t,
         "mensagem [Solvara - Quilatador de Leiaute] Arquivo XML não corresponde a um arquivo de remessa!"_t},
    };
    for (const auto& [leiaute, mensagem] : casos) {
        testes::MundoComRemessa mundo;
        mundo.arquivos.conteudo["/programa/Arquivo_ZUL702.xml"] = Texto(leiaute);
        if (leiaute.empty()) mundo.arquivos.conteudo.erase("/programa/Arquivo_ZUL702.xml");
        modVariaveis globais;
        std::atomic<bool> cancelado = true; // what an earlier run was asked does not hold for the next
        Depurador depurador(mundo.ambiente, globais, cancelado);
        EXPECT_EQ(mundo.painel.chamadas, std::vector<Texto>{Texto(mensagem)});
        EXPECT_EQ(depurador.DepurarArquivo("/d/remessa.rem").desfecho, Desfecho::NaoRodou);
        EXPECT_EQ(mundo.arquivos.conteudo["/d/remessa.log"], junta(titulo, "Leiaute não carregado!\r\n"_t, fim));
    }
}

TEST(Depurador, arquivosQueParamNaSequencia) {
    const Texto boa = remessa();
    const Texto dez = boa.substr(0, 10 * bytesDaLinha);
    const Texto resto = boa.substr(dez.size());
    constexpr VistaTexto semHeader = "Primeira linha do arquivo não corresponde ao Header!\r\n"_t;
    constexpr VistaTexto semZ = "Linha: 000010 -  Segmento 'Z' exigido ao final do arquivo\r\n"_t;
    const std::pair<Texto, VistaTexto> casos[] = {
        {Texto(), semHeader},
        {junta("\r\n"_t, boa), semHeader},
        {Texto("q"_t), semHeader},
        {Texto("B"_t), "Tamanho de registro inválido. Esperado 240\r\n"_t}, // tested before the letter
        {junta(dez, "\r\n"_t, resto), semZ},
        {junta(dez, "\x1A"_t, resto), semZ},
        {junta(dez, "q"_t, resto.substr(1)), "Tipo de registro não identificado!\r\n"_t},
    };
    for (const auto& [conteudo, esperado] : casos) {
        Bancada bancada(conteudo);
        EXPECT_EQ(bancada.depurar().desfecho, Desfecho::Falhou);
        EXPECT_EQ(bancada.logFeito(), junta(titulo, sequencia, esperado, fim));
    }
}

TEST(Depurador, progressoUmaVezPorLinha) {
    Bancada bancada;
    bancada.mundo.painel.naLinha(
        9, [&] { bancada.mundo.relogio.avancar(std::chrono::seconds(3661)); }, 2);
    const Texto log = bancada.log();
    EXPECT_TRUE(log.ends_with(junta("\r\nTempo Decorrido  : 01:01:01\r\n"_t, fim)));
    const auto avancos = [](std::size_t de, std::size_t ate, VistaTexto guias) {
        Texto todos;
        for (; de <= ate; ++de)
            todos += junta("avancar "_t, textoDe(static_cast<int>(de)), "/16 guias "_t, guias, "\n"_t);
        return todos;
    };
    Texto chamadas;
    for (const Texto& chamada : bancada.mundo.painel.chamadas)
        chamadas += junta(chamada, "\n"_t);
    const std::size_t guia = letrasDe(remessa()).find('S') + 1;
    EXPECT_EQ(chamadas,
              junta("rotulo Operacao: Verificando a integridade do arquivo...\niniciar 0/16 guias 0\n"_t,
                    avancos(2, 16, "0"_t),
                    "rotulo Operacao: Verificando registros de definição!\niniciar 0/16 guias 0\n"
                    "rotulo Remessa: Remessa: 350898\n"_t,
                    avancos(2, 2, "0"_t), "rotulo Empresa: Convenente: PREFEITURA MUNICIPAL DE VILA SERENA\n"_t,
                    avancos(3, guia, "0"_t), "rotulo Operacao: Depurando guias\n"_t, avancos(guia + 1, 16, "0"_t),
                    "concluir 16/16 guias 1\n"_t));
    EXPECT_EQ(bancada.mundo.painel.ultimo.barra, 15);

    Bancada estimada(Texto(2410, 'x'));
    estimada.depurar();
    EXPECT_EQ(estimada.mundo.painel.chamadas[1], "iniciar 0/10 guias 0"_t);
}

/// A finding names the field where the fault stands, and expects only what was read from data that can be read.
TEST(Depurador, campoEEsperadoNuncaVemDeLeituraQueFalhou) {
    struct Caso {
        char letra;
        gerador::Campo trocado;
        VistaTexto conteudo;
        VistaTexto achados; ///< id, field and what is expected, of each
    };
    const Caso casos[] = {
        {'A', campo('A', "CNPJ"), "11222333000199"_t, "a.cnpj.invalido CNPJ; b.cnpj.diferente CNPJ; "_t},
        {'S', campo('S', "IdGuia"), "X"_t,
         "s.idGuia.invalida IdGuia; s.dataEmissao.invalida IdGuia; s.dataValidade.invalida IdGuia; "_t},
        {'U', campo('U', "ValorRec1"), "0000000000000"_t, "u.soma.diferente ValorRec1; "_t},
        {'Y', campo('Y', "Parte2"), "X"_t,
         "y.parte.naoNumerica Parte2; y.barra.valor ValorPag; y.barra.digitoGeral Parte1; "
         "y.barra.idFebraban Parte2; y.barra.dataInvalida Parte2; "_t},
        {'Y', campo('Y', "Parte4"), "X"_t, "y.parte.naoNumerica Parte4; y.barra.digitoGeral Parte1; "_t},
    };
    for (const auto& [letra, trocado, conteudo, achados] : casos) {
        Bancada bancada(comCampo(remessa(), letrasDe(remessa()).find(letra) + 1, trocado, Texto(conteudo)));
        testes::RelatorMemoria memoria;
        bancada.ouvintes = {&memoria};
        bancada.depurador.PosicaoDataBarra = 20;
        bancada.depurar();
        Texto encontrados;
        for (const Achado& achado : memoria.achados)
            encontrados +=
                junta(achado.id, " "_t, achado.campo.value().nome, achado.campo->esperado.value_or(Texto()), "; "_t);
        EXPECT_EQ(encontrados, achados);
    }
}

TEST(Depurador, tamanhoErradoTemALinhaQueOTextoNaoDiz) {
    Bancada bancada(remessa().substr(0, 5 * bytesDaLinha - 9));
    testes::RelatorMemoria memoria;
    bancada.ouvintes = {&memoria};
    bancada.depurar();
    ASSERT_EQ(memoria.achados.size(), 1u);
    EXPECT_EQ(memoria.achados[0].linha, 5);
}

} // namespace
} // namespace quilatador
