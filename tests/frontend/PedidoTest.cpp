#include "frontend/Pedido.h"

#include "support/Falsos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(Pedido, aPrimeiraLinhaDizOTipo) {
    struct Caso {
        Texto arquivo;
        std::optional<TipoArquivo> tipo;
    };
    for (const auto& [arquivo, tipo] :
         {Caso{"A1234567890ZUL702...\r\nZ", TipoArquivo::ZUL702}, Caso{"A2234567890ZUL708", TipoArquivo::ZUL708},
          Caso{"A2 and so on", TipoArquivo::TAV001}, Caso{"A1 and so on", std::nullopt},
          Caso{"A123456789ZUL702", std::nullopt}, Caso{"\r\nA2", std::nullopt}, Caso{"", std::nullopt}}) {
        testes::ArquivosEmMemoria arquivos;
        arquivos.conteudo["/d/a"] = arquivo;
        EXPECT_EQ(reconhecerTipo("/d/a", arquivos), tipo) << arquivo;
        EXPECT_EQ(reconhecerTipo("/d/missing", arquivos), std::nullopt);
    }
}

} // namespace
} // namespace quilatador
