#pragma once

#include "common/Data.h"
#include "common/Texto.h"
#include "common/Valor.h"

#include <optional>

namespace quilatador {

/// Conversions of texts, numbers and dates, without state. What depends on the current year takes it as an argument.
class Diversos {
  public:
    /// "" where the value is null, else its text.
    [[nodiscard]] static Texto VazioSeNulo(const Valor& valor);
    /// "null" where the text is empty, else the text between single quotes; quotes inside are not doubled.
    [[nodiscard]] static Texto NuloSeVazio(VistaTexto texto);
    /// "Null" where the value is empty; a date as "#mm/dd/yyyy#"; anything else as its text.
    [[nodiscard]] static Texto NuloSeEmpty(const Valor& valor);
    /// Empty where the value is null, else the value.
    [[nodiscard]] static Valor EmptySeNulo(const Valor& valor);
    /// "null" where the value equals 0, else its text.
    [[nodiscard]] static Texto NuloSeZero(const Valor& valor);
    /// 0 where the value is null, else the value.
    [[nodiscard]] static Valor ZeroSeNulo(const Valor& valor);
    /// Whether the text is numeric (`ehNumerico`) and has no blank at all.
    [[nodiscard]] static bool TodoNumerico(VistaTexto texto) noexcept;
    /// The text in `tamanho` characters: filled on the left (`padL`) or right (`padR`) with `caractere`; a longer one
    /// keeps its last (first) characters.
    [[nodiscard]] static Texto padL(VistaTexto texto, std::size_t tamanho, char caractere = ' ');
    [[nodiscard]] static Texto padR(VistaTexto texto, std::size_t tamanho, char caractere = ' ');

    /// The day of the year (three digits) with the last digit, or the last two, of the year: `formato` "YNNN",
    /// "YYNNN", "NNNY" or "NNNYY". Any other format gives "".
    [[nodiscard]] static Texto Data2Juliana(const Data& data, VistaTexto formato = "YNNN"_t);
    /// The date of a year digit followed by the day of the year. The year is the one of that digit in the current
    /// decade, moved by ten where it lies more than five years away. A day past the end of the year runs into the
    /// next. `Falha` 13 where the text is not all digits, 6 where the date is out of range.
    [[nodiscard]] static Data Juliana2Data(VistaTexto texto, int anoCorrente);
    /// The date written with `formato`: as `Data2Juliana` where it contains "N", else as `formatarData`.
    [[nodiscard]] static Texto FormatarData(const Data& data, VistaTexto formato);
    /// The date of a text in one of the layout's formats: "AAAAMMDD", "AAMMDD", "DDMMAAAA", "DDMMAA", "ADDD", "DDDA",
    /// "AADDD" (its tens digit of the year is ignored). None where the text is no date or the format is another.
    [[nodiscard]] static std::optional<Data> String2Data(VistaTexto texto, VistaTexto formato, int anoCorrente);
    /// The day-first text (`lerData`) of a calendar date in one of the four formats without day of the year; "" for
    /// any other format.
    [[nodiscard]] static Texto textoDeData(VistaTexto texto, VistaTexto formato);

    /// Upper case without accents, for output lines; the length stays. Despite the name it makes no EBCDIC.
    [[nodiscard]] static Texto ConverteASC2EBCDIC(VistaTexto texto);
};

} // namespace quilatador
