#include "layout/RegistroRemessa.h"

#include "layout/ArquivoRemessa.h"
#include "layout/Leiautes.h"
#include "support/Falhas.h"
#include "support/Falsos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::campo;
using testes::registro;
using testes::textoDaFalha;

constexpr VistaTexto boa = "B01220240131AB  ";

/// The fields' values, or the texts that they would be written as, one behind the other.
Texto valores(const RegistroRemessa& registro) {
    Texto resultado;
    for (const auto& c : registro.campos())
        resultado += junta(c->Valor().nulo() ? "nulo" : c->Valor().texto(), ";");
    return resultado;
}

TEST(RegistroRemessa, camposUmAtrasDoOutro) {
    const RegistroRemessa lido = registro();
    Texto posicoes;
    for (const auto& c : lido.campos()) {
        posicoes += junta(c->nome(), " ", std::to_string(c->inicio()), "-", std::to_string(c->Fim()), "; ");
        EXPECT_EQ(c->registroPai(), &lido);
    }
    EXPECT_EQ(posicoes, "Tipo 1-1; Numero 2-4; Data 5-12; Texto 13-16; ");
    EXPECT_EQ(lido.tamanhoAtual(), 16);
    EXPECT_EQ(lido.obterPosicaoCampo("Data"), 0);
}

TEST(RegistroRemessa, addRecusaNomeRepetidoELinhaComprida) {
    RegistroRemessa repetido = registro();
    EXPECT_EQ(textoDaFalha([&] { repetido.add(campo("DATA", {.natureza = "S", .tamanho = 5})); }),
              "457 RegistroRemessa: Campo em duplicidade: DATA");
    EXPECT_EQ(repetido.campos().size(), 4u);
    EXPECT_EQ(repetido.tamanhoAtual(), 21); // has grown all the same
    EXPECT_EQ(textoDaFalha([&] { repetido.add(campo("Outro", {.natureza = "S", .tamanho = 32747})); }),
              "6 RegistroRemessa: Estouro");
    EXPECT_EQ(repetido.add(campo("Outro", {.natureza = "S", .tamanho = 32746})).Fim(), 32767);
}

TEST(RegistroRemessa, reconheceALinhaPeloIdentificador) {
    RegistroRemessa tipo;
    tipo.add(campo("Antes", {.natureza = "S", .tamanho = 2}, "B1"));
    tipo.add(campo("Tipo", {.natureza = "S", .tamanho = 2}, "B2"));
    EXPECT_EQ(textoDaFalha([&] { return tipo.isRegistroTipo("xxB2"); }),
              "5 RegistroRemessa: Campo inexistente no leiaute: ");
    tipo.identificador("TIPO");
    for (const auto& [linha, esperado] : {std::pair<VistaTexto, bool>{"xxB2", true},
                                          {"xxB2 e mais", true},
                                          {"xxb2", false},
                                          {"xxB", false},
                                          {"B2", false},
                                          {"", false}})
        EXPECT_EQ(tipo.isRegistroTipo(linha), esperado) << linha;
    tipo.setValorCampo("Tipo", Valor::Nulo());
    EXPECT_FALSE(tipo.isRegistroTipo("xx  "));
    EXPECT_FALSE(tipo.isRegistroTipo(""));
}

TEST(RegistroRemessa, lerLinhaParaNoPrimeiroErro) {
    const std::tuple<VistaTexto, VistaTexto, VistaTexto> casos[] = {
        {boa, "", "B;12;31/01/2024;AB;"},
        {"B00000000000    ", "", "B;0;nulo;;"},
        {"B01220240131AB ", "1 RegistroRemessa: Segmento=B - Tamanho de linha incompatível!"_t, "B;nulo;nulo;nulo;"},
        {"B01220240131AB   ", "1 RegistroRemessa: Segmento=B - Tamanho de linha incompatível!"_t, "B;nulo;nulo;nulo;"},
        {"", "1 RegistroRemessa: Segmento=B - Tamanho de linha incompatível!"_t, "B;nulo;nulo;nulo;"},
        {"B   20240131AB  ", "1 RegistroRemessa: Segmento=B - Campo=Numero - Campo numérico inválido"_t,
         "B;nulo;nulo;nulo;"},
        {"B01220240230AB  ", "1 RegistroRemessa: Segmento=B - Campo=Data - Campo data inválido"_t, "B;12;nulo;nulo;"},
        // The content that identifies is what the field has when the failure is met.
        {"Z01220240230AB  ", "1 RegistroRemessa: Segmento=Z - Campo=Data - Campo data inválido"_t, "Z;12;nulo;nulo;"},
    };
    for (const auto& [linha, falha, depois] : casos) {
        RegistroRemessa lido = registro();
        EXPECT_EQ(textoDaFalha([&, linha = linha] { lido.lerLinha(linha); }), falha);
        EXPECT_EQ(valores(lido), depois) << linha;
        EXPECT_EQ(lido.linha(), "");
        EXPECT_TRUE(!falha.empty() || lido.gerarLinha() == linha) << lido.gerarLinha();
    }
}

