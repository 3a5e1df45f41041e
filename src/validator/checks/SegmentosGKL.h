#pragma once

#include "validator/Conferencia.h"
#include "validator/Definicao.h"

namespace quilatador {

// The checks of definitions that may occur several times. Each one echoes its record to the log and keeps a copy of it
// among the accepted ones, unless a fault makes it unusable. A field that cannot be read raises a `Falha`, which ends
// the run.

/// Segment G, a characteristic of the object. Adds to `caracteristicas`.
void verificarSegmentoG(Apontador& apontador, const RegistroRemessa& registro, Definicao& definicao);
/// Segment K, a revenue. Adds to `receitas`.
void verificarSegmentoK(Apontador& apontador, const RegistroRemessa& registro, Definicao& definicao);
/// Segment L, a payment option. Adds to `opcoesPagamento`.
void verificarSegmentoL(Apontador& apontador, const RegistroRemessa& registro, Definicao& definicao);

} // namespace quilatador
