#pragma once

#include "common/Texto.h"

#include <ostream>

/// Every test program includes this, so that a failing test shows its texts as people read them.
namespace quilatador {

// NOLINTNEXTLINE(readability-identifier-naming): GoogleTest looks for this name
inline void PrintTo(VistaTexto texto, std::ostream* saida) {
    *saida << '"' << utf8DeTexto(texto) << '"';
}
// NOLINTNEXTLINE(readability-identifier-naming)
inline void PrintTo(const Texto& texto, std::ostream* saida) {
    PrintTo(VistaTexto(texto), saida);
}
inline std::ostream& operator<<(std::ostream& saida, VistaTexto texto) {
    return saida << utf8DeTexto(texto);
}

} // namespace quilatador
