#pragma once

#include "cli/Sessao.h"

namespace quilatador {

/// `--linha N`: prints line N of the file, field by field, or its JSON object. Returns the exit status.
[[nodiscard]] int mostrarLinha(Sessao& sessao);

} // namespace quilatador
