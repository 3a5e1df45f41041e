#pragma once

#include "layout/RegistroRemessa.h"

#include <vector>

namespace quilatador {

/// One piece of a line: a field of its layout, or what no field covers, which has no name.
struct PedacoDaRegua {
    enum class Estado {
        Lido,
        EmBranco, ///< only blanks; also a date of zeros, which counts as none
        Ilegivel, ///< a number or a date that cannot be read
        Cortado,  ///< the line ends within the field or before it
        Sobra     ///< behind the last field
    };

    Texto campo;
    int inicio = 0; ///< 1-based and inclusive, as `fim`
    int fim = 0;
    Texto texto; ///< the bytes of the line, blanks included
    Texto valor; ///< for people: a number with a decimal comma, a date as "DD/MM/AAAA"; "" if there is none
    Estado estado = Estado::Lido;

    bool operator==(const PedacoDaRegua&) const = default;
};

/// The line of a lazy record, cut into its pieces from left to right. It never fails: a field that cannot be read says
/// so in its state. A field without width has no piece.
[[nodiscard]] std::vector<PedacoDaRegua> regua(const RegistroRemessa& registro);
/// The same for a line of no known type: one piece that no field covers, or none if the line is empty.
[[nodiscard]] std::vector<PedacoDaRegua> regua(VistaTexto linhaSemTipo);

} // namespace quilatador
