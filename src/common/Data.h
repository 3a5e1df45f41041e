#pragma once

#include "common/Texto.h"

#include <chrono>
#include <optional>

namespace quilatador {

/// A calendar date (Gregorian), without time.
using Data = std::chrono::year_month_day;

[[nodiscard]] Data fazData(int ano, unsigned mes, unsigned dia) noexcept;
[[nodiscard]] int anoDe(const Data& data) noexcept;
/// 1 for 1 January, 365 or 366 for 31 December.
[[nodiscard]] int diaDoAno(const Data& data) noexcept;
/// The date `dias` days after (before, when negative). `Falha` 6 ("Estouro") outside the years 100 to 9999.
[[nodiscard]] Data somarDias(const Data& data, long long dias);
/// Days since 30 December 1899, which is how a date compares with a number.
[[nodiscard]] int numeroDeSerie(const Data& data) noexcept;

/// The date that a text "day/month/year" stands for, or none. Each piece is digits only. A year of up to two digits
/// is 2000 to 2029 for 00 to 29 and 1930 to 1999 for 30 to 99; a longer one lies in 100 to 9999. Where no day-first
/// date is possible, but a month-first one is, that is taken.
[[nodiscard]] std::optional<Data> lerData(VistaTexto texto);

/// A date written with a format of the tokens "YYYY", "YY", "MM", "DD" (either letter case); other characters are
/// copied.
[[nodiscard]] Texto formatarData(const Data& data, VistaTexto formato);

} // namespace quilatador
