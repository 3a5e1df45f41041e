#include "common/Diversos.h"

#include "support/Falhas.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

const Data dia = fazData(2024, 2, 3);

TEST(Diversos, textosDeValoresEDatas) {
    const Valor nulo = Valor::Nulo();
    const std::pair<Texto, VistaTexto> casos[] = {
        {Diversos::VazioSeNulo(nulo), ""_t},
        {Diversos::NuloSeEmpty(Valor()), "Null"_t},
        {Diversos::NuloSeEmpty(dia), "#02/03/2024#"_t},
        {Diversos::NuloSeZero("0,00"_t), "null"_t},
        {Diversos::NuloSeZero(dia), "03/02/2024"_t},
        {Diversos::NuloSeVazio(""_t), "null"_t},
        {Diversos::NuloSeVazio("d'água"_t), "'d'água'"_t},
        {Diversos::ZeroSeNulo(nulo).texto(), "0"_t},
        {Diversos::padL("123456"_t, 5, '0'), "23456"_t},
        {Diversos::padR("12"_t, 3, '0'), "120"_t},
        {Diversos::FormatarData(dia, "YYNNN"_t), "24034"_t},
        {Diversos::FormatarData(dia, "NNNY"_t), "0344"_t},
        {Diversos::FormatarData(dia, "NNNYY"_t), "03424"_t},
        {Diversos::FormatarData(dia, "DDNN"_t), ""_t},
        {Diversos::FormatarData(dia, "DD/MM/YY"_t), "03/02/24"_t},
    };
    for (const auto& [obtido, esperado] : casos)
        EXPECT_EQ(obtido, esperado);
    EXPECT_TRUE(Diversos::EmptySeNulo(nulo).vazio());
    EXPECT_TRUE(Diversos::TodoNumerico("-12,5"_t));
    EXPECT_FALSE(Diversos::TodoNumerico("12 "_t) || Diversos::TodoNumerico("1A"_t));
}

TEST(Diversos, String2Data) {
    using Caso = std::tuple<VistaTexto, VistaTexto, int, VistaTexto>;
    // A year digit goes to the year within five; a day of no year (000, 366) runs over.
    for (const auto& [texto, formato, anoCorrente, data] :
         {Caso{"4034"_t, "ADDD"_t, 2026, "2024-02-03"_t}, Caso{"0001"_t, "ADDD"_t, 2026, "2030-01-01"_t},
          Caso{"1001"_t, "ADDD"_t, 2026, "2021-01-01"_t}, Caso{"6001"_t, "ADDD"_t, 2021, "2026-01-01"_t},
          Caso{"7001"_t, "ADDD"_t, 2021, "2017-01-01"_t}, Caso{"3366"_t, "ADDD"_t, 2023, "2024-01-01"_t},
          Caso{"4"_t, "ADDD"_t, 2024, "2023-12-31"_t}, Caso{"0344"_t, "DDDA"_t, 2026, "2024-02-03"_t},
          Caso{"94034"_t, "AADDD"_t, 2026, "2024-02-03"_t}, // the tens digit does not count
          Caso{"20240203"_t, "AAAAMMDD"_t, 2026, "2024-02-03"_t}}) {
        const std::optional<Data> lida = Diversos::String2Data(texto, formato, anoCorrente);
        EXPECT_EQ(lida ? formatarData(*lida, "YYYY-MM-DD"_t) : Texto(), data) << texto;
    }
    EXPECT_EQ(Diversos::String2Data("4034"_t, "YNNN"_t, 2026), std::nullopt);
    const Texto longo(300, '9');
    for (const auto& [texto, falha] :
         {std::pair(""_t, 13), {"4-34"_t, 13}, {"49999999"_t, 6}, {VistaTexto(longo), 6}}) {
        EXPECT_EQ(testes::numeroDaFalha([&, &t = texto] { return Diversos::Juliana2Data(t, 2024); }), falha);
        EXPECT_EQ(Diversos::String2Data(texto, "ADDD"_t, 2024), std::nullopt);
    }
}

TEST(Diversos, ConverteASC2EBCDIC) {
    Texto todos;
    for (int codigo = 0; codigo < 256; ++codigo)
        todos.push_back(static_cast<char>(codigo));
    // Y with an accent becomes "U": kept on purpose.
    const Texto esperado = junta(trecho(todos, 1, 32), " !\"#$%E.()*.,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ"_t,
                                 "[\\]^..ABCDEFGHIJKLMNOPQRSTUVWXYZ{|}~"_t, trecho(todos, 128, 27), "Š›Œ\u009DŽU"_t,
                                 "\u00A0..£......A...............O.....AAAAAAACEEEEIIII.NOOOOO×ØUUUUU.."_t,
                                 "AAAAAAACEEEEIIII.NOOOOO.ØUUUUU.U"_t);
    EXPECT_EQ(Diversos::ConverteASC2EBCDIC(todos), esperado);
}

} // namespace
} // namespace quilatador
