#pragma once

#include "returns/AnaliseDeRetorno.h"

namespace quilatador {

/// Explains a ZUL708, the bank's answer to a print remittance: one line for each occurrence code of each record, with
/// its text from the code tables, then the records with and without occurrences.
///
/// A first line that names another type ends the run as a cancelled one, `Falhou` in the summary. Findings:
/// "zul708.tipoInvalido", "zul708.ocorrencia".
Resumo tratarRetornoZUL708(Rodada& rodada, const modVariaveis& globais);

} // namespace quilatador
