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
    struct Caso {
        Valor valor;
        Texto vazioSeNulo, nuloSeEmpty, nuloSeZero;
    };
    for (const auto& [valor, vazioSeNulo, nuloSeEmpty, nuloSeZero] :
         {Caso{Valor(), "", "Null", "null"}, Caso{Valor::Nulo(), "", "", ""}, Caso{"", "", "", ""},
          Caso{"x", "x", "x", "x"}, Caso{0, "0", "0", "null"}, Caso{"0,00", "0,00", "0,00", "null"},
          Caso{1.5, "1.5", "1.5", "1.5"}, Caso{dia, "03/02/2024", "#02/03/2024#", "03/02/2024"}}) {
        EXPECT_EQ(Diversos::VazioSeNulo(valor), vazioSeNulo);
        EXPECT_EQ(Diversos::NuloSeEmpty(valor), nuloSeEmpty);
        EXPECT_EQ(Diversos::NuloSeZero(valor), nuloSeZero);
        EXPECT_EQ(Diversos::EmptySeNulo(valor), valor.nulo() ? Valor() : valor);
        EXPECT_EQ(Diversos::ZeroSeNulo(valor), valor.nulo() ? Valor(0) : valor);
    }
    EXPECT_EQ(Diversos::NuloSeVazio(""), "null");
    EXPECT_EQ(Diversos::NuloSeVazio("x"), "'x'");
    EXPECT_EQ(Diversos::NuloSeVazio("d'água"_t), "'d'água'"_t);
}

TEST(Diversos, TodoNumerico) {
    for (const VistaTexto sim : {"0012", "12,5", "-3", "+3.", ".5"})
        EXPECT_TRUE(Diversos::TodoNumerico(sim)) << sim;
    for (const VistaTexto nao : {"", "12 ", " 12", "1 2", " ", "1A", "1.2,3"})
        EXPECT_FALSE(Diversos::TodoNumerico(nao)) << nao;
}

TEST(Diversos, padLEPadR) {
    struct Caso {
        VistaTexto texto;
        std::size_t tamanho;
        char caractere;
        VistaTexto esquerda, direita;
    };
    for (const auto& [texto, tamanho, caractere, esquerda, direita] :
         {Caso{"123", 5, '0', "00123", "12300"}, Caso{"123456", 5, '0', "23456", "12345"},
          Caso{"ABCDEF", 3, ' ', "DEF", "ABC"}, Caso{"AB", 4, ' ', "  AB", "AB  "}, Caso{"AB", 2, 'x', "AB", "AB"},
          Caso{"AB", 0, ' ', "", ""}, Caso{"", 2, '*', "**", "**"}}) {
        EXPECT_EQ(Diversos::padL(texto, tamanho, caractere), esquerda);
        EXPECT_EQ(Diversos::padR(texto, tamanho, caractere), direita);
    }
    EXPECT_EQ(Diversos::padL("A", 2) + Diversos::padR("B", 2), " AB ");
}

TEST(Diversos, Data2Juliana) {
    struct Caso {
        Data data;
        VistaTexto formato, juliana;
    };
    for (const auto& [data, formato, juliana] :
         {Caso{dia, "YNNN", "4034"}, Caso{dia, "YYNNN", "24034"}, Caso{dia, "NNNY", "0344"},
          Caso{dia, "NNNYY", "03424"}, Caso{dia, "", ""}, Caso{dia, "ynnn", ""}, Caso{dia, "NNN", ""},
          Caso{fazData(2024, 12, 31), "YNNN", "4366"}, Caso{fazData(2023, 1, 1), "NNNYY", "00123"},
          Caso{fazData(2005, 1, 1), "YYNNN", "05001"}})
        EXPECT_EQ(Diversos::Data2Juliana(data, formato), juliana) << formato;
    EXPECT_EQ(Diversos::Data2Juliana(dia), "4034");
}

