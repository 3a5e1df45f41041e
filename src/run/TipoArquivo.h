#pragma once

#include "common/Texto.h"

namespace quilatador {

/// The types of files that can be analysed.
enum class TipoArquivo {
    ZUL702, ///< remittance for printing
    ZUL708, ///< return that answers a ZUL702
    TAV001  ///< return about settled payments
};

/// The name that the bank gives to files of this type.
[[nodiscard]] constexpr VistaTexto nomeDo(TipoArquivo tipo) noexcept {
    switch (tipo) {
    case TipoArquivo::ZUL702:
        return "ZUL702"_t;
    case TipoArquivo::ZUL708:
        return "ZUL708"_t;
    case TipoArquivo::TAV001:
        return "TAV001"_t;
    }
    return {};
}

} // namespace quilatador
