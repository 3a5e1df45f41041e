#pragma once

#include "validator/Apontador.h"
#include "validator/Definicao.h"
#include "validator/GuiaEmMaos.h"

namespace quilatador {

// What is done with each record of a remittance as it comes, before the slip that it belongs to can be checked.
// `linha` is the line number of findings, 1-based.

/// Any record: reports the characters that the bank does not accept.
void verificarCaracteres(Apontador& apontador, const RegistroRemessa& registro, char letra, std::int64_t linha);

/// A to L: keeps a definition and hands it to the check of its letter. H, I and J have no content checks, and a letter
/// that is none of these is passed over.
void verificarDefinicao(Apontador& apontador, const RegistroRemessa& registro, char letra, Definicao& definicao);

/// T to Y: keeps a record in the slip. Messages and installments beyond the allowed number are reported instead.
void guardarNaGuia(Apontador& apontador, const RegistroRemessa& registro, char letra, std::int64_t linha,
                   GuiaEmMaos& guia, const Definicao& definicao);

} // namespace quilatador
