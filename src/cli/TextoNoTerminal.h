#pragma once

#include "common/Texto.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace quilatador {

/// The text for a terminal: in UTF-8, its control characters (00 to 1F and 7F to 9F hex) written as "\xNN".
[[nodiscard]] std::string paraTerminal(VistaTexto texto);
/// The same, with a mark for each blank; many in a row are counted.
[[nodiscard]] std::string comBrancosVisiveis(VistaTexto texto);
/// The same where an empty text would not be noticed: a word stands for it.
[[nodiscard]] std::string ouNada(VistaTexto texto);
/// The number of characters of a text in UTF-8.
[[nodiscard]] std::size_t largura(std::string_view utf8);

} // namespace quilatador
