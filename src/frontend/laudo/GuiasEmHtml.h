#pragma once

#include "frontend/laudo/GuiasDoLaudo.h"
#include "frontend/laudo/PecasDoLaudo.h"
#include "run/ResumoCompleto.h"

#include <cstddef>
#include <string>

namespace quilatador::laudo {

/// The section about the slips, and what of it had no room.
struct GuiasEmHtml {
    std::string html;
    std::int64_t semLinha = 0; ///< slips that are not right and have no row
    bool faltamCertas = false; ///< whether not all right ones are told by number
};

/// Writes that section with at most `bytes` bytes, or a few more where even its start is larger; "" without slips.
[[nodiscard]] GuiasEmHtml escreverGuias(const GuiasDoLaudo& guias, const ResumoCompleto& completa,
                                        const NumerosDoLaudo& numeros, std::size_t bytes);

} // namespace quilatador::laudo
