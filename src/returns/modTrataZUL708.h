#pragma once

#include "returns/AnaliseDeRetorno.h"

namespace quilatador {

/// Explains a ZUL708 file, the bank's answer to a remittance for printing: one line for each occurrence code of each
/// record, with its text from the code tables, then the numbers of records with and without occurrences. Each
/// occurrence is the finding "zul708.ocorrencia".
///
/// If the first line names another type, there is the finding "zul708.tipoInvalido", the log ends like that of a
/// cancelled run, and the summary says `Falhou`.
Resumo tratarRetornoZUL708(Rodada& rodada, const modVariaveis& globais);

} // namespace quilatador
