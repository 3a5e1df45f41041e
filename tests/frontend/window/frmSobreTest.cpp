#include "frontend/window/frmSobre.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(frmSobre, zerosCompletaOTextoSemBrancos) {
    using Caso = std::tuple<VistaTexto, std::int16_t, VistaTexto>;
    for (const auto& [texto, tamanho, esperado] :
         {Caso{"7"_t, 2, "07"_t}, Caso{" 7 "_t, 2, "07"_t}, Caso{"123"_t, 2, "123"_t}, Caso{" 12 "_t, 2, " 12 "_t},
          Caso{"  "_t, 3, "000"_t}, Caso{"7"_t, -1, "7"_t}}) {
        Texto argumento(texto);
        EXPECT_EQ(frmSobre::Zeros(argumento, tamanho), esperado);
        EXPECT_EQ(argumento, esperado);
    }
}

} // namespace
} // namespace quilatador
