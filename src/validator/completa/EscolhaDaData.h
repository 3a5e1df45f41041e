#pragma once

#include "validator/completa/Coletor.h"
#include "validator/DatasDaRemessa.h"

namespace quilatador {

/// Tells, before anything else, that the format and the position at which the barcodes are to have their due date fit
/// none of the installments, and what does fit: all that is then said of these dates follows from it. The format is
/// that of segment C, or `formato` where it names none; `posicao` is 1-based.
void julgarEscolhaDaData(Coletor& coletor, const DatasDaRemessa& datas, const CampoRemessa& formatoData,
                         VistaTexto formato, int posicao);

} // namespace quilatador
