#include "common/Numero.h"

#include "support/Falhas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quilatador {
namespace {

TEST(Numero, textoNumerico) {
    for (const VistaTexto sim :
         {"0"_t, "0012"_t, "+5"_t, "-5"_t, "12,5"_t, "12.5"_t, "5."_t, "5,"_t, ".5"_t, ",5"_t, "-.5"_t, "  12  "_t})
        EXPECT_TRUE(ehNumerico(sim)) << sim;
    for (const VistaTexto nao :
         {""_t,      "   "_t,      "-"_t,   "+"_t,    "."_t,   ","_t,   "-,"_t,  "1 2"_t, "- 5"_t, "+-5"_t, "5-"_t,
          "1.2.3"_t, "1.234,56"_t, "1e5"_t, "0x1F"_t, "R$5"_t, "12A"_t, "\t5"_t, "²"_t,   "inf"_t, "nan"_t})
        EXPECT_FALSE(ehNumerico(nao) || soDigitos(nao)) << nao;
    EXPECT_TRUE(soDigitos("0123456789"_t));
    for (const VistaTexto nao : {" 1"_t, "-1"_t, "1.0"_t, "/"_t, ":"_t})
        EXPECT_FALSE(soDigitos(nao));
}

TEST(Numero, gruposDeTresDigitos) {
    using Caso = std::pair<std::int64_t, VistaTexto>;
    for (const auto& [numero, texto] :
         {Caso{0, "0"_t}, Caso{999, "999"_t}, Caso{1000, "1. 000"_t}, Caso{1234567, "1. 234. 567"_t}})
        EXPECT_EQ(comMilhares(numero, ". "_t), texto);
}

TEST(Numero, leituraTolerante) {
    using Caso = std::pair<VistaTexto, double>;
    for (const auto& [texto, numero] :
         {Caso{""_t, 0}, Caso{"abc"_t, 0}, Caso{"+-5"_t, 0}, Caso{"12,5"_t, 12}, Caso{"12.5"_t, 12.5},
          Caso{"1.2.3"_t, 1.2}, Caso{" 1 2 "_t, 12}, Caso{"- 5"_t, -5}, Caso{"5-3"_t, 5}, Caso{".5"_t, 0.5},
          Caso{"1e5"_t, 1}, Caso{"999999999999999"_t, 1e15 - 1}, Caso{"12345678901234567"_t, 12345678901234567.0}})
        EXPECT_EQ(lerNumero(texto), numero);
    EXPECT_FALSE(std::signbit(lerNumero("-0"_t)));
    const Texto zeros(400, '0');
    const Texto noves(400, '9');
    EXPECT_EQ(lerNumero(junta(zeros, "7"_t)), 7);
    EXPECT_EQ(lerNumero(junta("0."_t, zeros, "1"_t)), 0);
    EXPECT_EQ(lerNumero(noves), std::numeric_limits<double>::max());
    EXPECT_EQ(lerNumero(junta("-"_t, noves)), std::numeric_limits<double>::lowest());
}

TEST(Numero, textoMaisCurtoSemExpoente) {
    using Caso = std::pair<double, VistaTexto>;
    for (const auto& [numero, texto] :
         {Caso{0, "0"_t}, Caso{-12, "-12"_t}, Caso{0.1, "0.1"_t}, Caso{123.45, "123.45"_t},
          Caso{1e15, "1000000000000000"_t}, Caso{1e-7, "0.0000001"_t}})
        EXPECT_EQ(textoDoNumero(numero), texto);
    EXPECT_EQ(textoDoNumero(std::numeric_limits<double>::max()).size(), 309u);
}

TEST(Numero, metadesParaOParEEstouro) {
    using Caso = std::pair<double, int>;
    for (const auto& [numero, inteiro] : {Caso{0.5, 0}, Caso{1.5, 2}, Caso{2.5, 2}, Caso{-0.5, 0}, Caso{-1.5, -2},
                                          Caso{2.51, 3}, Caso{32767.4, 32767}, Caso{-32768.5, -32768}}) {
        EXPECT_EQ(arredondarParaLongo(numero), inteiro) << numero;
        EXPECT_EQ(arredondarParaInteiro(numero), inteiro) << numero;
    }
    EXPECT_EQ(arredondarParaLongo(2147483647.4), 2147483647);
    EXPECT_EQ(arredondarParaLongo(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    for (const double grande : {32767.5, -32768.6, 1e300})
        EXPECT_EQ(testes::numeroDaFalha([&] { return arredondarParaInteiro(grande); }), 6) << grande;
    for (const double grande : {2147483647.5, -2147483649.0, 1e300, std::nan("")})
        EXPECT_EQ(testes::numeroDaFalha([&] { return arredondarParaLongo(grande); }), 6) << grande;
}

TEST(Numero, centavosNosSeparadoresDoSistema) {
    using Caso = std::pair<VistaTexto, VistaTexto>;
    for (const auto& [centavos, valor] :
         {Caso{""_t, "0,00"_t}, Caso{"5"_t, "0,05"_t}, Caso{"00099999"_t, "999,99"_t}, Caso{"100000"_t, "1.000,00"_t},
          Caso{"98765432109876543"_t, "987.654.321.098.765,43"_t}, Caso{"00000000000000000"_t, "0,00"_t},
          Caso{"12A"_t, "0,12"_t}, Caso{" 1 234 "_t, "12,34"_t}, Caso{"-123456"_t, "-1.234,56"_t},
          Caso{"9999999999999999 "_t, "99.999.999.999.999,99"_t}, Caso{"000000002.50"_t, "0,03"_t},
          Caso{"0000.50"_t, "0,01"_t}, Caso{"-2.5"_t, "-0,03"_t}, Caso{"-0.49"_t, "0,00"_t}, Caso{"+99.5"_t, "1,00"_t},
          Caso{"1.2.9"_t, "0,01"_t}, Caso{"."_t, "0,00"_t}})
        EXPECT_EQ(formatarCentavos(centavos, "."_t, ","_t), valor);
    EXPECT_EQ(formatarCentavos("100000000"_t, ""_t, "--"_t), "1000000--00"_t);
}

} // namespace
} // namespace quilatador
