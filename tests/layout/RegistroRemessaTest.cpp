#include "layout/RegistroRemessa.h"

#include "layout/Leiautes.h"
#include "support/Falhas.h"
#include "support/Falsos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::campo;
using testes::registro;
using testes::textoDaFalha;

constexpr VistaTexto boa = "B01220240131AB  "_t;

/// The fields' values, or the texts that they would be written as, one behind the other.
Texto valores(const RegistroRemessa& registro) {
    Texto resultado;
    for (const auto& c : registro.campos())
        resultado += junta(c->Valor().nulo() ? Texto("nulo"_t) : c->Valor().texto(), ";"_t);
    return resultado;
}

TEST(RegistroRemessa, addRecusaNomeRepetidoELinhaComprida) {
    RegistroRemessa repetido = registro();
    EXPECT_EQ(textoDaFalha([&] { repetido.add(campo("DATA"_t, {.natureza = "S"_t, .tamanho = 5})); }),
              "457 RegistroRemessa: Campo em duplicidade: DATA"_t);
    EXPECT_EQ(repetido.campos().size(), 4u);
    EXPECT_EQ(repetido.tamanhoAtual(), 21); // has grown all the same
    EXPECT_EQ(textoDaFalha([&] { repetido.add(campo("Outro"_t, {.natureza = "S"_t, .tamanho = 32747})); }),
              "6 RegistroRemessa: Estouro"_t);
    EXPECT_EQ(repetido.add(campo("Outro"_t, {.natureza = "S"_t, .tamanho = 32746})).Fim(), 32767);
    EXPECT_EQ(textoDaFalha([&] { repetido.add(campo("Vazio"_t, {.natureza = "S"_t})); }), // would begin at 32768
              "6 RegistroRemessa: Estouro"_t);
}

TEST(RegistroRemessa, reconheceALinhaPeloIdentificador) {
    RegistroRemessa tipo;
    tipo.add(campo("Antes"_t, {.natureza = "S"_t, .tamanho = 2}, "B1"_t));
    tipo.add(campo("Tipo"_t, {.natureza = "S"_t, .tamanho = 2}, "B2"_t));
    EXPECT_EQ(textoDaFalha([&] { return tipo.isRegistroTipo("xxB2"_t); }),
              "5 RegistroRemessa: Campo inexistente no leiaute: "_t);
    tipo.identificador(Texto("TIPO"_t));
    for (const VistaTexto sim : {"xxB2"_t, "xxB2 e mais"_t})
        EXPECT_TRUE(tipo.isRegistroTipo(sim));
    for (const VistaTexto nao : {"xxb2"_t, "xxB"_t, "B2"_t, ""_t})
        EXPECT_FALSE(tipo.isRegistroTipo(nao));
    tipo.setValorCampo("Tipo"_t, Valor::Nulo());
    EXPECT_FALSE(tipo.isRegistroTipo("xx  "_t));
    EXPECT_FALSE(tipo.isRegistroTipo(""_t));
}

TEST(RegistroRemessa, lerLinhaParaNoPrimeiroErro) {
    const std::tuple<VistaTexto, VistaTexto, VistaTexto> casos[] = {
        {boa, ""_t, "B;12;31/01/2024;AB;"_t},
        {"B01220240131AB "_t, "1 RegistroRemessa: Segmento=B - Tamanho de linha incompatível!"_t,
         "B;nulo;nulo;nulo;"_t},
        // The content that identifies is what the field has when the failure is met.
        {"Z01220240230AB  "_t, "1 RegistroRemessa: Segmento=Z - Campo=Data - Campo data inválido"_t,
         "Z;12;nulo;nulo;"_t},
    };
    for (const auto& [linha, falha, depois] : casos) {
        RegistroRemessa lido = registro();
        EXPECT_EQ(textoDaFalha([&, linha = linha] { lido.lerLinha(linha); }), falha);
        EXPECT_EQ(valores(lido), depois) << linha;
        EXPECT_EQ(lido.linha(), ""_t);
        EXPECT_TRUE(!falha.empty() || lido.gerarLinha() == linha) << lido.gerarLinha();
    }
    RegistroRemessa curto = registro();
    curto.Tamanho(12);
    curto.lerLinha("B01220240131"_t);
    EXPECT_EQ(valores(curto), "B;12;31/01/2024;;"_t); // nothing lies behind the end
}

TEST(RegistroRemessa, preguicosoLeOCampoQuandoPedido) {
    RegistroRemessa lido = registro();
    lido.linha("Z0 220240230A "_t);
    EXPECT_EQ(std::as_const(lido).getValorCampo("TIPO"_t), Valor("Z"_t));
    EXPECT_EQ(lido.getValorCampoString("Texto"_t), "A "_t); // as much as the line has, untrimmed
    EXPECT_EQ(lido.getValorCampoString("numero"_t), "0 2"_t);
    EXPECT_EQ(valores(lido), "B;nulo;nulo;nulo;"_t); // nothing read is stored
    EXPECT_EQ(textoDaFalha([&] { return lido.getValorCampo("data"_t); }),
              "1 CampoRemessa: Campo=Data - Campo data inválido"_t); // no segment in front
    EXPECT_EQ(lido.getValorCampo("Texto"_t), Valor("A"_t));
    EXPECT_EQ(valores(lido), "B;nulo;nulo;A;"_t);
    EXPECT_EQ(lido.obterCampo("texto"_t).gerarTexto(), "A   "_t);
    EXPECT_EQ(textoDaFalha([&] { lido.setValorCampo("CEP"_t, 1); }),
              "5 RegistroRemessa: Campo inexistente no leiaute: CEP"_t);
    lido.linha(""_t);
    lido.setValorCampo("numero"_t, 7);
    EXPECT_EQ(lido.getValorCampo("Numero"_t), Valor(7));
    EXPECT_EQ(lido.getValorCampoString("Numero"_t), "007"_t);
}

TEST(RegistroRemessa, copiaECopiarLevamALinhaOuOsValores) {
    RegistroRemessa original = registro();
    RegistroRemessa destino = registro();
    original.linha(boa);
    const RegistroRemessa copia = original.copia();
    original.copiar(destino);
    EXPECT_EQ(junta(destino.linha(), valores(destino)), junta(boa, "B;nulo;nulo;nulo;"_t));
    original.linha(""_t);
    original.lerLinha(boa);
    original.copiar(destino);
    EXPECT_EQ(junta(destino.linha(), valores(destino)), "B;12;31/01/2024;AB;"_t);
    EXPECT_EQ(valores(copia), "B;nulo;nulo;nulo;"_t);
    EXPECT_EQ(std::tuple(copia.nome(), copia.linha(), copia.identificador(), copia.Tamanho(), copia.tamanhoAtual()),
              std::tuple("B"_t, boa, "Tipo"_t, 16, 16));
    EXPECT_EQ(copia.obterCampo("Texto"_t).inicio(), 13);
    EXPECT_EQ(copia.obterCampo("Texto"_t).registroPai(), &copia);
    const RegistroRemessa mudada = std::move(original);
    EXPECT_EQ(mudada.obterCampo("Texto"_t).registroPai(), &mudada);
}

} // namespace
} // namespace quilatador
