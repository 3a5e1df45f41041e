#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace quilatador {

/// The traits that make `Texto` a type of its own. A bare pointer has no length here, so that a literal without `_t`,
/// whose bytes would be UTF-8, does not compile.
struct TracosDoTexto : std::char_traits<char> {
    static constexpr std::size_t length(const char*) = delete;
};

/// A text inside the program: Windows-1252, one byte per character. UTF-8 has other types (`Utf8`, or `std::string`
/// where a library asks for it). Only the functions below convert between them, and only code at the edges of the
/// program calls these functions, so that a line that would write UTF-8 into a log does not compile.
using Texto = std::basic_string<char, TracosDoTexto>;
/// A view of a text that somebody else owns. A literal written as `"..."_t` is one.
using VistaTexto = std::basic_string_view<char, TracosDoTexto>;
/// UTF-8 text, as settings files, terminals and windows use it.
using Utf8 = std::u8string;
using VistaUtf8 = std::u8string_view;

/// Converts UTF-8 to Windows-1252. A character that Windows-1252 lacks becomes "?". Bytes that are not valid UTF-8 are
/// copied, so that a file name from an old system keeps its letters.
[[nodiscard]] Texto paraTexto(VistaUtf8 utf8);
/// Converts Windows-1252 to UTF-8. The five codes without a character become the control characters of the same number.
[[nodiscard]] Utf8 paraUtf8(VistaTexto texto);
/// The same two conversions, for libraries that hold UTF-8 in `char`.
[[nodiscard]] Texto textoDeUtf8(std::string_view utf8);
[[nodiscard]] std::string utf8DeTexto(VistaTexto texto);
/// Views the bytes of a file or a library as a text, or a text as bytes. Nothing is copied or converted: the bytes must
/// already be Windows-1252.
[[nodiscard]] constexpr VistaTexto textoDosBytes(std::string_view bytes) noexcept {
    return {bytes.data(), bytes.size()};
}
[[nodiscard]] constexpr std::string_view bytesDoTexto(VistaTexto texto) noexcept {
    return {texto.data(), texto.size()};
}
/// A path as text for a log or a message.
[[nodiscard]] Texto textoDoCaminho(const std::filesystem::path& caminho);

/// Converts to upper case by the rules of Windows-1252: à to þ (except ÷) become À to Þ, and š œ ž ÿ become Š Œ Ž Ÿ.
[[nodiscard]] Texto maiusculas(VistaTexto texto);
/// Whether two names are equal when upper and lower case of the letters A to Z are treated alike.
[[nodiscard]] bool iguaisSemCaixa(VistaTexto a, VistaTexto b) noexcept;

/// The text without its leading blanks, its trailing blanks, or both. Only the space character counts as a blank.
[[nodiscard]] constexpr VistaTexto semBrancosAEsquerda(VistaTexto texto) noexcept {
    const std::size_t brancos = texto.find_first_not_of(' ');
    texto.remove_prefix(brancos == VistaTexto::npos ? texto.size() : brancos);
    return texto;
}
[[nodiscard]] constexpr VistaTexto semBrancosADireita(VistaTexto texto) noexcept {
    return texto.substr(0, texto.find_last_not_of(' ') + 1);
}
[[nodiscard]] constexpr VistaTexto semBrancos(VistaTexto texto) noexcept {
    return semBrancosADireita(semBrancosAEsquerda(texto));
}

/// The part of a text that starts at `posicao` (1-based) and has `tamanho` characters, or fewer where the text ends. A
/// position outside the text gives "".
[[nodiscard]] constexpr VistaTexto trecho(VistaTexto texto, std::size_t posicao,
                                          std::size_t tamanho = VistaTexto::npos) noexcept {
    return posicao == 0 || posicao > texto.size() ? VistaTexto() : texto.substr(posicao - 1, tamanho);
}
/// The last `tamanho` characters, or the whole text when it is shorter.
[[nodiscard]] constexpr VistaTexto ultimos(VistaTexto texto, std::size_t tamanho) noexcept {
    return tamanho < texto.size() ? texto.substr(texto.size() - tamanho) : texto;
}

/// Fills a mask with a text: from the right, each "@" is replaced by a character of the text, and the other characters
/// of the mask are copied. A short text leaves blanks on the left; the surplus of a long text stays in front.
[[nodiscard]] Texto comMascara(VistaTexto texto, VistaTexto mascara);

