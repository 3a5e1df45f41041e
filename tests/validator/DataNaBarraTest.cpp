#include "validator/DataNaBarra.h"

#include <gtest/gtest.h>

#include <tuple>

namespace quilatador {
namespace {

constexpr int ano = 2026;

/// A barcode with a text at a position (1-based), and zeros elsewhere.
Texto barraCom(VistaTexto texto, int posicao) {
    return Texto(44, '0').replace(static_cast<std::size_t>(posicao) - 1, texto.size(), texto);
}

/// Each as "format position hits; ".
Texto escritas(const std::vector<DataNaBarra::Candidata>& candidatas) {
    Texto texto;
    for (const DataNaBarra::Candidata& c : candidatas)
        texto += junta(c.formato, " "_t, textoDe(c.posicao), " "_t, textoDe(c.acertos), "; "_t);
    return texto;
}

TEST(DataNaBarra, achaADataNoFormatoENaPosicao) {
    const Data natal = fazData(2027, 12, 25);
    const Data outroSeculo = fazData(2099, 2, 10); // of two digits would be 1999, and a year 9 is 2029
    const std::tuple<VistaTexto, int, Data, VistaTexto> casos[] = {
        {"20271225"_t, 20, natal, "AAMMDD 22 1; AAAAMMDD 20 1; "_t},
        {"20271225"_t, 36, natal, "AAMMDD 38 1; AAAAMMDD 36 1; "_t},
        {"20271225"_t, 37, natal, ""_t}, // position 44 is never that of a date
        {"20271225"_t, 19, natal, "AAMMDD 21 1; "_t},
        {"251227"_t, 38, natal, "DDMMAA 38 1; "_t},
        {"25122027"_t, 30, natal, "DDMMAAAA 30 1; "_t},
        {"27359"_t, 25, natal, "ADDD 26 1; AADDD 25 1; "_t},
        {"3597"_t, 40, natal, "DDDA 40 1; "_t},
        {"27359"_t, 40, natal, ""_t},
        {"990210"_t, 20, outroSeculo, ""_t},
        {"9041"_t, 20, outroSeculo, ""_t},
        {"20990210"_t, 20, outroSeculo, "AAAAMMDD 20 1; "_t},
    };
    for (const auto& [texto, posicao, data, esperadas] : casos) {
        DataNaBarra datas(ano);
        datas.parcela(barraCom(texto, posicao), data);
        EXPECT_EQ(escritas(datas.melhores()), esperadas) << texto << posicao;
    }
}

TEST(DataNaBarra, contaAsParcelasEPoeOPreferidoNaFrente) {
    DataNaBarra datas(ano);
    EXPECT_EQ(escritas(datas.melhores()), ""_t);
    for (int vez = 0; vez < 5'000; ++vez) {
        const Data data = somarDias(fazData(2027, 1, 1), vez % 4'200); // more dates than are remembered
        datas.parcela(barraCom(formatarData(data, "YYYYMMDD"_t), 20), data);
        datas.parcela(barraCom(formatarData(data, "YYYYMMDD"_t), 30).substr(0, 35), data); // cut within the date
    }
    EXPECT_EQ(datas.parcelas(), 10'000);
    EXPECT_EQ(escritas(datas.melhores()), "AAAAMMDD 20 5000; "_t);
    EXPECT_EQ(datas.acertos("AAAAMMDD"_t, 30) + datas.acertos("AAAAMMDD"_t, 19) + datas.acertos("AAÇ"_t, 20), 0);
    DataNaBarra iguais(ano);
    iguais.parcela(barraCom("20271225"_t, 20), fazData(2027, 12, 25));
    EXPECT_EQ(escritas(iguais.melhores("AAAAMMDD"_t)), "AAAAMMDD 20 1; AAMMDD 22 1; "_t);
}

} // namespace
} // namespace quilatador
