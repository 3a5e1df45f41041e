#pragma once

#include "validator/Conferencia.h"
#include "validator/Definicao.h"

#include <span>

namespace quilatador {

/// Segment Y: checks the installments of a slip and their barcodes (check digits by Febraban's modulus 10 or 11)
/// against the payment options and the agreement, up to the first record with an empty line. Writes its findings in the
/// order of the log and returns true if there are none. A step with a field that cannot be read is left out.
[[nodiscard]] bool verificarSegmentoY(Rodada& rodada, std::span<const RegistroRemessa> parcelasY,
                                      const Definicao& definicao);

} // namespace quilatador
