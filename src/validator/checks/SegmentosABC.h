#pragma once

#include "validator/Conferencia.h"
#include "validator/Definicao.h"

namespace quilatador {

// The checks of the header, the company and its agreement. Each one echoes its record to the log and writes what is
// wrong with it, in the order of the log. A field that cannot be read raises a `Falha`, which ends the run. CNPJs have
// the check digits of the Receita Federal (modulus 11).

/// Segment A, the header. Reads `registroA` and shows the number of the remittance in its label.
void verificarSegmentoA(Apontador& apontador, const Definicao& definicao);
/// Segment B, the company. Reads `registroB` and, for the CNPJ, `registroA`; shows the company's name in its label.
void verificarSegmentoB(Apontador& apontador, const Definicao& definicao);
/// Segment C, the agreement. Reads `registroC` and, for the CNPJ, `registroB`; sets `moeda` and `FormatoDataBarra`.
void verificarSegmentoC(Apontador& apontador, Definicao& definicao);

} // namespace quilatador
