#include "validator/checks/Mascaras.h"

#include <gtest/gtest.h>

#include <tuple>

namespace quilatador {
namespace {

TEST(Mascaras, converterMascara) {
    constexpr VistaTexto caractere = "; Caractere inválido na máscara"_t;
    constexpr VistaTexto tamanhoErrado = "; Tamanho do identificador não confere com a máscara!"_t;
    const std::tuple<VistaTexto, VistaTexto, int, VistaTexto, VistaTexto> casos[] = {
        {"999", "N", 3, "@@@", ""},
        {"9999", "N", 3, "@@@@", tamanhoErrado},
        {"A9A", "A", 3, "@@", ""},                             // what is neither place nor separator is skipped
        {"99.9-9/(9)[9]", "N", 7, "@@.@-@/(@)[@]", caractere}, // a separator is said to be invalid, yet converted
        {"9.99", "N", 2, "@.@@", tamanhoErrado},
        {"99.9", "X", 0, "", ""},
    };
    for (const auto& [mascara, tipo, tamanho, esperada, mensagem] : casos) {
        Texto convertida = "<";
        EXPECT_EQ(converterMascara(mascara, tipo, tamanho, convertida), mensagem) << mascara;
        EXPECT_EQ(convertida, junta("<", esperada)) << mascara;
    }
}

TEST(Mascaras, conferirMascara) {
    constexpr VistaTexto naoConfere = "; Identificador não confere com a máscara cadastrada"_t;
    const std::tuple<VistaTexto, VistaTexto, VistaTexto, VistaTexto> casos[] = {
        {"123.456-7", "999.999-9", "1234567", ""}, {"1x/ ", "9A/A", "1x ", ""},
        {"1234", "999", "1234", naoConfere},       {"12a", "999", "12a", naoConfere},
        {"12-3", "99.9", "12-3", naoConfere},
    };
    for (const auto& [identificador, mascara, esperado, mensagem] : casos) {
        Texto conferido(identificador);
        EXPECT_EQ(conferirMascara(conferido, mascara), mensagem) << identificador;
        EXPECT_EQ(conferido, esperado);
    }
}

} // namespace
} // namespace quilatador
