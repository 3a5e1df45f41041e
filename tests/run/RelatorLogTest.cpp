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
    log.achado({"a.b", Gravidade::Erro, 15, 'B', std::nullopt, Texto("CNPJ inválido"_t)});
    log.achado({"c.d", Gravidade::Estrutural, 16, 'C', std::nullopt, Texto("Fora de ordem"_t)});
    Bloco::Caneta caneta = log.comecar(3);
    caneta.append("a"_t, VistaTexto(), "\r\n"_t); // all that was asked for
    EXPECT_THROW(caneta.append("d"_t), std::length_error);
    log.terminar(caneta);
    log.fechar();
    EXPECT_EQ(arquivos.conteudo["x.log"],
              "Título\r\n** ERRO -> Linha 000015 - CNPJ inválido\r\nFora de ordem\r\na\r\n"_t);
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

TEST(criarLog, recusaOQueNaoPodeSer) {
    testes::MundoFalso mundo;
    const auto recusado = [&](const char* log) {
        EXPECT_EQ(criarLog(mundo.ambiente, "/a.log", log, tituloDeErro), nullptr);
        return mundo.painel.chamadas.back();
    };
    for (const char* nome : {"/a.log", "/programa/Arquivo_ZUL702.xml", "/programa/TabelaErrosZUL.mdb"})
        mundo.arquivos.conteudo[nome] = Texto("dados"_t);
    const auto antes = mundo.arquivos.conteudo;
    mundo.arquivos.falhar(Operacao::Criar, 1, testes::discoCheio);
    constexpr VistaTexto caixa = "mensagem [Solvara - Quilatador de Leiaute - Erro!] "_t;
    constexpr VistaTexto doPrograma = "O arquivo de log seria um arquivo do próprio programa: "_t;
    EXPECT_EQ(recusado("/a.log"), junta(caixa, "O arquivo de log seria o próprio arquivo analisado: /a.log"_t));
    for (const char* nome : {"/programa/Arquivo_ZUL702.xml", "/programa/TabelaErrosZUL.mdb"})
        EXPECT_EQ(recusado(nome), junta(caixa, doPrograma, textoDosBytes(nome)));
    EXPECT_EQ(recusado("/b.log"), junta(caixa, "Erro na criacao do arquivo de log: /b.log"_t));
    EXPECT_EQ(mundo.arquivos.conteudo, antes);
    EXPECT_NE(criarLog(mundo.ambiente, "/a.log", "/b.log", tituloDeErro), nullptr);
}

} // namespace
} // namespace quilatador
