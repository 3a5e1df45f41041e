#pragma once

#include "common/Texto.h"

#include <chrono>
#include <optional>

namespace quilatador {

/// A date in the Gregorian calendar, without a time of day.
using Data = std::chrono::year_month_day;

/// Puts a date together without checking it: `ok()` of the result tells whether such a day exists.
[[nodiscard]] Data fazData(int ano, unsigned mes, unsigned dia) noexcept;
[[nodiscard]] int anoDe(const Data& data) noexcept;
/// The day of the year: 1 for 1 January, 365 or 366 for 31 December.
[[nodiscard]] int diaDoAno(const Data& data) noexcept;
/// The date `dias` days later, or earlier when the number is negative. Raises `Falha` 6 ("Estouro") when the result
/// lies outside the years 100 to 9999.
[[nodiscard]] Data somarDias(const Data& data, long long dias);
/// The number of days since 30 December 1899, by which a date is compared with a number.
[[nodiscard]] int numeroDeSerie(const Data& data) noexcept;

/// Reads a date written as "day/month/year", each part in digits only; any other text gives nothing. Years of one or
/// two digits mean 2000 to 2029 (00 to 29) or 1930 to 1999 (30 to 99); longer ones must lie in 100 to 9999. A date that
/// is only possible as "month/day/year" is read that way.
[[nodiscard]] std::optional<Data> lerData(VistaTexto texto);
/// The same for a date whose parts are known.
[[nodiscard]] std::optional<Data> lerData(VistaTexto dia, VistaTexto mes, VistaTexto ano);

/// Writes a date by a format of the symbols "YYYY", "YY", "MM" and "DD", in upper or lower case. All other characters
/// of the format are copied.
[[nodiscard]] Texto formatarData(const Data& data, VistaTexto formato);

} // namespace quilatador
