#pragma once

#include "common/Texto.h"

namespace quilatador {

// Masks of an identifier, for whoever registers payers: no check of a remittance uses them.

/// Turns a mask ("A" letter, "9" digit, separators), of which `tipo` says whether it is of letters ("A") or digits
/// ("N"), into one of places "@", appended to `mascaraConvertida`. Gives the message, "" for none; a separator sets
/// one though it is converted: kept on purpose, the test `converterMascara` holds it.
[[nodiscard]] Texto converterMascara(VistaTexto mascara, VistaTexto tipo, int tamanho, Texto& mascaraConvertida);
/// Compares an identifier with its mask and, where it fits, takes the separators out of it. Gives the message, "" for
/// none.
[[nodiscard]] Texto conferirMascara(Texto& identificador, VistaTexto mascara);

} // namespace quilatador
