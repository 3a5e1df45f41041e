#pragma once

#include "common/Texto.h"

#include <cstdint>

namespace quilatador {

/// Whether a text is numeric: blanks around it aside, an optional sign, digits and at most one decimal separator
/// ("." or ","), with at least one digit. No grouping, no exponent, no blank inside.
[[nodiscard]] bool ehNumerico(VistaTexto texto) noexcept;
/// Whether a text has only the digits 0 to 9, and at least one.
[[nodiscard]] bool soDigitos(VistaTexto texto) noexcept;

/// The number at the start of a text: blanks are skipped, "." is the decimal point, reading stops at the first
/// character that cannot go on. 0 when nothing was read; never fails.
[[nodiscard]] double lerNumero(VistaTexto texto) noexcept;

/// Shortest decimal form of a number: "." as decimal point, no exponent, no blank.
[[nodiscard]] Texto textoDoNumero(double numero);

/// The whole number nearest to `numero`, halves to even. `Falha` 6 ("Estouro") outside 32 (16) bits.
[[nodiscard]] std::int32_t arredondarParaLongo(double numero);
[[nodiscard]] std::int16_t arredondarParaInteiro(double numero);

/// An amount given in cents as digits (one that is not all digits is read with `lerNumero`), with the format
/// "#,##0.00": two decimals and the separators given. Computed on the digits: none is lost, however many there are.
[[nodiscard]] Texto formatarCentavos(VistaTexto centavos, VistaTexto separadorDeMilhar, VistaTexto separadorDecimal);

} // namespace quilatador
