#pragma once

#include "common/Texto.h"

namespace quilatador::modDepuracao {

/// Lists the characters of a line that the bank does not accept: accented letters, ordinals and "&". Each gives the
/// character, its position (1-based) in parentheses and ", ". A line without such characters gives "".
[[nodiscard]] Texto caracteresEspeciais(VistaTexto texto);

/// Whether a character code is one of the digits 0 to 9.
[[nodiscard]] constexpr bool isDigito(int codigo) noexcept {
    return codigo >= '0' && codigo <= '9';
}

} // namespace quilatador::modDepuracao
