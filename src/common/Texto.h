#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace quilatador {

/// What makes `Texto` a type of its own. A text from a bare pointer has no length here: a literal that lacks its `_t`,
/// whose bytes would be UTF-8, does not compile.
struct TracosDoTexto : std::char_traits<char> {
    static constexpr std::size_t length(const char*) = delete;
};

/// A text as the system holds it: Windows-1252 bytes, one a character. UTF-8 is another type (`Utf8`, or `std::string`
/// where a library wants that), and neither turns into the other, nor into a path or what a stream writes, unless one
/// of the functions below is called, which only the places do where a text enters or leaves the program. So a line
/// that would put UTF-8 into a log does not compile.
using Texto = std::basic_string<char, TracosDoTexto>;
/// A text that somebody else owns; a literal is one when it is written `"..."_t`.
using VistaTexto = std::basic_string_view<char, TracosDoTexto>;
/// A text as files of settings, terminals and windows have it.
using Utf8 = std::u8string;
using VistaUtf8 = std::u8string_view;

/// Windows-1252 text of a UTF-8 one. A character that the code page lacks becomes "?". Bytes that are no UTF-8
/// stand for themselves, so that a file name of an old system keeps its letters.
[[nodiscard]] Texto paraTexto(VistaUtf8 utf8);
/// UTF-8 of a Windows-1252 text. The five codes without a character become the control characters of that number.
[[nodiscard]] Utf8 paraUtf8(VistaTexto texto);
/// The same two, for libraries whose UTF-8 is made of `char`.
[[nodiscard]] Texto textoDeUtf8(std::string_view utf8);
[[nodiscard]] std::string utf8DeTexto(VistaTexto texto);
/// Bytes of a file or a library that are Windows-1252 already, taken for a text without a copy; and the reverse.
[[nodiscard]] constexpr VistaTexto textoDosBytes(std::string_view bytes) noexcept {
    return {bytes.data(), bytes.size()};
}
[[nodiscard]] constexpr std::string_view bytesDoTexto(VistaTexto texto) noexcept {
    return {texto.data(), texto.size()};
}
/// A path as the system shows it in a log or a message.
[[nodiscard]] Texto textoDoCaminho(const std::filesystem::path& caminho);

/// Upper case in Windows-1252: à to þ (but ÷) become À to Þ; š œ ž ÿ become Š Œ Ž Ÿ.
[[nodiscard]] Texto maiusculas(VistaTexto texto);
/// Whether two names are equal when the case of the letters A to Z does not count.
[[nodiscard]] bool iguaisSemCaixa(VistaTexto a, VistaTexto b) noexcept;

/// The text without leading blanks, without trailing blanks, without either. Only the space is a blank.
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

/// The characters from `posicao` (1-based), `tamanho` of them, or as many as there are: never fails.
[[nodiscard]] constexpr VistaTexto trecho(VistaTexto texto, std::size_t posicao,
                                          std::size_t tamanho = VistaTexto::npos) noexcept {
    return posicao == 0 || posicao > texto.size() ? VistaTexto() : texto.substr(posicao - 1, tamanho);
}
/// The last `tamanho` characters, or all where there are fewer.
[[nodiscard]] constexpr VistaTexto ultimos(VistaTexto texto, std::size_t tamanho) noexcept {
    return tamanho < texto.size() ? texto.substr(texto.size() - tamanho) : texto;
}

/// The text laid into a mask: its characters take the places "@" from the right, other characters of the mask are
/// copied. A text too short leaves blanks on the left, one too long keeps its surplus in front.
[[nodiscard]] Texto comMascara(VistaTexto texto, VistaTexto mascara);

/// Decimal digits of `numero`, with zeros in front up to `largura`; the sign of a negative number comes before them.
[[nodiscard]] Texto comZeros(long long numero, std::size_t largura);

/// A whole number in decimal digits.
[[nodiscard]] Texto textoDe(long long numero);

/// Texts joined into one.
template <typename... Partes>
[[nodiscard]] Texto junta(const Partes&... partes) {
    Texto resultado;
    resultado.reserve((VistaTexto(partes).size() + ...));
    (resultado.append(VistaTexto(partes)), ...);
    return resultado;
}

namespace detalhe {

/// Code points of the codes 80 to 9F (hex); the others of Windows-1252 are those of Latin-1.
inline constexpr std::array<char16_t, 32> altos{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

/// The Windows-1252 code of a code point, or -1.
constexpr int codigo1252(char32_t ponto) noexcept {
    if (ponto < 0x80 || (ponto >= 0xA0 && ponto <= 0xFF)) return static_cast<int>(ponto);
    for (std::size_t i = 0; i < altos.size(); ++i)
        if (altos[i] == ponto) return static_cast<int>(0x80 + i);
    return -1;
}

/// One code point read from UTF-8.
struct Ponto {
    char32_t valor;
    std::size_t bytes; ///< 0 where the bytes are no UTF-8
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
    consteval LiteralUtf8(const char (&texto)[N]) { // implicit on purpose: a literal becomes a template argument
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

/// `"Número"_t` is the Windows-1252 text of a literal, converted by the compiler. It names a constant rather than a new
/// view: clang 14 crashes where it wants to tell of a view that such a literal made on the spot.
template <detalhe::LiteralUtf8 literal>
constexpr const VistaTexto& operator""_t() noexcept {
    static_assert(sizeof("ã") == 3, "the compiler must take literals as UTF-8");
    return detalhe::vistaDoLiteral<literal>;
}

} // namespace quilatador
