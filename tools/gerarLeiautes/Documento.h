#pragma once

#include "layout/ArquivoRemessa.h"

#include <string>
#include <string_view>

namespace quilatador::leiautes {

/// The document made of a template (UTF-8): each place "<!-- registro NAME -->" becomes an HTML table of that record
/// type's fields with their positions. `Falha` 1 where a record type has no place, or a place no record type, so that
/// the document never tells of another layout.
[[nodiscard]] std::string preencher(std::string_view modelo, const ArquivoRemessa& leiaute);

} // namespace quilatador::leiautes
