#include "frontend/window/frmSobre.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(frmSobre, zerosCompletaOTextoSemBrancos) {
    struct Caso {
        Texto texto;
        std::int16_t tamanho;
        Texto esperado;
    };
    for (const auto& [texto, tamanho, esperado] :
         {Caso{"7", 2, "07"}, Caso{" 7 ", 2, "07"}, Caso{"123", 2, "123"}, Caso{" 12 ", 2, " 12 "}, Caso{"", 2, "00"},
          Caso{"  ", 3, "000"}, Caso{"7", 0, "7"}, Caso{"7", -1, "7"}}) {
        Texto argumento = texto;
        EXPECT_EQ(frmSobre::Zeros(argumento, tamanho), esperado);
        EXPECT_EQ(argumento, esperado);
    }
}

} // namespace
} // namespace quilatador
