#include "common/Diversos.h"

#include "support/Falhas.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

const Data dia = fazData(2024, 2, 3);

/// "YYYY-MM-DD", or "-" for none: keeps the tables short.
Texto emTexto(const std::optional<Data>& data) {
    return data ? formatarData(*data, "YYYY-MM-DD") : "-";
}

TEST(Diversos, nuloVazioEZeroEmTexto) {
    constexpr VistaTexto zero = "0,00"_t;
    constexpr std::array data{"03/02/2024"_t, "#02/03/2024#"_t};
    constexpr std::array nada{""_t, "Null"_t, "null"_t};
    using Caso = std::tuple<Valor, VistaTexto, VistaTexto, VistaTexto>;
    for (const auto& [valor, vazioSeNulo, nuloSeEmpty, nuloSeZero] :
         {Caso{Valor(), nada[0], nada[1], nada[2]}, Caso{Valor::Nulo(), nada[0], nada[0], nada[0]},
          Caso{zero, zero, zero, nada[2]}, Caso{dia, data[0], data[1], data[0]}}) {
        EXPECT_EQ(Diversos::VazioSeNulo(valor), vazioSeNulo);
        EXPECT_EQ(Diversos::NuloSeEmpty(valor), nuloSeEmpty);
        EXPECT_EQ(Diversos::NuloSeZero(valor), nuloSeZero);
        EXPECT_EQ(Diversos::EmptySeNulo(valor), valor.nulo() ? Valor() : valor);
        EXPECT_EQ(Diversos::ZeroSeNulo(valor), valor.nulo() ? Valor(0) : valor);
    }
    EXPECT_EQ(Diversos::NuloSeVazio(""_t), "null"_t);
    EXPECT_EQ(Diversos::NuloSeVazio("d'água"_t), "'d'água'"_t);
}

TEST(Diversos, TodoNumerico) {
    EXPECT_TRUE(Diversos::TodoNumerico("-12,5"_t));
    for (const VistaTexto nao : {""_t, "12 "_t, " 12"_t, "1A"_t})
        EXPECT_FALSE(Diversos::TodoNumerico(nao));
}

TEST(Diversos, padLEPadR) {
    EXPECT_EQ(Diversos::padL("123"_t, 5, '0'), "00123"_t);
    EXPECT_EQ(Diversos::padL("123456"_t, 5, '0'), "23456"_t);
    EXPECT_EQ(Diversos::padR("123"_t, 5, '0'), "12300"_t);
    EXPECT_EQ(Diversos::padR("123456"_t, 5, '0'), "12345"_t);
    EXPECT_EQ(Diversos::padL("A"_t, 2) + Diversos::padR("B"_t, 2), " AB "_t);
}

TEST(Diversos, Data2Juliana) {
    using Caso = std::pair<VistaTexto, VistaTexto>;
    for (const auto& [formato, juliana] :
         {Caso{"YNNN"_t, "4034"_t}, Caso{"YYNNN"_t, "24034"_t}, Caso{"NNNY"_t, "0344"_t}, Caso{"NNNYY"_t, "03424"_t},
          Caso{"DDNN"_t, ""_t}}) {
        EXPECT_EQ(Diversos::Data2Juliana(dia, formato), juliana);
        EXPECT_EQ(Diversos::FormatarData(dia, formato), juliana);
    }
    EXPECT_EQ(Diversos::Data2Juliana(fazData(2005, 12, 31)), "5365"_t);
    EXPECT_EQ(Diversos::FormatarData(dia, "DD/MM/YY"_t), "03/02/24"_t);
}

TEST(Diversos, Juliana2Data) {
    using Caso = std::tuple<VistaTexto, int, VistaTexto>;
    // A year digit goes to the year within five; a day of no year (000, 366) runs over.
    for (const auto& [texto, anoCorrente, data] :
         {Caso{"4034"_t, 2026, "2024-02-03"_t}, Caso{"0001"_t, 2026, "2030-01-01"_t},
          Caso{"1001"_t, 2026, "2021-01-01"_t}, Caso{"6001"_t, 2021, "2026-01-01"_t},
          Caso{"7001"_t, 2021, "2017-01-01"_t}, Caso{"3366"_t, 2023, "2024-01-01"_t},
          Caso{"4"_t, 2024, "2023-12-31"_t}})
        EXPECT_EQ(emTexto(Diversos::Juliana2Data(texto, anoCorrente)), data);
    for (const auto& [texto, falha] : {std::pair(""_t, 13), {"4-34"_t, 13}, {"49999999"_t, 6}})
        EXPECT_EQ(testes::numeroDaFalha([&, &t = texto] { return Diversos::Juliana2Data(t, 2024); }), falha);
    EXPECT_EQ(testes::numeroDaFalha([] { return Diversos::Juliana2Data(Texto(300, '9'), 2024); }), 6);
}

TEST(Diversos, String2Data) {
    using Caso = std::tuple<VistaTexto, VistaTexto, VistaTexto>;
    for (const auto& [texto, formato, data] :
         {Caso{"20240203"_t, "AAAAMMDD"_t, "2024-02-03"_t}, Caso{"20240230"_t, "AAAAMMDD"_t, "-"_t},
          Caso{""_t, "AAAAMMDD"_t, "-"_t}, Caso{"300203"_t, "AAMMDD"_t, "1930-02-03"_t},
          Caso{"3022024"_t, "DDMMAAAA"_t, "-"_t}, // " 3" is not digits only
          Caso{"4034"_t, "ADDD"_t, "2024-02-03"_t}, Caso{"4A34"_t, "ADDD"_t, "-"_t},
          Caso{"0344"_t, "DDDA"_t, "2024-02-03"_t}, Caso{"4034"_t, "YNNN"_t, "-"_t},
          Caso{"94034"_t, "AADDD"_t, "2024-02-03"_t}}) // the tens digit does not count
        EXPECT_EQ(emTexto(Diversos::String2Data(texto, formato, 2026)), data);
}

TEST(Diversos, ConverteASC2EBCDIC) {
    Texto todos;
    for (int codigo = 0; codigo < 256; ++codigo)
        todos.push_back(static_cast<char>(codigo));
    Texto esperado = todos.substr(0, 32);
    esperado.append(
        " !\"#$%E.()*.,-./0123456789:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^..ABCDEFGHIJKLMNOPQRSTUVWXYZ{|}~");
    esperado.append(todos, 127, 27).append("\x8A\x9B\x8C\x9D\x8E").append("U"); // 9A to 9F: upper case, then Y as U
    esperado.append("\xA0..\xA3......A...............O.....");
    // Y with an accent becomes "U" too: kept on purpose.
    esperado.append("AAAAAAACEEEEIIII.NOOOOO\xD7\xD8UUUUU..AAAAAAACEEEEIIII.NOOOOO.\xD8UUUUU.U");
    EXPECT_EQ(Diversos::ConverteASC2EBCDIC(todos), esperado);
}

} // namespace
} // namespace quilatador
