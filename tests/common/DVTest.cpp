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
         {Caso{""_t, "0"_t, "1"_t, "0"_t, "0"_t}, Caso{"5"_t, "1"_t, "1"_t, "1"_t, "9"_t},
          Caso{"6"_t, "X"_t, "8"_t, "0"_t, "7"_t}, Caso{"0123456789"_t, "7"_t, "8"_t, "7"_t, "7"_t},
          Caso{"84670000001"_t, "0"_t, "1"_t, "0"_t, "7"_t}, Caso{"81230000001"_t, "9"_t, "1"_t, "9"_t, "3"_t},
          Caso{"99999999999999999999"_t, "6"_t, "7"_t, "6"_t, "0"_t}, Caso{"8 A4"_t, "7"_t, "1"_t, "7"_t, "4"_t}}) {
        EXPECT_EQ(DV::CalcularMod11(digitos), mod11);
        EXPECT_EQ(DV::CalculaMod1129(digitos), mod1129);
        EXPECT_EQ(DV::CalculaMod11Barra(digitos), mod11Barra);
        EXPECT_EQ(DV::CalcularMod10(digitos), mod10);
        EXPECT_EQ(DV::VerificarMod11(junta(digitos, mod11)), !digitos.empty());
        EXPECT_FALSE(DV::VerificarMod11(junta(digitos, "x"_t)));
    }
    EXPECT_EQ(DV::CalculaMod1129(std::nullopt), ""_t);
    EXPECT_EQ(DV::CalculaMod1129("  4 "_t), DV::CalculaMod1129("4"_t));
    const Texto cabe(3640, '9'); // 9 for each: 32760
    EXPECT_EQ(DV::CalculaMod1129(cabe), "9"_t);
    EXPECT_EQ(numeroDaFalha([&] { return DV::CalculaMod1129(junta(cabe, "9"_t)); }), 6);
}

TEST(DV, CNPJDe14DigitosECPFDe11) {
    const auto aceito = [](VistaTexto numero) { return DV::VerificarCNPJ(numero) || DV::VerificarCPF(numero); };
    for (const VistaTexto certo : {"11222333000181"_t, "00000000000191"_t, "00791900000102"_t, "99999999999962"_t,
                                   "52998224725"_t, "11144477735"_t, "00000000000"_t, "04751400606"_t})
        EXPECT_TRUE(aceito(certo)) << certo;
    for (const VistaTexto errado :
         {""_t, "11222333000182"_t, "11222333000191"_t, "21222333000181"_t, "11.222.333/0001-81"_t, "52998224726"_t,
          "52998224735"_t, "112223330001AB"_t}) // its check digits are only compared
        EXPECT_FALSE(aceito(errado)) << errado;
    for (const VistaTexto semDigito : {"11222333 00181"_t, "5299A224725"_t})
        EXPECT_EQ(numeroDaFalha([&] { return aceito(semDigito); }), 13);
}

TEST(DV, CNPJComLetras) {
    EXPECT_TRUE(DV::verificarCNPJComLetras("12ABC34501DE35"_t)); // the example of the Receita Federal
    for (const VistaTexto errado : {"12ABC34501DE36"_t, "12ABC34501DE25"_t, "12abc34501de35"_t, "12ABC34501DE3A"_t,
                                    "12ABC34501DE3"_t, "1.ABC34501DE35"_t, "11222333000181"_t})
        EXPECT_FALSE(DV::verificarCNPJComLetras(errado)) << errado;
}

TEST(DV, CalcularCPF) {
    Texto digitos("529982247"_t);
    EXPECT_EQ(DV::CalcularCPF(digitos), "25"_t);
    EXPECT_EQ(digitos, "5299822472"_t); // the caller's text grows: kept on purpose
}

} // namespace
} // namespace quilatador
