#pragma once

#include "tables/FormatoJet.h"

#include <string>
#include <string_view>

namespace quilatador {

/// Converts a text from a row or a definition to UTF-8. In Jet 3 it is Windows-1252. In Jet 4 it is UTF-16, or
/// compressed after the mark FF FE: one byte per character, where each NUL switches between one and two bytes per
/// character. Half of a surrogate pair becomes "?", and a single byte at the end is dropped.
[[nodiscard]] std::string utf8DoTextoJet(std::string_view bytes, VersaoJet versao);

} // namespace quilatador
