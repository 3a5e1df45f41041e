#pragma once

#include "validator/Conferencia.h"
#include "validator/Definicao.h"

namespace quilatador {

/// Segment Y: checks the installments of a slip and their barcodes (check digits by Febraban's modulus 10 or 11)
/// against the payment options and the agreement. Writes its findings in the order of the log and returns true if there
/// are none. A step with a field that cannot be read is left out. There may be very many installments, so the check
/// ends early if the run is cancelled meanwhile; what it returns then means nothing.
[[nodiscard]] bool verificarSegmentoY(Apontador& apontador, const RegistrosGuardados& parcelasY,
                                      const Definicao& definicao);

} // namespace quilatador
