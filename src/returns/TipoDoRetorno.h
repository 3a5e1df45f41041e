#pragma once

#include "run/Achado.h"
#include "run/TipoArquivo.h"

#include <optional>

namespace quilatador {

/// The structural finding that says why the first line of a file is no header of a return of type `tipo`, ZUL708 or
/// TAV001 (version 03); nothing if it is one.
[[nodiscard]] std::optional<Achado> recusaDoTipo(TipoArquivo tipo, VistaTexto primeiraLinha);

} // namespace quilatador
