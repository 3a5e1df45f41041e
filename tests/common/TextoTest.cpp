#include "common/Texto.h"

#include <concepts>
#include <gtest/gtest.h>
#include <ostream>
#include <type_traits>

namespace quilatador {
namespace {

/// Every character of Windows-1252 from 80 (hex) on, in the order of the codes; the five codes without one have the
/// control character of their number.
constexpr std::string_view superiores = "€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ"
                                        "\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ¶·¸¹º»¼½¾¿"
                                        "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞß"
                                        "àáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ";

Texto codigos(int primeiro, int ultimo) {
    Texto texto;
    for (int codigo = primeiro; codigo <= ultimo; ++codigo)
        texto.push_back(static_cast<char>(codigo));
    return texto;
}

TEST(Texto, cadaCodigoTemSeuCaractereNosDoisSentidos) {
    const Texto ascii = codigos(0, 127);
    const Texto altos = codigos(128, 255);
    EXPECT_EQ(utf8DeTexto(ascii), bytesDoTexto(ascii));
    EXPECT_EQ(utf8DeTexto(altos), superiores);
    EXPECT_EQ(textoDeUtf8(bytesDoTexto(ascii)), ascii);
    EXPECT_EQ(textoDeUtf8(superiores), altos);
    EXPECT_EQ(paraTexto(paraUtf8(altos)), altos);
    EXPECT_EQ("€ Ação ÿ"_t, textoDeUtf8("€ Ação ÿ"));
}

TEST(Texto, oQueNaoCabeViraInterrogacaoEOQueNaoEhUtf8Fica) {
    EXPECT_EQ(textoDeUtf8("a\u0100\u20A0\U0001F600\u0080b"), "a????b"_t); // the code 80 is the euro sign's
    // Latin-1; cut short; continuations missing or alone; more bytes than needed; half of a UTF-16 pair; past the end.
    for (const std::string_view bytes :
         {"\xE7\xE3o", "\xC3", "\xE2\x82", "\xC3(", "\xE2\x82(", "\x80\xBF", "\xC1\x81", "\xE0\x81\x81",
          "\xF0\x80\x81\x81", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80"})
        EXPECT_EQ(textoDeUtf8(bytes), textoDosBytes(bytes));
}

TEST(Texto, maiusculasSeguemACodificacao) {
    const Texto antes = codigos(0, 255);
    Texto depois = antes;
    constexpr VistaTexto minusculas = "abcdefghijklmnopqrstuvwxyzàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþšœžÿ"_t;
    constexpr VistaTexto maiores = "ABCDEFGHIJKLMNOPQRSTUVWXYZÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞŠŒŽŸ"_t;
    for (std::size_t i = 0; i < minusculas.size(); ++i)
        depois[static_cast<unsigned char>(minusculas[i])] = maiores[i];
    EXPECT_EQ(maiusculas(antes), depois);
}

TEST(Texto, caixaSoNaoContaDeAaZ) {
    EXPECT_TRUE(iguaisSemCaixa("TipoReg09"_t, "tIPOREG09"_t));
    EXPECT_FALSE(iguaisSemCaixa("ção"_t, "ÇÃO"_t));
    EXPECT_FALSE(iguaisSemCaixa("abc"_t, "abcd"_t));
    EXPECT_FALSE(iguaisSemCaixa("["_t, "{"_t)); // 32 apart as well
}

TEST(Texto, soOEspacoEhBranco) {
    EXPECT_EQ(semBrancosAEsquerda("  a b  "_t), "a b  "_t);
    EXPECT_EQ(semBrancosADireita("  a b  "_t), "  a b"_t);
    EXPECT_EQ(semBrancos(textoDosBytes(" \t a\xA0 ")), textoDosBytes("\t a\xA0"));
    EXPECT_EQ(semBrancos("   "_t), ""_t);
}

TEST(Texto, trechoDaOQueHa) {
    EXPECT_EQ(trecho("ABCDE"_t, 1, 2), "AB"_t);
    EXPECT_EQ(trecho("ABCDE"_t, 5, 9), "E"_t);
    EXPECT_EQ(junta(trecho("ABCDE"_t, 6, 1), trecho("ABCDE"_t, 0, 3), trecho("ABCDE"_t, 3, 0)), ""_t);
    EXPECT_EQ(ultimos("ABCDE"_t, 2), "DE"_t);
    EXPECT_EQ(ultimos("ABCDE"_t, 9), "ABCDE"_t);
}

TEST(Texto, mascaraPreenchidaPelaDireitaEZerosDepoisDoSinal) {
    EXPECT_EQ(comMascara("123"_t, "@@/@@/@@"_t), "  / 1/23"_t);
    EXPECT_EQ(comMascara("XY123456"_t, "@@/@@/@@"_t), "XY12/34/56"_t);
    EXPECT_EQ(comZeros(15, 6), "000015"_t);
    EXPECT_EQ(comZeros(1234567, 6), "1234567"_t);
    EXPECT_EQ(comZeros(-12, 5), "-00012"_t);
    EXPECT_EQ(comZeros(std::numeric_limits<long long>::min(), 3), "-9223372036854775808"_t);
}

/// Neither turns into the other, nor is one compared with, added to or assigned from the other.
template <typename A, typename B>
constexpr bool separados =
    !std::is_convertible_v<A, B> && !std::is_constructible_v<A, B> && !std::is_constructible_v<B, A> &&
    !std::is_assignable_v<A&, B> && !std::is_assignable_v<B&, A> && !std::equality_comparable_with<A, B>;
static_assert(separados<Texto, std::string> && separados<Texto, std::string_view>);
static_assert(separados<VistaTexto, std::string> && separados<VistaTexto, std::string_view>);
static_assert(separados<Texto, Utf8> && separados<VistaTexto, VistaUtf8>);
static_assert(!std::is_convertible_v<std::filesystem::path, Texto> &&
              !std::is_convertible_v<std::filesystem::path, VistaTexto>);

} // namespace
} // namespace quilatador