TEST(Diversos, Juliana2Data) {
    struct Caso {
        VistaTexto texto;
        int anoCorrente;
        VistaTexto data;
    };
    // A year digit goes to the year within five; a day of no year (000, 366) runs over.
    for (const auto& [texto, anoCorrente, data] :
         {Caso{"4034", 2026, "2024-02-03"}, Caso{"9001", 2026, "2029-01-01"}, Caso{"0001", 2026, "2030-01-01"},
          Caso{"1001", 2026, "2021-01-01"}, Caso{"9001", 2021, "2019-01-01"}, Caso{"6001", 2021, "2026-01-01"},
          Caso{"7001", 2021, "2017-01-01"}, Caso{"3366", 2023, "2024-01-01"}, Caso{"4000", 2024, "2023-12-31"},
          Caso{"4", 2024, "2023-12-31"}, Caso{"41000", 2024, "2026-09-26"}})
        EXPECT_EQ(emTexto(Diversos::Juliana2Data(texto, anoCorrente)), data) << texto << " em " << anoCorrente;
}

TEST(Diversos, Juliana2DataImpossivel) {
    const auto falha = [](VistaTexto texto) {
        return testes::numeroDaFalha([&] { return Diversos::Juliana2Data(texto, 2024); });
    };
    for (const VistaTexto semData : {"", "A034", "40 4", "4-34", " 4034"})
        EXPECT_EQ(falha(semData), 13) << semData;
    EXPECT_EQ(falha("49999999"), 6);
    EXPECT_EQ(falha(Texto(300, '9')), 6);
}

TEST(Diversos, FormatarData) {
    EXPECT_EQ(Diversos::FormatarData(dia, "NNNY"), "0344");
    EXPECT_EQ(Diversos::FormatarData(dia, "DDNN"), ""); // has an "N", and is no format with it
    EXPECT_EQ(Diversos::FormatarData(dia, "DD/MM/YY"), "03/02/24");
}

TEST(Diversos, String2Data) {
    struct Caso {
        VistaTexto texto, formato, data;
    };
    for (const auto& [texto, formato, data] : {Caso{"20240203", "AAAAMMDD", "2024-02-03"},
                                               Caso{"20240230", "AAAAMMDD", "-"},          // no such day
                                               Caso{"20241305", "AAAAMMDD", "2024-05-13"}, // month-first
                                               Caso{"00000000", "AAAAMMDD", "-"},
                                               Caso{"        ", "AAAAMMDD", "-"},
                                               Caso{"", "AAAAMMDD", "-"},
                                               Caso{"240203", "AAMMDD", "2024-02-03"},
                                               Caso{"300203", "AAMMDD", "1930-02-03"},
                                               Caso{"03022024", "DDMMAAAA", "2024-02-03"},
                                               Caso{"3022024", "DDMMAAAA", "-"}, // " 3" is not digits only
                                               Caso{"030224", "DDMMAA", "2024-02-03"},
                                               Caso{"AB0224", "DDMMAA", "-"},
                                               Caso{"4034", "ADDD", "2024-02-03"},
                                               Caso{"4A34", "ADDD", "-"},
                                               Caso{"", "ADDD", "-"},
                                               Caso{"0344", "DDDA", "2024-02-03"},
                                               Caso{"", "DDDA", "-"},
                                               Caso{"94034", "AADDD", "2024-02-03"},
                                               Caso{"4", "AADDD", "-"}, // the tens digit does not count
                                               Caso{"20240203", "", "-"},
                                               Caso{"20240203", "aaaammdd", "-"},
                                               Caso{"4034", "YNNN", "-"}})
        EXPECT_EQ(emTexto(Diversos::String2Data(texto, formato, 2026)), data) << texto << " como " << formato;
}

TEST(Diversos, ConverteASC2EBCDIC) {
    EXPECT_EQ(Diversos::ConverteASC2EBCDIC("ação & cia_1"_t), "ACAO E CIA.1");
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
