#pragma once

#include "returns/AnaliseDeRetorno.h"

namespace quilatador {

/// Turns a TAV001 file (version 03), the bank's list of the payments received, into a readable report: the header, the
/// payments with the names of channel and form of payment from the code tables, and the totals. It checks nothing but
/// type and version. Amounts have the separators of the locale.
///
/// If the first line is of another type or version, there is the finding "tav001.tipoInvalido", the log ends like that
/// of a cancelled run, and the summary says `Falhou`.
Resumo tratarRetornoTAV001(Rodada& rodada, const modVariaveis& globais);

} // namespace quilatador
