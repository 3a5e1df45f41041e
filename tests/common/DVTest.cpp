#include "common/DV.h"

#include "support/Falhas.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::numeroDaFalha;

TEST(DV, digitosDeUmaSequencia) {
    using Caso = std::tuple<VistaTexto, VistaTexto, VistaTexto, VistaTexto, VistaTexto>;
    // One-digit texts run through the remainders; what is no digit counts as 0.
    for (const auto& [digitos, mod11, mod1129, mod11Barra, mod10] :
         {Caso{""_t, "0"_t, "1"_t, "0"_t, "0"_t}, Caso{"1"_t, "9"_t, "9"_t, "9"_t, "8"_t},
          Caso{"5"_t, "1"_t, "1"_t, "1"_t, "9"_t}, Caso{"6"_t, "X"_t, "8"_t, "0"_t, "7"_t},
          Caso{"13"_t, "2"_t, "2"_t, "2"_t, "3"_t}, Caso{"0123456789"_t, "7"_t, "8"_t, "7"_t, "7"_t},
          Caso{"84670000001"_t, "0"_t, "1"_t, "0"_t, "7"_t}, Caso{"81230000001"_t, "9"_t, "1"_t, "9"_t, "3"_t},
          Caso{"99999999999999999999"_t, "6"_t, "7"_t, "6"_t, "0"_t}, Caso{"8 A4"_t, "7"_t, "1"_t, "7"_t, "4"_t}}) {
        EXPECT_EQ(DV::CalcularMod11(digitos), mod11);
        EXPECT_EQ(DV::CalculaMod1129(digitos), mod1129);
        EXPECT_EQ(DV::CalculaMod11Barra(digitos), mod11Barra);
        EXPECT_EQ(DV::CalcularMod10(digitos), mod10);
    }
    for (const VistaTexto certo : {"19"_t, "6X"_t, "00"_t})
        EXPECT_TRUE(DV::VerificarMod11(certo));
    for (const VistaTexto errado : {""_t, "1"_t, "6x"_t, "18"_t})
        EXPECT_FALSE(DV::VerificarMod11(errado));
}

TEST(DV, CalculaMod1129DeNuloBrancosEEstouro) {
    EXPECT_EQ(DV::CalculaMod1129(std::nullopt), ""_t);
    EXPECT_EQ(DV::CalculaMod1129("  4 "_t), DV::CalculaMod1129("4"_t));
    const Texto cabe(3640, '9'); // 9 for each: 32760
    EXPECT_EQ(DV::CalculaMod1129(cabe), "9"_t);
    EXPECT_EQ(numeroDaFalha([&] { return DV::CalculaMod1129(cabe + "9"); }), 6);
}

TEST(DV, CNPJ) {
    for (const VistaTexto certo : {"11222333000181"_t, "00000000000191"_t, "00791900000102"_t, "99999999999962"_t})
        EXPECT_TRUE(DV::VerificarCNPJ(certo));
    for (const VistaTexto errado : {""_t, "11222333000182"_t, "11222333000191"_t, "21222333000181"_t,
                                    "11.222.333/0001-81"_t, "112223330001AB"_t}) // its digits are only compared
        EXPECT_FALSE(DV::VerificarCNPJ(errado));
    EXPECT_EQ(numeroDaFalha([&] { return DV::VerificarCNPJ("11222333 00181"_t); }), 13);
    EXPECT_EQ(numeroDaFalha([&] { return DV::CalcularCNPJ("11222333000"_t); }), 13);
}

TEST(DV, CPF) {
    for (const VistaTexto certo : {"52998224725"_t, "11144477735"_t, "00000000000"_t, "04751400606"_t})
        EXPECT_TRUE(DV::VerificarCPF(certo));
    for (const VistaTexto errado : {""_t, "52998224726"_t, "52998224735"_t, "529.982.247-25"_t})
        EXPECT_FALSE(DV::VerificarCPF(errado));
    EXPECT_EQ(numeroDaFalha([&] { return DV::VerificarCPF("5299A224725"_t); }), 13);
}

TEST(DV, CalcularCPF) {
    Texto digitos("529982247");
    EXPECT_EQ(DV::CalcularCPF(digitos), "25");
    EXPECT_EQ(digitos, "5299822472"); // the caller's text grows: kept on purpose
}

} // namespace
} // namespace quilatador
