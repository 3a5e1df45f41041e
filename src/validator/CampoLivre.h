#pragma once

/// The free field of a barcode, in which the company may write the due date. Positions are 1-based.
namespace quilatador::campoLivre {

inline constexpr int tamanhoDaBarra = 44;
inline constexpr int primeiraPosicao = 20;
inline constexpr int ultimaPosicao = 41; ///< at which a date may start

/// The last position at which a date of so many characters fits into the barcode, whose last position it leaves free.
[[nodiscard]] constexpr int ultimaPosicaoPara(int caracteres) noexcept {
    return tamanhoDaBarra - caracteres;
}

} // namespace quilatador::campoLivre
