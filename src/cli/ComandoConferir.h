#pragma once

#include "cli/Sessao.h"

namespace quilatador {

/// `--conferir LAUDO`: tells whether the file is the one of a report, by its SHA-256. Returns the exit status: 0 if it
/// is, 1 if it is not, 2 if that could not be told.
[[nodiscard]] int conferirLaudo(Sessao& sessao);

} // namespace quilatador
