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
/// character that cannot go on. 0 when nothing was read; never fails for what the text is.
[[nodiscard]] double lerNumero(VistaTexto texto);

/// Shortest decimal form of a number: "." as decimal point, no exponent, no blank.
[[nodiscard]] Texto textoDoNumero(double numero);

/// The whole number nearest to `numero`, halves to even. `Falha` 6 ("Estouro") outside 32 (16) bits.
[[nodiscard]] std::int32_t arredondarParaLongo(double numero);
[[nodiscard]] std::int16_t arredondarParaInteiro(double numero);

/// An amount of cents, given as digits only, with the format "#,##0.00": two decimals and the separators given.
/// Computed on the digits: none is lost, however many there are. The views stay the caller's.
class Centavos {
  public:
    Centavos(VistaTexto digitos, VistaTexto separadorDeMilhar, VistaTexto separadorDecimal) noexcept
        : digitos_(digitos.substr(std::min(digitos.find_first_not_of('0'), digitos.size())))
        , milhar_(separadorDeMilhar)
        , decimal_(separadorDecimal) {}

    /// Characters of the amount as it is shown.
    [[nodiscard]] std::size_t tamanho() const noexcept {
        const std::size_t mostrados = std::max(digitos_.size(), menosDigitos);
        return mostrados + (mostrados - menosDigitos) / 3 * milhar_.size() + decimal_.size();
    }
    /// Writes them to `destino`: from the cents backwards, which tells the threes without counting them first.
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
    static constexpr std::size_t menosDigitos = 3; // "0.00"

    VistaTexto digitos_; ///< without the zeros in front
    VistaTexto milhar_;
    VistaTexto decimal_;
};

/// `Centavos` as a text; what is not all digits is read with `lerNumero` first.
[[nodiscard]] Texto formatarCentavos(VistaTexto centavos, VistaTexto separadorDeMilhar, VistaTexto separadorDecimal);

} // namespace quilatador
