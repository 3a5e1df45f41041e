#include "frontend/Pedido.h"

#include "support/Falsos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(Pedido, aPosicaoFicaNoCampoLivre) {
    for (const double aceita : {20.0, 21.0, 40.0, 41.0})
        EXPECT_EQ(recusaDaPosicao(aceita), std::nullopt) << aceita;
    for (const double recusada : {0.0, 19.0, 42.0, 44.0, 1e300})
        EXPECT_EQ(recusaDaPosicao(recusada),
                  "Posição da data no código de barras deve estar entre 20 e 41 (limites do campo livre)!"_t)
            << recusada;
}

TEST(Pedido, aDataAcabaNoMaximoNaPosicao43) {
    struct Caso {
        VistaTexto formato;
        double maior;
    };
    for (const auto& [formato, maior] :
         {Caso{"ADDD", 40}, Caso{"AADDD", 39}, Caso{"DDMMAA", 38}, Caso{"AAAAMMDD", 36}, Caso{"", 44}}) {
        EXPECT_EQ(recusaDoFormato(maior, formato), std::nullopt) << formato;
        EXPECT_EQ(recusaDoFormato(maior + 1, formato),
                  junta("Posição da data no código de barras para este formato não pode ser maior que "_t,
                        std::to_string(static_cast<int>(maior))));
    }
}

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
