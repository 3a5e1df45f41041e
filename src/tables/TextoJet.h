#pragma once

#include "tables/FormatoJet.h"

#include <string>
#include <string_view>

namespace quilatador {

/// UTF-8 of a text as rows and definitions have it. Jet 3 has Windows-1252. Jet 4 has UTF-16, or, behind the mark FF
/// FE, one byte a character; there a NUL changes to two bytes a character, and the next one back. A half of a character
/// pair becomes "?", a single byte at the end is dropped.
[[nodiscard]] std::string utf8DoTextoJet(std::string_view bytes, VersaoJet versao);

} // namespace quilatador
