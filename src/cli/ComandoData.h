#pragma once

#include "cli/Sessao.h"

namespace quilatador {

/// `--sugerir-data`: prints where the barcodes of the file carry the due date, or its JSON object. Returns the exit
/// status: 0 if some format at some position agrees with all installments.
[[nodiscard]] int sugerirData(Sessao& sessao);

} // namespace quilatador