TEST(RegistroRemessa, preguicosoLeOCampoQuandoPedido) {
    RegistroRemessa lido = registro();
    lido.linha("Z0 220240230A ");
    EXPECT_EQ(textoDaFalha([&] { return lido.getValorCampo("data"); }),
              "1 CampoRemessa: Campo=Data - Campo data inválido"_t); // no segment in front
    EXPECT_EQ(lido.getValorCampo("TIPO"), Valor("Z"));
    EXPECT_EQ(lido.getValorCampo("Texto"), Valor("A"));
    EXPECT_EQ(lido.getValorCampoString("Texto"), "A "); // as much as the line has, untrimmed
    EXPECT_EQ(lido.getValorCampoString("numero"), "0 2");
    EXPECT_EQ(valores(lido), "B;nulo;nulo;nulo;"); // nothing read is stored
    lido.linha("");
    lido.setValorCampo("numero", 7);
    EXPECT_EQ(lido.getValorCampo("Numero"), Valor(7));
    EXPECT_EQ(lido.getValorCampoString("Numero"), "007");
}

TEST(RegistroRemessa, campoDesconhecidoFalha) {
    RegistroRemessa lido = registro();
    constexpr VistaTexto esperada = "5 RegistroRemessa: Campo inexistente no leiaute: CEP";
    EXPECT_EQ(textoDaFalha([&] { return lido.getValorCampo("CEP"); }), esperada);
    EXPECT_EQ(textoDaFalha([&] { return lido.getValorCampoString("CEP"); }), esperada);
    EXPECT_EQ(textoDaFalha([&] { return &lido.obterCampo("CEP"); }), esperada);
    EXPECT_EQ(textoDaFalha([&] { lido.setValorCampo("CEP", 1); }), esperada);
}

TEST(RegistroRemessa, copiaNaoMudaComOOriginal) {
    testes::ArquivosEmMemoria arquivos;
    const ArquivoRemessa arquivo(arquivos);
    RegistroRemessa original = registro();
    original.ArquivoRemessa(&arquivo);
    original.linha(boa);
    const RegistroRemessa copia = original.copia();
    original.linha("outra");
    original.setValorCampo("Texto", "outro");
    EXPECT_EQ(valores(copia), "B;nulo;nulo;nulo;");
    EXPECT_EQ(std::tuple(copia.nome(), copia.linha(), copia.identificador(), copia.Tamanho(), copia.tamanhoAtual()),
              std::tuple("B", boa, "Tipo", 16, 16));
    EXPECT_EQ(copia.ArquivoRemessa(), &arquivo);
    EXPECT_EQ(copia.obterCampo("Texto").registroPai(), &copia);
    EXPECT_EQ(copia.obterCampo("Texto").inicio(), 13);
    const RegistroRemessa mudada = std::move(original);
    EXPECT_EQ(mudada.obterCampo("Texto").registroPai(), &mudada);
}

TEST(RegistroRemessa, copiarLevaALinhaOuOsValores) {
    RegistroRemessa origem = registro();
    RegistroRemessa destino = registro();
    origem.linha(boa);
    origem.copiar(destino);
    EXPECT_EQ(destino.linha(), boa);
    EXPECT_EQ(valores(destino), "B;nulo;nulo;nulo;");
    origem.linha("");
    origem.lerLinha(boa);
    origem.copiar(destino);
    EXPECT_EQ(destino.linha(), "");
    EXPECT_EQ(valores(destino), "B;12;31/01/2024;AB;");

    RegistroRemessa menor;
    menor.add(campo("Numero", {.natureza = "N", .tamanho = 3}));
    menor.add(campo("Tipo", {.natureza = "S", .tamanho = 1}));
    EXPECT_EQ(textoDaFalha([&] { origem.copiar(menor); }), "5 RegistroRemessa: Campo inexistente no leiaute: Data");
    EXPECT_EQ(valores(menor), "12;B;"); // up to the one that is missing
}

} // namespace
} // namespace quilatador
