#include "common/Data.h"

#include "support/Falhas.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(Data, leituraComDiaPrimeiro) {
    using Caso = std::pair<VistaTexto, VistaTexto>;
    for (const auto& [texto, data] :
         {Caso{"31/01/2024", "2024-01-31"}, Caso{"1/2/2024", "2024-02-01"}, Caso{"29/02/2000", "2000-02-29"},
          Caso{"05/13/2024", "2024-05-13"}, Caso{"02/29/2024", "2024-02-29"}, // possible month-first only
          Caso{"01/01/00", "2000-01-01"}, Caso{"01/01/29", "2029-01-01"}, Caso{"01/01/30", "1930-01-01"},
          Caso{"01/01/99", "1999-01-01"}, Caso{"01/01/5", "2005-01-01"}, Caso{"01/01/100", "0100-01-01"},
          Caso{"31/12/9999", "9999-12-31"}}) {
        const std::optional<Data> lida = lerData(texto);
        ASSERT_TRUE(lida) << texto;
        EXPECT_EQ(formatarData(*lida, "YYYY-MM-DD"), data);
    }
}

TEST(Data, textosQueNaoSaoData) {
    for (const VistaTexto forma : {"", "/", "//", "01/01", "01/01/", "/01/2024", "01//2024", "01/01/2024/",
                                   "01-01-2024", " 1/01/2024", "01/01/2024 ", "-1/01/2024", "1.0/01/2024", "aa/bb/cc"})
        EXPECT_EQ(lerData(forma), std::nullopt) << forma;
    for (const VistaTexto dia : {"00/01/2024", "01/00/2024", "32/01/2024", "13/13/2024", "30/02/2024", "29/02/2023",
                                 "29/02/1900", "31/04/2024", "257/01/2024", "01/257/2024"})
        EXPECT_EQ(lerData(dia), std::nullopt) << dia;
    for (const VistaTexto ano : {"01/01/099", "01/01/0000", "01/01/10000", "01/01/9999999999"})
        EXPECT_EQ(lerData(ano), std::nullopt) << ano;
}

TEST(Data, formatoComSimbolosEmQualquerCaixa) {
    const Data data = fazData(305, 2, 7);
    EXPECT_EQ(formatarData(data, "dd-mm-yy"), "07-02-05");
    EXPECT_EQ(formatarData(data, "#mM/dD/yYyY#"), "#02/07/0305#");
    EXPECT_EQ(formatarData(data, "A M D YYY"), "A M D 05Y");
}

TEST(Data, diaDoAnoENumeroDeSerie) {
    EXPECT_EQ(diaDoAno(fazData(2024, 1, 1)), 1);
    EXPECT_EQ(diaDoAno(fazData(2024, 12, 31)), 366);
    EXPECT_EQ(numeroDeSerie(fazData(2026, 1, 1)), 46023);
    EXPECT_EQ(numeroDeSerie(fazData(100, 1, 1)), -657434);
}

TEST(Data, somaDentroDosLimites) {
    EXPECT_EQ(somarDias(fazData(2024, 2, 28), 2), fazData(2024, 3, 1));
    EXPECT_EQ(somarDias(fazData(100, 1, 1), 2958465 + 657434), fazData(9999, 12, 31));
    const auto falha = [](const Data& data, long long dias) {
        return testes::numeroDaFalha([&] { return somarDias(data, dias); });
    };
    EXPECT_EQ(falha(fazData(9999, 12, 31), 1), 6);
    EXPECT_EQ(falha(fazData(100, 1, 1), -1), 6);
    EXPECT_EQ(falha(fazData(2024, 1, 1), std::numeric_limits<long long>::max()), 6);
    EXPECT_EQ(falha(fazData(2024, 1, 1), std::numeric_limits<long long>::min()), 6);
}

} // namespace
} // namespace quilatador
