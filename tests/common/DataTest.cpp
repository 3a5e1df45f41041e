#include "common/Data.h"

#include "support/Falhas.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(Data, leituraComDiaPrimeiro) {
    using Caso = std::pair<VistaTexto, VistaTexto>;
    for (const auto& [texto, data] :
         {Caso{"31/01/2024"_t, "2024-01-31"_t}, Caso{"1/2/2024"_t, "2024-02-01"_t},
          Caso{"29/02/2000"_t, "2000-02-29"_t}, Caso{"05/13/2024"_t, "2024-05-13"_t}, // possible month-first only
          Caso{"01/01/00"_t, "2000-01-01"_t}, Caso{"01/01/29"_t, "2029-01-01"_t}, Caso{"01/01/30"_t, "1930-01-01"_t},
          Caso{"01/01/5"_t, "2005-01-01"_t}, Caso{"01/01/100"_t, "0100-01-01"_t},
          Caso{"31/12/9999"_t, "9999-12-31"_t}}) {
        const std::optional<Data> lida = lerData(texto);
        ASSERT_TRUE(lida) << texto;
        EXPECT_EQ(formatarData(*lida, "YYYY-MM-DD"_t), data);
    }
    for (const VistaTexto forma : {""_t, "/"_t, "//"_t, "01/01"_t, "01/01/"_t, "/01/2024"_t, "01//2024"_t,
                                   "01/01/2024/"_t, "01-01-2024"_t, " 1/01/2024"_t, "01/01/2024 "_t, "-1/01/2024"_t,
                                   "aa/bb/cc"_t, "01/01/099"_t, "01/01/0000"_t, "01/01/10000"_t})
        EXPECT_EQ(lerData(forma), std::nullopt) << forma;
    for (const VistaTexto dia : {"00/01/2024"_t, "01/00/2024"_t, "32/01/2024"_t, "13/13/2024"_t, "29/02/1900"_t,
                                 "31/04/2024"_t, "257/01/2024"_t, "01/257/2024"_t, "01/01/9999999999"_t})
        EXPECT_EQ(lerData(dia), std::nullopt) << dia;
}

TEST(Data, formatoComSimbolosEmQualquerCaixa) {
    const Data data = fazData(305, 2, 7);
    EXPECT_EQ(formatarData(data, "dd-mm-yy"_t), "07-02-05"_t);
    EXPECT_EQ(formatarData(data, "#mM/dD/yYyY#"_t), "#02/07/0305#"_t);
    EXPECT_EQ(formatarData(data, "A M D YYY"_t), "A M D 05Y"_t);
}

TEST(Data, contagemESomaDentroDosLimites) {
    EXPECT_EQ(diaDoAno(fazData(2024, 12, 31)), 366);
    EXPECT_EQ(numeroDeSerie(fazData(100, 1, 1)), -657434);
    EXPECT_EQ(somarDias(fazData(2024, 2, 28), 2), fazData(2024, 3, 1));
    EXPECT_EQ(somarDias(fazData(100, 1, 1), 2958465 + 657434), fazData(9999, 12, 31));
    using Limites = std::numeric_limits<long long>;
    using Caso = std::pair<Data, long long>;
    for (const auto& [data, dias] :
         {Caso{fazData(9999, 12, 31), 1}, Caso{fazData(100, 1, 1), -1}, Caso{fazData(2024, 1, 1), Limites::max()},
          Caso{fazData(2024, 1, 1), Limites::min()}})
        EXPECT_EQ(testes::numeroDaFalha([&, &d = data, &n = dias] { return somarDias(d, n); }), 6);
}

} // namespace
} // namespace quilatador
