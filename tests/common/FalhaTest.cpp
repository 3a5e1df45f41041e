#include "common/Falha.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(Falha, contextoVaiNaFrente) {
    const Falha campo(1, "CampoRemessa", Texto("Campo=CEP - Campo numérico inválido"_t));
    const Falha linha = campo.comContexto("RegistroRemessa", "Segmento=B").comContexto("Arquivo", "Linha: 000015");
    EXPECT_EQ(linha.descricao(), "Linha: 000015 - Segmento=B - Campo=CEP - Campo numérico inválido"_t);
    EXPECT_EQ(linha.fonte(), "Arquivo");
    EXPECT_STREQ(linha.what(), "Linha: 000015 - Segmento=B - Campo=CEP - Campo numérico inválido");
    EXPECT_EQ(Falha::conversao("X").comContexto("Y", "c").numero(), 1); // whatever it was
}

} // namespace
} // namespace quilatador
