#pragma once

#include "common/Texto.h"

namespace quilatador {

// Masks of an identifier, for programs that register payers. No check of a remittance uses them.

/// Converts a mask ("A" for a letter, "9" for a digit, and separators) to one with "@" for each place, which is
/// appended to `mascaraConvertida`. `tipo` is "A" or "N": the mask is of letters or of digits; any other type does
/// nothing. `tamanho` is the largest allowed number of places. Returns the message, "" if there is none. A separator
/// causes a message although it is converted: kept on purpose, the test `converterMascara` holds it.
[[nodiscard]] Texto converterMascara(VistaTexto mascara, VistaTexto tipo, int tamanho, Texto& mascaraConvertida);
/// Compares an identifier with its mask, in which "9" stands for a digit and "A" for any character. If it matches, its
/// separators are removed. Returns the message, "" if there is none.
[[nodiscard]] Texto conferirMascara(Texto& identificador, VistaTexto mascara);

} // namespace quilatador
