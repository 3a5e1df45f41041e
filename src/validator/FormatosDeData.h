#pragma once

#include "common/Texto.h"

#include <algorithm>
#include <array>
#include <optional>

namespace quilatador {

/// A format of the due date in the barcode, and the code by which segment C names it ("FormatoData"). The format ""
/// says that the barcode has no date.
struct FormatoDeData {
    VistaTexto codigo;
    VistaTexto formato; ///< as `Diversos::String2Data` reads it
};

inline constexpr std::array formatosDeData{FormatoDeData{"1"_t, ""_t},         FormatoDeData{"2"_t, "DDMMAA"_t},
                                           FormatoDeData{"3"_t, "AAMMDD"_t},   FormatoDeData{"4"_t, "AAAAMMDD"_t},
                                           FormatoDeData{"5"_t, "ADDD"_t},     FormatoDeData{"6"_t, "DDDA"_t},
                                           FormatoDeData{"7"_t, "DDMMAAAA"_t}, FormatoDeData{"9"_t, "AADDD"_t}};

/// The format that a code names; nothing for an unknown code.
[[nodiscard]] constexpr std::optional<VistaTexto> formatoDoCodigo(VistaTexto codigo) noexcept {
    const auto formato = std::ranges::find(formatosDeData, codigo, &FormatoDeData::codigo);
    if (formato == formatosDeData.end()) return std::nullopt;
    return formato->formato;
}

} // namespace quilatador
