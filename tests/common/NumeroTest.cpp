#include "common/Numero.h"

#include "support/Falhas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quilatador {
namespace {

TEST(Numero, textoNumerico) {
    for (const VistaTexto sim : {"0", "0012", "+5", "-5", "12,5", "12.5", "5.", "5,", ".5", ",5", "-.5", "  12  "})
        EXPECT_TRUE(ehNumerico(sim)) << sim;
    for (const VistaTexto nao : {"",      "   ",      "-",   "+",    ".",   ",",   "-,",  "1 2",  "- 5", "+-5", "5-",
                                 "1.2.3", "1.234,56", "1e5", "0x1F", "R$5", "12A", "\t5", "\xB2", "inf", "nan"})
        EXPECT_FALSE(ehNumerico(nao)) << nao;
}

TEST(Numero, soDigitos) {
    EXPECT_TRUE(soDigitos("0123456789"));
    for (const VistaTexto nao : {"", " 1", "1 ", "-1", "1.0", "\xB9", "/", ":"})
        EXPECT_FALSE(soDigitos(nao)) << nao;
}

TEST(Numero, leituraTolerante) {
    using Caso = std::pair<VistaTexto, double>;
    for (const VistaTexto nada : {"", "   ", "abc", "-", ".", "+-5", "inf"})
        EXPECT_EQ(lerNumero(nada), 0) << nada;
    for (const auto& [texto, numero] :
         {Caso{"000012345", 12345}, Caso{"12,5", 12}, Caso{"12.5", 12.5}, Caso{"1.2.3", 1.2}, Caso{" 1 2 ", 12},
          Caso{"- 5", -5}, Caso{"+5", 5}, Caso{"5-3", 5}, Caso{".5", 0.5}, Caso{"1e5", 1}, Caso{"0x1F", 0},
          Caso{"7A8", 7}, Caso{"999999999999999", 1e15 - 1}, Caso{"12345678901234567", 12345678901234567.0}})
        EXPECT_EQ(lerNumero(texto), numero) << texto;
    EXPECT_FALSE(std::signbit(lerNumero("-0")));
}

TEST(Numero, leituraToleranteAlemDosLimites) {
    const Texto zeros(400, '0');
    const Texto noves(400, '9');
    EXPECT_EQ(lerNumero(zeros + "7"), 7);
    EXPECT_EQ(lerNumero("0." + zeros + "1"), 0);
    EXPECT_EQ(lerNumero(noves), std::numeric_limits<double>::max());
    EXPECT_EQ(lerNumero("-" + noves), std::numeric_limits<double>::lowest());
}

TEST(Numero, textoMaisCurtoSemExpoente) {
    using Caso = std::pair<double, VistaTexto>;
    for (const auto& [numero, texto] : {Caso{0, "0"}, Caso{-12, "-12"}, Caso{0.1, "0.1"}, Caso{123.45, "123.45"},
                                        Caso{1e15, "1000000000000000"}, Caso{1e-7, "0.0000001"}})
        EXPECT_EQ(textoDoNumero(numero), texto);
    EXPECT_EQ(textoDoNumero(std::numeric_limits<double>::max()).size(), 309u);
}

TEST(Numero, metadesParaOPar) {
    using Caso = std::pair<double, int>;
    for (const auto& [numero, inteiro] : {Caso{0.5, 0}, Caso{1.5, 2}, Caso{2.5, 2}, Caso{-0.5, 0}, Caso{-1.5, -2},
                                          Caso{2.51, 3}, Caso{32767.4, 32767}, Caso{-32768.5, -32768}}) {
        EXPECT_EQ(arredondarParaLongo(numero), inteiro) << numero;
        EXPECT_EQ(arredondarParaInteiro(numero), inteiro) << numero;
    }
    EXPECT_EQ(arredondarParaLongo(2147483647.4), 2147483647);
    EXPECT_EQ(arredondarParaLongo(-2147483648.5), std::numeric_limits<std::int32_t>::min());
}

TEST(Numero, estouroAoConverter) {
    for (const double grande : {32767.5, -32768.6, 1e300})
        EXPECT_EQ(testes::numeroDaFalha([&] { return arredondarParaInteiro(grande); }), 6) << grande;
    for (const double grande : {2147483647.5, -2147483649.0, 1e300, std::nan("")})
        EXPECT_EQ(testes::numeroDaFalha([&] { return arredondarParaLongo(grande); }), 6) << grande;
}

TEST(Numero, centavosNosSeparadoresDoSistema) {
    using Caso = std::pair<VistaTexto, VistaTexto>;
    for (const auto& [centavos, valor] :
         {Caso{"", "0,00"}, Caso{"0", "0,00"}, Caso{"5", "0,05"}, Caso{"99", "0,99"}, Caso{"100", "1,00"},
          Caso{"00099999", "999,99"}, Caso{"100000", "1.000,00"}, Caso{"123456789", "1.234.567,89"},
          Caso{"98765432109876543", "987.654.321.098.765,43"}, Caso{"00000000000000000", "0,00"}, Caso{"ABC", "0,00"},
          Caso{"12A", "0,12"}, Caso{" 1 234 ", "12,34"}, Caso{"-123456", "-1.234,56"}, Caso{"-0.4", "0,00"}})
        EXPECT_EQ(formatarCentavos(centavos, ".", ","), valor) << centavos;
    EXPECT_EQ(formatarCentavos("100000000", ",", "."), "1,000,000.00");
    EXPECT_EQ(formatarCentavos("100000000", "", "'"), "1000000'00");
}

} // namespace
} // namespace quilatador
