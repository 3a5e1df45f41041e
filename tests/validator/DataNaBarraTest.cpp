#include "validator/DataNaBarra.h"

#include <gtest/gtest.h>

#include <tuple>

namespace quilatador {
namespace {

using Candidata = DataNaBarra::Candidata;
using Candidatas = std::vector<Candidata>;

constexpr int ano = 2026;

/// A barcode with a text at a position (1-based), and zeros elsewhere.
Texto barraCom(VistaTexto texto, int posicao) {
    return Texto(44, '0').replace(static_cast<std::size_t>(posicao) - 1, texto.size(), texto);
}

TEST(DataNaBarra, achaADataNoFormatoENaPosicao) {
    const Data natal = fazData(2027, 12, 25);
    const std::tuple<VistaTexto, int, Data, Candidatas> casos[] = {
        {"20271225"_t, 20, natal, {{"AAMMDD"_t, 22, 1}, {"AAAAMMDD"_t, 20, 1}}},
        {"20271225"_t, 36, natal, {{"AAMMDD"_t, 38, 1}, {"AAAAMMDD"_t, 36, 1}}},
        {"20271225"_t, 37, natal, {}}, // position 44 is never that of a date
        {"20271225"_t, 19, natal, {{"AAMMDD"_t, 21, 1}}},
        {"251227"_t, 38, natal, {{"DDMMAA"_t, 38, 1}}},
        {"25122027"_t, 30, natal, {{"DDMMAAAA"_t, 30, 1}}},
        {"27359"_t, 25, natal, {{"ADDD"_t, 26, 1}, {"AADDD"_t, 25, 1}}},
        {"3597"_t, 40, natal, {{"DDDA"_t, 40, 1}}},
        {"27359"_t, 40, natal, {}},
        {"990210"_t, 20, fazData(2099, 2, 10), {}}, // would be read as 1999, and a year 9 as 2029
        {"9041"_t, 20, fazData(2099, 2, 10), {}},
        {"20990210"_t, 20, fazData(2099, 2, 10), {{"AAAAMMDD"_t, 20, 1}}},
    };
    for (const auto& [texto, posicao, data, esperadas] : casos) {
        DataNaBarra datas(ano);
        datas.parcela(barraCom(texto, posicao), data);
        EXPECT_TRUE(datas.melhores() == esperadas) << texto << posicao;
    }
}

TEST(DataNaBarra, contaAsParcelasEPoeOPreferidoNaFrente) {
    DataNaBarra datas(ano);
    EXPECT_TRUE(datas.melhores().empty());
    for (int vez = 0; vez < 5'000; ++vez) {
        const Data data = somarDias(fazData(2027, 1, 1), vez % 4'200); // more dates than are remembered
        datas.parcela(barraCom(formatarData(data, "YYYYMMDD"_t), 20), data);
        datas.parcela(barraCom(formatarData(data, "YYYYMMDD"_t), 30).substr(0, 35), data); // cut within the date
    }
    EXPECT_EQ(datas.parcelas(), 10'000);
    EXPECT_TRUE(datas.melhores() == (Candidatas{{"AAAAMMDD"_t, 20, 5'000}}));
    EXPECT_EQ(datas.acertos("AAAAMMDD"_t, 30) + datas.acertos("AAAAMMDD"_t, 19) + datas.acertos("AAÇ"_t, 20), 0);
    DataNaBarra iguais(ano);
    iguais.parcela(barraCom("20271225"_t, 20), fazData(2027, 12, 25));
    EXPECT_EQ(iguais.melhores("AAAAMMDD"_t).front().formato, "AAAAMMDD"_t);
}

} // namespace
} // namespace quilatador
