#pragma once

#include "validator/Conferencia.h"
#include "validator/Definicao.h"

namespace quilatador {

// The payer's identifier, the receivable and its object. Each check echoes the record into the log and writes what is
// wrong in it, in the order of the log.

/// Segment D: reads `registroD` and, for the Febraban segment, `registroC`; sets what there is of the payer. A step
/// whose field cannot be read is left out.
void verificarSegmentoD(Rodada& rodada, Definicao& definicao);
/// Segment E: reads `registroE` and, for the layout's revision, `registroA`; sets `checarData` and `checarValor`.
/// `Falha` where a field cannot be read, as in segment F.
void verificarSegmentoE(Rodada& rodada, Definicao& definicao);
/// Segment F: reads `registroF` and, for the Febraban segment, `registroC`; sets `temSegmentoF`.
void verificarSegmentoF(Rodada& rodada, Definicao& definicao);

/// Whether the header's revision of the layout has the two indicators of segment E: "1.00.01".
[[nodiscard]] bool versaoComIndicadores(const Definicao& definicao);

} // namespace quilatador
