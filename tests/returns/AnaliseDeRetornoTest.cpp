#include "returns/AnaliseDeRetorno.h"

#include "returns/Retornos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::Bancada;
using testes::linhas;
using testes::registro;
using Operacao = testes::ArquivosEmMemoria::Operacao;

const Falha falhaDeDisco(numeroDeFalha::discoCheio, "Gravacao", "Disco cheio");
const Falha falhaDeLeitura(numeroDeFalha::erroDeDispositivo, "Gravacao", Texto("Erro de E/S"));

constexpr VistaTexto cancelado = "\r\nTRATAMENTO CANCELADO!!!\r\n";

/// Both analyses, each with a file of three lines of its type.
struct Caso {
    Bancada::Analise analise;
    Texto arquivo;
};

const Caso casos[] = {
    {tratarRetornoZUL708, linhas({registro({{1, "A"}, {12, "ZUL708"}}), registro({{1, "S"}, {229, "05"}}), "Z"})},
    {tratarRetornoTAV001, linhas({registro({{1, "A2"}, {80, "03"}}), registro({{1, "G"}, {117, "1"}}), "Z"})}};

TEST(AnaliseDeRetorno, logNomeadoPeloPrimeiroPonto) {
    const std::pair<const char*, const char*> caminhos[] = {{"/d/retorno.ret", "/d/retorno.log"},
                                                            {"/d/retorno", "/d/retorno.log"},
                                                            {"/a.b/retorno.txt", "/a.log"},
                                                            {"/a.b/retorno", "/a.log"}};
    for (const Caso& caso : casos) {
        for (const auto& [entrada, log] : caminhos) {
            Bancada bancada(caso.analise, caso.arquivo, entrada);
            bancada.mundo.arquivos.conteudo[log] = "velho";
            bancada.rodar();
            EXPECT_EQ(bancada.mundo.arquivos.conteudo[log].substr(0, 7), "LOG DE ");
            EXPECT_EQ(bancada.mundo.lancador.textos, std::vector<std::filesystem::path>{log});
        }
        Bancada bancada(caso.analise, caso.arquivo);
        bancada.pedido.log = "/outro/lugar.txt";
        bancada.rodar();
        EXPECT_EQ(bancada.mundo.lancador.textos, std::vector<std::filesystem::path>{"/outro/lugar.txt"});
        EXPECT_FALSE(bancada.mundo.arquivos.existe("/d/retorno.log"));
    }
}

TEST(AnaliseDeRetorno, arquivoAlteradoDuranteAAnaliseNaoTemConclusao) {
    for (const Caso& caso : casos) {
        Bancada bancada(caso.analise, caso.arquivo);
        bancada.mundo.painel.naLinha(2, [&] { bancada.mundo.arquivos.conteudo["/d/retorno.ret"] += "Z"; });
        EXPECT_EQ(bancada.rodar().desfecho, Desfecho::NaoRodou);
        EXPECT_TRUE(bancada.mundo.arquivos.conteudo["/d/retorno.log"].ends_with(junta(arquivoAlterado, "\r\n")));
    }
}

TEST(AnaliseDeRetorno, naoRodaSemEntradaOuLog) {
    struct {
        void (*estragar)(Bancada&);
        VistaTexto mensagem;
    } const faltas[] = {{[](Bancada& b) { b.mundo.arquivos.conteudo.clear(); }, "[Erro!] Erro na abertura do arquivo"},
                        {[](Bancada& b) { b.mundo.arquivos.falhar(Operacao::Criar, 1, falhaDeDisco); },
                         "[Erro!] Erro na criacao do arquivo de log: /d/retorno.log"},
                        {[](Bancada& b) { b.pedido.log = b.pedido.nomeArquivo; },
                         "[Erro!] O arquivo de log seria o próprio arquivo analisado: /d/retorno.ret"_t},
                        {[](Bancada& b) { b.mundo.arquivos.falhar(Operacao::Escrever, 1, falhaDeDisco); },
                         "[Erro!] Erro na gravação do arquivo de log: /d/retorno.log (Disco cheio)"_t},
                        {[](Bancada& b) { b.mundo.arquivos.falhar(Operacao::Fechar, 1, falhaDeDisco); },
                         "[Erro!] Erro na gravação do arquivo de log: /d/retorno.log (Disco cheio)"_t}};
    for (const Caso& caso : casos)
        for (const auto& [estragar, mensagem] : faltas) {
            Bancada bancada(caso.analise, caso.arquivo);
            testes::RelatorMemoria ouvinte;
            Relator* const ouvintes[] = {&ouvinte};
            bancada.pedido.ouvintes = ouvintes;
            estragar(bancada);
            EXPECT_EQ(bancada.rodar().desfecho, Desfecho::NaoRodou);
            EXPECT_EQ(bancada.mundo.painel.chamadas.back(), junta("mensagem ", mensagem));
            EXPECT_EQ(bancada.mundo.painel.mensagens.size(), 1u);
            EXPECT_TRUE(bancada.mundo.lancador.textos.empty());
            EXPECT_TRUE(bancada.mundo.arquivos.tudoFechado());
            ASSERT_EQ(ouvinte.resumos.size(), 1u);
            EXPECT_EQ(ouvinte.resumos.front().desfecho, Desfecho::NaoRodou);
        }
}

TEST(AnaliseDeRetorno, falhaNoMeioEncerraOLog) {
    struct {
        void (*estragar)(Bancada&);
        VistaTexto ultimaLinha;
    } const falhas[] = {
        {[](Bancada& b) { b.globais.bancoDeDados = nullptr; }, "O banco de dados TabelaErrosZUL.mdb não está aberto"_t},
        {[](Bancada& b) { b.mundo.arquivos.falhar(Operacao::Ler, 2, falhaDeLeitura); }, "Erro de E/S"}};
    for (const Caso& caso : casos)
        for (const auto& [estragar, ultimaLinha] : falhas) {
            Bancada bancada(caso.analise, caso.arquivo);
            estragar(bancada);
            const Texto log = bancada.log();
            EXPECT_TRUE(log.ends_with(junta("\r\n", ultimaLinha, "\r\n"))) << log;
            EXPECT_EQ(log.find("TRATAMENTO CANCELADO"), log.npos);
            EXPECT_EQ(bancada.mundo.lancador.textos.size(), 1u);
            EXPECT_TRUE(bancada.mundo.painel.mensagens.empty());
        }
}

TEST(AnaliseDeRetorno, cancelamento) {
    for (const Caso& caso : casos) {
        Bancada inteira(caso.analise, caso.arquivo);
        const Texto completo = inteira.log();
        for (const int linha : {0, 1, 2, 3}) { // before the first line and during each
            Bancada bancada(caso.analise, caso.arquivo);
            bancada.cancelado = linha == 0;
            bancada.mundo.painel.naLinha(linha, [&] { bancada.cancelado = true; });
            const Texto log = bancada.log();
            EXPECT_EQ(bancada.resumo.desfecho, Desfecho::Cancelada);
            EXPECT_EQ(bancada.resumo.totalRegistros, linha);
            ASSERT_TRUE(log.ends_with(cancelado)) << log;
            EXPECT_TRUE(completo.starts_with(VistaTexto(log).substr(0, log.size() - cancelado.size()))) << log;
            EXPECT_EQ(bancada.mundo.lancador.textos.size(), 1u);
        }
    }
}

} // namespace
} // namespace quilatador
