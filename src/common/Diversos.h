#pragma once

#include "common/Data.h"
#include "common/Texto.h"
#include "common/Valor.h"

#include <optional>

namespace quilatador {

/// Conversions between texts, numbers and dates, without any state. Functions that depend on the current year take it
/// as an argument.
class Diversos {
  public:
    /// The text of the value, or "" when it is null.
    [[nodiscard]] static Texto VazioSeNulo(const Valor& valor);
    /// The text between single quotes, or "null" when it is empty. Quotes inside the text are not doubled.
    [[nodiscard]] static Texto NuloSeVazio(VistaTexto texto);
    /// "Null" when the value is empty, "#mm/dd/yyyy#" for a date, and the text of any other value.
    [[nodiscard]] static Texto NuloSeEmpty(const Valor& valor);
    /// The value itself, or the empty value when it is null.
    [[nodiscard]] static Valor EmptySeNulo(const Valor& valor);
    /// The text of the value, or "null" when the value equals 0.
    [[nodiscard]] static Texto NuloSeZero(const Valor& valor);
    /// The value itself, or 0 when it is null.
    [[nodiscard]] static Valor ZeroSeNulo(const Valor& valor);
    /// Whether the text is numeric (see `ehNumerico`) and has no blank anywhere.
    [[nodiscard]] static bool TodoNumerico(VistaTexto texto) noexcept;
    /// Brings the text to exactly `tamanho` characters. `padL` fills it with `caractere` on the left, `padR` on the
    /// right. Of a longer text, `padL` keeps the last characters and `padR` the first.
    [[nodiscard]] static Texto padL(VistaTexto texto, std::size_t tamanho, char caractere = ' ');
    [[nodiscard]] static Texto padR(VistaTexto texto, std::size_t tamanho, char caractere = ' ');

    /// The day of the year in three digits (N) combined with the last one or two digits of the year (Y). `formato` is
    /// "YNNN", "YYNNN", "NNNY" or "NNNYY"; any other format gives "".
    [[nodiscard]] static Texto Data2Juliana(const Data& data, VistaTexto formato = "YNNN"_t);
    /// The date of a text with one digit of the year followed by the day of the year. The digit means a year of the
    /// current decade, moved by ten years when it lies more than five years away. A day beyond the end of the year runs
    /// into the next. Raises `Falha` 13 when the text is not all digits, 6 when the date is out of range.
    [[nodiscard]] static Data Juliana2Data(VistaTexto texto, int anoCorrente);
    /// Writes a date: with `Data2Juliana` when the format contains "N", and with `formatarData` otherwise.
    [[nodiscard]] static Texto FormatarData(const Data& data, VistaTexto formato);
    /// Reads a date in one of the layout's formats: "AAAAMMDD", "AAMMDD", "DDMMAAAA", "DDMMAA", "ADDD", "DDDA" or
    /// "AADDD" (the first A is ignored). Gives nothing for another format or a text that is not such a date; it never
    /// fails.
    [[nodiscard]] static std::optional<Data> String2Data(VistaTexto texto, VistaTexto formato, int anoCorrente);
    /// Rearranges a text in one of the four formats without a day of the year into "day/month/year", as `lerData`
    /// expects it. Any other format gives "".
    [[nodiscard]] static Texto textoDeData(VistaTexto texto, VistaTexto formato);
    /// The date that `lerData` reads in that text; nothing if it is none.
    [[nodiscard]] static std::optional<Data> lerDataDoFormato(VistaTexto texto, VistaTexto formato);

    /// Converts a line for output to upper case without accents; its length does not change. Despite the name, the
    /// result is not EBCDIC.
    [[nodiscard]] static Texto ConverteASC2EBCDIC(VistaTexto texto);
};

} // namespace quilatador
