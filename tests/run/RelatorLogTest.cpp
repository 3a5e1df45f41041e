#include "run/RelatorLog.h"

#include "support/Falhas.h"
#include "support/Falsos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::ArquivosEmMemoria;
using testes::MundoFalso;
using Operacao = ArquivosEmMemoria::Operacao;

const Falha cheio(numeroDeFalha::discoCheio, "Gravacao", "Disco cheio");

TEST(RelatorLog, linhasEAchadosComCrLf) {
    ArquivosEmMemoria arquivos;
    RelatorLog log(arquivos.criarSaida("x.log"));
    log.linha("Título"_t);
    log.achado({"a.b", Gravidade::Erro, 15, 'B', std::nullopt, Texto("CNPJ inválido"_t)});
    log.achado({"c.d", Gravidade::Estrutural, 16, 'C', std::nullopt, "Fora de ordem"});
    log.linha("");
    log.resumo({});
    Bloco::Caneta caneta = log.comecar(6);
    caneta.append("a\r\n", "b\r\n");
    log.terminar(caneta);
    log.fechar();
    EXPECT_EQ(arquivos.conteudo["x.log"], "Título\r\n** ERRO -> Linha 000015 - CNPJ inválido\r\nFora de ordem\r\n\r\n"
                                          "a\r\nb\r\n"_t);
    EXPECT_TRUE(arquivos.tudoFechado());
}

TEST(RelatorLog, blocosGrandesNaOrdemETudoGravado) {
    ArquivosEmMemoria arquivos;
    RelatorLog log(arquivos.criarSaida("x.log"));
    Texto esperado;
    for (std::size_t tamanho = 0; tamanho < 3'000'000; tamanho = tamanho * 2 + 1) {
        for (int vezes = 0; vezes < 3; ++vezes) {
            const Texto linha(tamanho, static_cast<char>('a' + vezes));
            log.linha(linha);
            esperado += linha + "\r\n";
        }
    }
    log.fechar();
    EXPECT_TRUE(arquivos.conteudo["x.log"] == esperado);
    EXPECT_LT(arquivos.vezes(Operacao::Escrever), 20); // 66 lines, of 12 million characters
}

TEST(RelatorLog, maisDoQueOTracoPediuERecusado) {
    ArquivosEmMemoria arquivos;
    RelatorLog log(arquivos.criarSaida("x.log"));
    Bloco::Caneta caneta = log.comecar(3);
    caneta.append("ab", VistaTexto(), "c"); // all that was asked for
    EXPECT_THROW(caneta.append("d"), std::length_error);
    log.terminar(caneta);
    log.fechar();
    EXPECT_EQ(arquivos.conteudo["x.log"], "abc");
}

TEST(RelatorLog, falhaAoGravarNuncaSeCala) {
    for (const Operacao operacao : {Operacao::Escrever, Operacao::Fechar}) {
        ArquivosEmMemoria arquivos;
        arquivos.falhar(operacao, 1, cheio);
        RelatorLog log(arquivos.criarSaida("x.log"));
        log.linha("a");
        EXPECT_EQ(testes::numeroDaFalha([&] { return log.fechar(), 0; }), 61);
    }
}

TEST(criarLog, recusaOQueNaoPodeSer) {
    MundoFalso mundo;
    mundo.arquivos.conteudo["/a.log"] = "dados";
    EXPECT_EQ(criarLog(mundo.ambiente, "/a.log", "/a.log", "Erro!"), nullptr);
    mundo.arquivos.conteudo["/programa/Arquivo_ZUL702.xml"] = "leiaute";
    mundo.arquivos.conteudo["/programa/TabelaErrosZUL.mdb"] = "banco";
    EXPECT_EQ(criarLog(mundo.ambiente, "/a.log", "/programa/Arquivo_ZUL702.xml", "Erro!"), nullptr);
    EXPECT_EQ(criarLog(mundo.ambiente, "/a.log", "/programa/TabelaErrosZUL.mdb", "Erro!"), nullptr);
    const auto antes = mundo.arquivos.conteudo;
    mundo.arquivos.falhar(Operacao::Criar, 1, cheio);
    EXPECT_EQ(criarLog(mundo.ambiente, "/a.log", "/b.log", tituloDeErro), nullptr);
    EXPECT_EQ(mundo.painel.chamadas,
              (std::vector<Texto>{
                  Texto("mensagem [Erro!] O arquivo de log seria o próprio arquivo analisado: /a.log"_t),
                  Texto("mensagem [Erro!] O arquivo de log seria um arquivo do próprio programa: "
                        "/programa/Arquivo_ZUL702.xml"_t),
                  Texto("mensagem [Erro!] O arquivo de log seria um arquivo do próprio programa: "
                        "/programa/TabelaErrosZUL.mdb"_t),
                  "mensagem [Solvara - Quilatador de Leiaute - Erro!] Erro na criacao do arquivo de log: /b.log"}));
    EXPECT_EQ(mundo.arquivos.conteudo, antes);
    EXPECT_NE(criarLog(mundo.ambiente, "/a.log", "/b.log", tituloDeErro), nullptr);
}

} // namespace
} // namespace quilatador