/// The decimal digits of `numero`, with leading zeros up to `largura` digits. The sign of a negative number comes in
/// front and is not counted.
[[nodiscard]] Texto comZeros(long long numero, std::size_t largura);

/// The decimal digits of a whole number.
[[nodiscard]] Texto textoDe(long long numero);

/// Concatenates texts.
template <typename... Partes>
[[nodiscard]] Texto junta(const Partes&... partes) {
    Texto resultado;
    resultado.reserve((VistaTexto(partes).size() + ...));
    (resultado.append(VistaTexto(partes)), ...);
    return resultado;
}

namespace detalhe {

/// The Unicode code points of the codes 80 to 9F (hex). All other codes of Windows-1252 equal those of Latin-1.
inline constexpr std::array<char16_t, 32> altos{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// The Windows-1252 code of a Unicode code point, or -1 when there is none.
constexpr int codigo1252(char32_t ponto) noexcept {
    if (ponto < 0x80 || (ponto >= 0xA0 && ponto <= 0xFF)) return static_cast<int>(ponto);
    for (std::size_t i = 0; i < altos.size(); ++i)
        if (altos[i] == ponto) return static_cast<int>(0x80 + i);
    return -1;
}

/// A code point read from UTF-8, and the number of bytes that it takes.
struct Ponto {
    char32_t valor;
    std::size_t bytes; ///< 0 when the bytes are not valid UTF-8
};

template <typename Caractere>
constexpr Ponto lerPonto(std::basic_string_view<Caractere> utf8) noexcept {
    const auto byte = [&](std::size_t i) { return static_cast<char32_t>(static_cast<unsigned char>(utf8[i])); };
    const char32_t primeiro = byte(0);
    if (primeiro < 0x80) return {primeiro, 1};
    const std::size_t bytes = primeiro >= 0xF0 && primeiro < 0xF5   ? 4
                              : primeiro >= 0xE0 && primeiro < 0xF0 ? 3
                              : primeiro >= 0xC2 && primeiro < 0xE0 ? 2
                                                                    : 0;
    if (bytes == 0 || bytes > utf8.size()) return {primeiro, 0};
    char32_t ponto = primeiro & (0x7Fu >> bytes);
    for (std::size_t i = 1; i < bytes; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return {primeiro, 0};
        ponto = (ponto << 6) | (byte(i) & 0x3F);
    }
    const bool maisCurto = (bytes == 3 && ponto < 0x800) || (bytes == 4 && ponto < 0x10000);
    const bool semCaractere = (ponto >= 0xD800 && ponto < 0xE000) || ponto > 0x10FFFF;
    if (maisCurto || semCaractere) return {primeiro, 0};
    return {ponto, bytes};
}

template <std::size_t N>
struct LiteralUtf8 {
    char bytes[N]{};
    consteval LiteralUtf8(const char (&texto)[N]) { // not explicit, so that a literal can be a template argument
        for (std::size_t i = 0; i < N; ++i)
            bytes[i] = texto[i];
    }
    [[nodiscard]] constexpr std::string_view vista() const { return {bytes, N - 1}; }
};

template <std::size_t N>
struct Literal1252 {
    std::array<char, N> bytes{};
    std::size_t tamanho = 0;
};

template <std::size_t N>
consteval Literal1252<N> converterLiteral(const LiteralUtf8<N>& literal) {
    Literal1252<N> convertido;
    for (std::string_view resto = literal.vista(); !resto.empty();) {
        const Ponto ponto = lerPonto(resto);
        const int codigo = codigo1252(ponto.valor);
        if (ponto.bytes == 0 || codigo < 0) throw "the literal has a character that Windows-1252 lacks";
        convertido.bytes[convertido.tamanho++] = static_cast<char>(codigo);
        resto.remove_prefix(ponto.bytes);
    }
    return convertido;
}

template <LiteralUtf8 literal>
inline constexpr auto literal1252 = converterLiteral(literal);

template <LiteralUtf8 literal>
inline constexpr VistaTexto vistaDoLiteral{literal1252<literal>.bytes.data(), literal1252<literal>.tamanho};

} // namespace detalhe

/// `"Número"_t` is a literal as Windows-1252 text, converted at compile time. The operator returns a reference to a
/// named constant because clang 14 crashes on a view that such a literal creates on the spot.
template <detalhe::LiteralUtf8 literal>
constexpr const VistaTexto& operator""_t() noexcept {
    static_assert(sizeof("ã") == 3, "the compiler must take literals as UTF-8");
    return detalhe::vistaDoLiteral<literal>;
}

} // namespace quilatador
