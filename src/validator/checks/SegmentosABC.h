#pragma once

#include "validator/Conferencia.h"
#include "validator/Definicao.h"

namespace quilatador {

// The header, the company and its agreement. Each check echoes the record into the log and writes what is wrong in it,
// in the order of the log. `Falha` where a field cannot be read, which ends the run.

/// Segment A: reads `registroA`. The remittance's number goes to its label.
void verificarSegmentoA(Rodada& rodada, const Definicao& definicao);
/// Segment B: reads `registroB` and, for the CNPJ, `registroA`. The company's name goes to its label.
void verificarSegmentoB(Rodada& rodada, const Definicao& definicao);
/// Segment C: reads `registroC` and, for the CNPJ, `registroB`; sets `moeda` and `FormatoDataBarra`.
void verificarSegmentoC(Rodada& rodada, Definicao& definicao);

} // namespace quilatador
