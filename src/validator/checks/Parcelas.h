#pragma once

#include "validator/Conferencia.h"
#include "validator/Definicao.h"

#include <span>

namespace quilatador {

/// Segment Y: the slip's installments with their barcodes, up to the first without a line, against the payment options
/// and the agreement. Writes what is wrong, in the order of the log; true where nothing is. A step with a field that
/// cannot be read is left out.
[[nodiscard]] bool verificarSegmentoY(Rodada& rodada, std::span<const RegistroRemessa> parcelasY,
                                      const Definicao& definicao);

} // namespace quilatador
