#pragma once

#include "returns/AnaliseDeRetorno.h"

namespace quilatador {

/// Turns a TAV001 (version 03), the bank's list of the payments received, into a readable report: header, payments
/// with the names of channel and form from the code tables, totals. It checks nothing but type and version.
///
/// A first line of another type or version ends the run as a cancelled one, `Falhou` in the summary, with the finding
/// "tav001.tipoInvalido". Amounts have the separators of the locale.
Resumo tratarRetornoTAV001(Rodada& rodada, const modVariaveis& globais);

} // namespace quilatador
