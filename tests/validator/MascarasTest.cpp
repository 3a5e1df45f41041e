#include "validator/checks/Mascaras.h"

#include <gtest/gtest.h>

#include <tuple>

namespace quilatador {
namespace {

TEST(Mascaras, converterMascara) {
    constexpr VistaTexto tamanhoErrado = "; Tamanho do identificador não confere com a máscara!"_t;
    // A separator is said to be invalid, yet converted; what is neither place nor separator is skipped.
    const std::tuple<VistaTexto, VistaTexto, int, VistaTexto, VistaTexto> casos[] = {
        {"999"_t, "N"_t, 3, "@@@"_t, ""_t},
        {"A9A"_t, "A"_t, 3, "@@"_t, ""_t},
        {"9.99"_t, "N"_t, 2, "@.@@"_t, tamanhoErrado},
        {"99.9-9/(9)[9]"_t, "N"_t, 7, "@@.@-@/(@)[@]"_t, "; Caractere inválido na máscara"_t},
        {"99.9"_t, "X"_t, 0, ""_t, ""_t},
    };
    for (const auto& [mascara, tipo, tamanho, esperada, mensagem] : casos) {
        Texto convertida(1, '<');
        EXPECT_EQ(converterMascara(mascara, tipo, tamanho, convertida), mensagem);
        EXPECT_EQ(convertida, junta("<"_t, esperada));
    }
}

TEST(Mascaras, conferirMascara) {
    constexpr VistaTexto naoConfere = "; Identificador não confere com a máscara cadastrada"_t;
    using Caso = std::tuple<VistaTexto, VistaTexto, VistaTexto, VistaTexto>;
    for (const auto& [identificador, mascara, esperado, mensagem] :
         {Caso{"123.456-7"_t, "999.999-9"_t, "1234567"_t, ""_t}, Caso{"1x/ "_t, "9A/A"_t, "1x "_t, ""_t},
          Caso{"1234"_t, "999"_t, "1234"_t, naoConfere}, Caso{"12a"_t, "999"_t, "12a"_t, naoConfere},
          Caso{"12-3"_t, "99.9"_t, "12-3"_t, naoConfere}}) {
        Texto conferido(identificador);
        EXPECT_EQ(conferirMascara(conferido, mascara), mensagem);
        EXPECT_EQ(conferido, esperado);
    }
}

} // namespace
} // namespace quilatador
