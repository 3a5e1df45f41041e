#pragma once

#include <string_view>

namespace quilatador::laudo {

/// What every report has in it, so that it needs nothing from outside: the style sheet, the signs that the texts refer
/// to, and the script, without which the report can be read all the same. UTF-8.
extern const std::string_view estilo;
extern const std::string_view sinais;
extern const std::string_view roteiro;

} // namespace quilatador::laudo
