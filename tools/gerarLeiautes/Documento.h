#pragma once

#include "layout/ArquivoRemessa.h"

#include <string>
#include <string_view>

namespace quilatador::leiautes {

/// Fills in a template (UTF-8): each "<!-- registro NAME -->" becomes an HTML table with the fields of that record type
/// and their positions. Raises `Falha` 1 when a record type does not appear in the template or the template names an
/// unknown one, so that the document always describes this layout.
[[nodiscard]] std::string preencher(std::string_view modelo, const ArquivoRemessa& leiaute);

} // namespace quilatador::leiautes
