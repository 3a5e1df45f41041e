#pragma once

#include "common/Texto.h"

namespace quilatador::modDepuracao {

/// The accented letters, ordinals and "&" of a line, which the bank does not accept: for each, the character, its
/// position (1-based) in parentheses and ", ". "" where the line has none.
[[nodiscard]] Texto caracteresEspeciais(VistaTexto texto);

/// Whether a character code is that of one of the digits 0 to 9.
[[nodiscard]] constexpr bool isDigito(int codigo) noexcept {
    return codigo >= '0' && codigo <= '9';
}

} // namespace quilatador::modDepuracao
