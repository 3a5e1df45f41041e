#pragma once

#include "common/Texto.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace quilatador {

/// Whether the text is numeric: an optional sign, then digits with at most one decimal separator ("." or ","), and at
/// least one digit. Blanks around it are ignored. Digit grouping, exponents and blanks inside are not accepted.
[[nodiscard]] bool ehNumerico(VistaTexto texto) noexcept;
/// Whether the text consists of the digits 0 to 9 only. An empty text does not.
[[nodiscard]] bool soDigitos(VistaTexto texto) noexcept;

/// A fast path for the form that most numeric fields have: one to fifteen digits and nothing else. Any other text, even
/// a numeric one, gives nothing.
[[nodiscard]] constexpr std::optional<double> numeroDeDigitos(VistaTexto texto) noexcept {
    constexpr std::size_t digitosExatos = 15; // a double holds this many digits exactly
    if (texto.empty() || texto.size() > digitosExatos) return std::nullopt;
    std::uint64_t numero = 0;
    bool digitos = true;
    for (const char c : texto) { // without a branch, since nearly all fields are digits to their end
        const unsigned digito = static_cast<unsigned char>(c) - unsigned{'0'};
        digitos &= digito <= 9;
        numero = numero * 10 + digito;
    }
    return digitos ? std::optional(static_cast<double>(static_cast<std::int64_t>(numero))) : std::nullopt;
}

/// Reads the number at the start of a text. Blanks are skipped, "." is the decimal point, and reading stops at the
/// first character that does not continue the number. The result is 0 when there is no number; no text makes it fail.
[[nodiscard]] double lerNumero(VistaTexto texto);

/// The shortest decimal form of a number, with "." as decimal point and without exponent or blanks.
[[nodiscard]] Texto textoDoNumero(double numero);

/// The digits of a whole number that is not negative, in groups of three.
[[nodiscard]] Texto comMilhares(std::int64_t numero, VistaTexto separadorDeMilhar);

/// The nearest whole number, where halves go to the even neighbour. Raises `Falha` 6 ("Estouro") when the result does
/// not fit into 64 bits (`arredondarParaContagem`), 32 bits (`arredondarParaLongo`) or 16 bits
/// (`arredondarParaInteiro`).
[[nodiscard]] std::int64_t arredondarParaContagem(double numero);
[[nodiscard]] std::int32_t arredondarParaLongo(double numero);
[[nodiscard]] std::int16_t arredondarParaInteiro(double numero);

/// Formats an amount of cents like "1.234,56", with the given separators. `digitos` must be digits only; it may have
/// any number of them, since no arithmetic is done. The caller owns all three texts, which must outlive this object.
class Centavos {
  public:
    Centavos(VistaTexto digitos, VistaTexto separadorDeMilhar, VistaTexto separadorDecimal) noexcept
        : digitos_(digitos.substr(std::min(digitos.find_first_not_of('0'), digitos.size())))
        , milhar_(separadorDeMilhar)
        , decimal_(separadorDecimal) {}

    /// Length of the formatted amount, in characters.
    [[nodiscard]] std::size_t tamanho() const noexcept {
        const std::size_t mostrados = std::max(digitos_.size(), menosDigitos);
        return mostrados + (mostrados - menosDigitos) / 3 * milhar_.size() + decimal_.size();
    }
    /// Writes `tamanho()` characters to `destino`. It goes from the cents to the left, so that the groups of three need
    /// not be counted beforehand.
    void escrever(char* destino) const noexcept {
        char* lugar = destino + tamanho();
        std::size_t restam = digitos_.size();
        const auto escreverDigito = [&] { *--lugar = restam == 0 ? '0' : digitos_[--restam]; };
        const auto separar = [&](VistaTexto separador) {
            for (std::size_t i = separador.size(); i > 0; --i)
                *--lugar = separador[i - 1];
        };
        escreverDigito();
        escreverDigito();
        separar(decimal_);
        escreverDigito();
        int inteiros = 1;
        while (restam > 0) {
            if (inteiros++ % 3 == 0) separar(milhar_);
            escreverDigito();
        }
    }

  private:
    static constexpr std::size_t menosDigitos = 3; // as in "0.00"

    VistaTexto digitos_; ///< without leading zeros
    VistaTexto milhar_;
    VistaTexto decimal_;
};

/// Formats an amount of cents as `Centavos` does. A text that is not all digits is first read by the rules of
/// `lerNumero`, but in decimal, and rounded to whole cents, halves away from zero; a zero has no sign.
[[nodiscard]] Texto formatarCentavos(VistaTexto centavos, VistaTexto separadorDeMilhar, VistaTexto separadorDecimal);

} // namespace quilatador
