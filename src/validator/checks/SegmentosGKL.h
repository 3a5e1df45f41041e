#pragma once

#include "validator/Conferencia.h"
#include "validator/Definicao.h"

namespace quilatador {

// Definitions that may stand several times. Each check keeps the record among those accepted, and echoes it, unless
// something is wrong that makes it useless. `Falha` where a field cannot be read, which ends the run.

/// Segment G, a characteristic of the object: adds to `caracteristicas`.
void verificarSegmentoG(Rodada& rodada, const RegistroRemessa& registro, Definicao& definicao);
/// Segment K, a revenue: adds to `receitas`.
void verificarSegmentoK(Rodada& rodada, const RegistroRemessa& registro, Definicao& definicao);
/// Segment L, a payment option: adds to `opcoesPagamento`.
void verificarSegmentoL(Rodada& rodada, const RegistroRemessa& registro, Definicao& definicao);

} // namespace quilatador
