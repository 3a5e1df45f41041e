#pragma once

#include "validator/Conferencia.h"
#include "validator/Definicao.h"

namespace quilatador {

// The checks of the payer's identifier, the receivable and its object. Each one echoes its record to the log and writes
// what is wrong with it, in the order of the log.

/// Segment D, the payer. Reads `registroD` and, for the Febraban segment, `registroC`; sets `temTransmitente`,
/// `siglaIdentificador` and `tamanhoIdentificador`. A step with a field that cannot be read is left out.
void verificarSegmentoD(Apontador& apontador, Definicao& definicao);
/// Segment E, the receivable. Reads `registroE` and, for the revision of the layout, `registroA`; sets `checarData` and
/// `checarValor`. A field that cannot be read raises a `Falha`, which ends the run; so it does in segment F.
void verificarSegmentoE(Apontador& apontador, Definicao& definicao);
/// Segment F, the object. Reads `registroF` and, for the Febraban segment, `registroC`; sets `temSegmentoF`.
void verificarSegmentoF(Apontador& apontador, Definicao& definicao);

/// Whether the header (`registroA`) names the revision of the layout in which segment E has two indicators: "1.00.01".
[[nodiscard]] bool versaoComIndicadores(const Definicao& definicao);

} // namespace quilatador
