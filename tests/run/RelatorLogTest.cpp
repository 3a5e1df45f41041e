#include "run/RelatorLog.h"

#include "support/Falsos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::ArquivosEmMemoria;
using Operacao = ArquivosEmMemoria::Operacao;

TEST(RelatorLog, linhasEAchadosComCrLf) {
    ArquivosEmMemoria arquivos;
    RelatorLog log(arquivos.criarSaida("x.log"));
    log.linha("Título"_t);
    log.achado({"a.b"_t, Gravidade::Erro, 15, 'B', std::nullopt, Texto("CNPJ inválido"_t)});
    log.achado({"a.b"_t, Gravidade::Erro, 3'000'000'000, 'B', std::nullopt, Texto("Linha longe"_t)});
    log.achado({"c.d"_t, Gravidade::Estrutural, 16, 'C', std::nullopt, Texto("Fora de ordem"_t)});
    Bloco::Caneta caneta = log.comecar(3);
    caneta.append("a"_t, VistaTexto(), "\r\n"_t); // all that was asked for
    EXPECT_THROW(caneta.append("d"_t), std::length_error);
    log.terminar(caneta);
    log.fechar();
    EXPECT_EQ(
        arquivos.conteudo["x.log"],
        "Título\r\n** ERRO -> Linha 000015 - CNPJ inválido\r\n** ERRO -> Linha 3000000000 - Linha longe\r\nFora de ordem\r\na\r\n"_t);
    EXPECT_TRUE(arquivos.tudoFechado());
}

TEST(RelatorLog, blocosGrandesNaOrdemETudoGravado) {
    ArquivosEmMemoria arquivos;
    RelatorLog log(arquivos.criarSaida("x.log"));
    Texto esperado;
    for (std::size_t tamanho = 0; tamanho < 3'000'000; tamanho = tamanho * 2 + 1) {
        const Texto linha(tamanho, static_cast<char>('a' + tamanho % 5));
        log.linha(linha);
        esperado += junta(linha, "\r\n"_t);
    }
    log.fechar();
    EXPECT_TRUE(arquivos.conteudo["x.log"] == esperado);
    EXPECT_LT(arquivos.vezes(Operacao::Escrever), 10); // 22 lines, of 4 million characters
}

} // namespace
} // namespace quilatador
