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
using testes::remessa;

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
        [](Bancada& b) { b.mundo.painel.naLinha(8, [&] { b.depurador.Cancelado = true; }); },
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

TEST(Depurador, canceladaEntreAsParcelasDeUmaGuia) {
    Bancada bancada(comRepetidos(remessa(), "LY"_t, 100));
    bancada.mundo.painel.nosEventos = [&] { bancada.cancelado = true; };
    const Resumo resumo = bancada.depurar();
    EXPECT_EQ(resumo.desfecho, Desfecho::Cancelada);
    EXPECT_EQ(resumo.guiasAceitas + resumo.guiasRejeitadas, 0);
    EXPECT_TRUE(bancada.logFeito().ends_with(junta(cancelada, fim)));
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
    Texto chamadas;
    for (const Texto& chamada : bancada.mundo.painel.chamadas)
        chamadas += junta(chamada, "\n"_t);
    EXPECT_EQ(utf8DeTexto(chamadas), testes::lerTudo(QUILATADOR_PROGRESSO));
    EXPECT_EQ(bancada.mundo.painel.ultimo.barra, 15);

    Bancada estimada(Texto(2410, 'x'));
    estimada.depurar();
    EXPECT_EQ(estimada.mundo.painel.chamadas[1], "iniciar 0/10 guias 0"_t);
}

} // namespace
} // namespace quilatador
