#include "common/DV.h"

#include "support/Falhas.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::numeroDaFalha;

TEST(DV, digitosDeUmaSequencia) {
    struct Caso {
        VistaTexto digitos, mod11, mod1129, mod11Barra, mod10;
    };
    // One-digit texts run through the remainders; what is no digit counts as 0.
    for (const auto& [digitos, mod11, mod1129, mod11Barra, mod10] :
         {Caso{"", "0", "1", "0", "0"}, Caso{"1", "9", "9", "9", "8"}, Caso{"2", "7", "7", "7", "6"},
          Caso{"3", "5", "5", "5", "4"}, Caso{"4", "3", "3", "3", "2"}, Caso{"5", "1", "1", "1", "9"},
          Caso{"6", "X", "8", "0", "7"}, Caso{"7", "8", "6", "8", "5"}, Caso{"8", "6", "4", "6", "3"},
          Caso{"9", "4", "2", "4", "1"}, Caso{"13", "2", "2", "2", "3"}, Caso{"18", "3", "1", "3", "2"},
          Caso{"12345678901", "X", "1", "0", "5"}, Caso{"0123456789", "7", "8", "7", "7"},
          Caso{"84670000001", "0", "1", "0", "7"}, Caso{"81230000001", "9", "1", "9", "3"},
          Caso{"99999999999999999999", "6", "7", "6", "0"}, Caso{"8 A4", "7", "1", "7", "4"}}) {
        EXPECT_EQ(DV::CalcularMod11(digitos), mod11) << digitos;
        EXPECT_EQ(DV::CalculaMod1129(digitos), mod1129) << digitos;
        EXPECT_EQ(DV::CalculaMod11Barra(digitos), mod11Barra) << digitos;
        EXPECT_EQ(DV::CalcularMod10(digitos), mod10) << digitos;
    }
}

TEST(DV, VerificarMod11) {
    for (const VistaTexto certo : {"19", "6X", "12345678901X", "00"})
        EXPECT_TRUE(DV::VerificarMod11(certo)) << certo;
    for (const VistaTexto errado : {"", "1", "X", "6x", "18", "1 "})
        EXPECT_FALSE(DV::VerificarMod11(errado)) << errado;
}

TEST(DV, CalculaMod1129DeNuloBrancosEEstouro) {
    EXPECT_EQ(DV::CalculaMod1129(std::nullopt), "");
    EXPECT_EQ(DV::CalculaMod1129("  4 "), DV::CalculaMod1129("4"));
    const Texto cabe(3640, '9'); // 9 for each: 32760
    EXPECT_EQ(DV::CalculaMod1129(cabe), "9");
    EXPECT_EQ(numeroDaFalha([&] { return DV::CalculaMod1129(cabe + "9"); }), 6);
}

TEST(DV, CNPJ) {
    for (const VistaTexto certo :
         {"11222333000181", "11444777000161", "00000000000191", "60600000000154", "00791900000102", "99999999999962"}) {
        EXPECT_EQ(DV::CalcularCNPJ(certo.substr(0, 12)), certo.substr(12));
        EXPECT_TRUE(DV::VerificarCNPJ(certo)) << certo;
    }
    for (const VistaTexto errado : {"", "11222333000182", "11222333000191", "21222333000181", "11.222.333/0001-81",
                                    "1122233300018", "112223330001810"})
        EXPECT_FALSE(DV::VerificarCNPJ(errado)) << errado;
    EXPECT_FALSE(DV::VerificarCNPJ("112223330001AB")); // the digits themselves are only compared
    for (const VistaTexto semDigitos : {"A1222333000181", "11222333 00181"})
        EXPECT_EQ(numeroDaFalha([&] { return DV::VerificarCNPJ(semDigitos); }), 13) << semDigitos;
    EXPECT_EQ(numeroDaFalha([&] { return DV::CalcularCNPJ("11222333000"); }), 13);
}

TEST(DV, CPF) {
    for (const VistaTexto certo : {"52998224725", "11144477735", "12345678909", "00000000000", "04751400606"})
        EXPECT_TRUE(DV::VerificarCPF(certo)) << certo;
    for (const VistaTexto errado : {"", "52998224726", "52998224735", "529.982.247-25", "5299822472"})
        EXPECT_FALSE(DV::VerificarCPF(errado)) << errado;
    EXPECT_EQ(numeroDaFalha([&] { return DV::VerificarCPF("5299A224725"); }), 13);
    Texto curto("52998224");
    EXPECT_EQ(numeroDaFalha([&] { return DV::CalcularCPF(curto); }), 13);
}

TEST(DV, CalcularCPF) {
    Texto digitos("529982247");
    EXPECT_EQ(DV::CalcularCPF(digitos), "25");
    EXPECT_EQ(digitos, "5299822472"); // the caller's text grows: kept on purpose
}

} // namespace
} // namespace quilatador
