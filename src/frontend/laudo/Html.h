#pragma once

#include "common/Texto.h"

#include <string>
#include <string_view>

namespace quilatador {

/// Texts as they may stand in HTML, in UTF-8: between tags and within an attribute in quotation marks. Nothing in them
/// is taken for markup, wherever they come from. Control characters (00 to 1F and 7F hex) become "‹1A›", the codes
/// without a character "�", and a no-break space "⍽".
[[nodiscard]] std::string paraHtml(VistaTexto texto);
/// The same for what stands in a file, with a mark for each blank; many in a row are counted. Only the first characters
/// of a long text are kept, and how many are left out is said.
[[nodiscard]] std::string bytesParaHtml(VistaTexto bytes);
/// Two texts of the file, to be shown one below the other: where they have the same length, what differs is marked.
struct ParDeTextos {
    std::string primeiro;
    std::string segundo;
};
[[nodiscard]] ParDeTextos compararEmHtml(VistaTexto primeiro, VistaTexto segundo);

/// Concatenates pieces of HTML.
template <typename... Partes>
[[nodiscard]] std::string unir(const Partes&... partes) {
    std::string resultado;
    resultado.reserve((std::string_view(partes).size() + ...));
    (resultado.append(std::string_view(partes)), ...);
    return resultado;
}

} // namespace quilatador
