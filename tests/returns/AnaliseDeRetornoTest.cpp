#include "returns/AnaliseDeRetorno.h"

#include "returns/Retornos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::Bancada;
using testes::linhas;
using testes::registro;

constexpr VistaTexto cancelado = "\r\nTRATAMENTO CANCELADO!!!\r\n"_t;

/// Both analyses, each with a file of three lines of its type.
struct Caso {
    Bancada::Tratar tratar;
    Texto arquivo;
};

const Caso casos[] = {{tratarRetornoZUL708, linhas({registro({{1, "A"_t}, {12, "ZUL708"_t}}),
                                                    registro({{1, "S"_t}, {229, "05"_t}}), "Z"_t})},
                      {tratarRetornoTAV001,
                       linhas({registro({{1, "A2"_t}, {80, "03"_t}}), registro({{1, "G"_t}, {117, "1"_t}}), "Z"_t})}};

TEST(AnaliseDeRetorno, arquivoAlteradoDuranteAAnaliseNaoTemConclusao) {
    for (const Caso& caso : casos) {
        Bancada bancada(caso.tratar, caso.arquivo);
        bancada.mundo.painel.naLinha(2, [&] { bancada.mundo.arquivos.conteudo["/d/março.ret"] += "Z"_t; });
        EXPECT_TRUE(bancada.log().ends_with(junta(arquivoAlterado, "\r\n"_t)));
        EXPECT_EQ(bancada.resumo.desfecho, Desfecho::NaoRodou);
    }
}

TEST(AnaliseDeRetorno, mensagemDoQueFaltou) {
    Bancada semEntrada(tratarRetornoZUL708);
    semEntrada.mundo.arquivos.conteudo.clear();
    semEntrada.rodar();
    EXPECT_EQ(semEntrada.mundo.painel.chamadas.back(), "mensagem [Erro!] Erro na abertura do arquivo"_t);
    Bancada semBanco(casos[0].tratar, casos[0].arquivo);
    semBanco.globais.bancoDeDados = nullptr;
    EXPECT_TRUE(semBanco.log().ends_with("\r\nO banco de dados TabelaErrosZUL.mdb não está aberto\r\n"_t));
    EXPECT_EQ(semBanco.mundo.lancador.textos.size(), 1u);
}

TEST(AnaliseDeRetorno, cancelamento) {
    for (const Caso& caso : casos) {
        const Texto completo = Bancada(caso.tratar, caso.arquivo).log();
        for (const int linha : {0, 1, 2, 3}) { // before the first line and during each
            Bancada bancada(caso.tratar, caso.arquivo);
            bancada.canceladoNoInicio = linha == 0;
            bancada.mundo.painel.naLinha(linha, [&] { bancada.cancelado = true; });
            const Texto log = bancada.log();
            EXPECT_EQ(bancada.resumo.desfecho, Desfecho::Cancelada);
            EXPECT_EQ(bancada.resumo.totalRegistros, linha);
            ASSERT_TRUE(log.ends_with(cancelado)) << log;
            EXPECT_TRUE(completo.starts_with(VistaTexto(log).substr(0, log.size() - cancelado.size()))) << log;
        }
    }
}

} // namespace
} // namespace quilatador
