#pragma once

#include "common/Texto.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace quilatador {

/// Whether a text is numeric: blanks around it aside, an optional sign, digits and at most one decimal separator
/// ("." or ","), with at least one digit. No grouping, no exponent, no blank inside.
[[nodiscard]] bool ehNumerico(VistaTexto texto) noexcept;
/// Whether a text has only the digits 0 to 9, and at least one.
[[nodiscard]] bool soDigitos(VistaTexto texto) noexcept;

/// The number of a text that is up to fifteen digits and nothing else, which nearly every numeric field is; none for
/// any other text, be it numeric or not.
[[nodiscard]] constexpr std::optional<double> numeroDeDigitos(VistaTexto texto) noexcept {
    constexpr std::size_t digitosExatos = 15; // a double holds them without loss
    if (texto.empty() || texto.size() > digitosExatos) return std::nullopt;
    std::int64_t numero = 0;
    bool digitos = true;
    for (const char c : texto) {
        const int digito = c - '0';
        digitos = digitos && digito >= 0 && digito <= 9;
        numero = numero * 10 + digito;
    }
    return digitos ? std::optional(static_cast<double>(numero)) : std::nullopt;
}

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

/// The same at the end of `destino`, for cents that are digits only.
template <typename Destino>
void juntarCentavos(Destino& destino, VistaTexto digitos, VistaTexto separadorDeMilhar, VistaTexto separadorDecimal) {
    constexpr std::size_t decimais = 2;
    digitos.remove_prefix(std::min(digitos.find_first_not_of('0'), digitos.size()));
    if (digitos.size() <= decimais) {
        destino.append("0").append(separadorDecimal).append(VistaTexto("00").substr(digitos.size())).append(digitos);
        return;
    }
    const std::size_t inteiros = digitos.size() - decimais;
    const std::size_t primeiros = (inteiros - 1) % 3 + 1; // the rest is threes
    destino.append(digitos.substr(0, primeiros));
    for (std::size_t i = primeiros; i < inteiros; i += 3)
        destino.append(separadorDeMilhar).append({digitos.data() + i, 3});
    destino.append(separadorDecimal).append(digitos.substr(inteiros));
}

} // namespace quilatador
