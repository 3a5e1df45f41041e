#include "run/NomesDeArquivo.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(NomesDeArquivo, caminhoDoLog) {
    using Caso = std::pair<std::string, std::string>;
    for (const auto& [arquivo, log] :
         {Caso{"/dados/a.b.rem", "/dados/a.log"}, Caso{"/dados.2024/remessa.rem", "/dados.log"},
          Caso{"/dados/março.", "/dados/março.log"}})
        EXPECT_EQ(caminhoDoLog(arquivo, TipoArquivo::ZUL708), log);
    EXPECT_EQ(caminhoDoLog("/dados/remessa", TipoArquivo::ZUL702), "/dados/remessalog");
    EXPECT_EQ(caminhoDoLog("/dados/remessa", TipoArquivo::TAV001), "/dados/remessa.log");
}

TEST(NomesDeArquivo, titulo) {
    EXPECT_EQ(tituloDoLog("/dados/março.rem", "10/03/2026"_t),
              "LOG DE DEPURAÇÃO DO ARQUIVO /dados/março.rem  -   10/03/2026"_t);
}

} // namespace
} // namespace quilatador
