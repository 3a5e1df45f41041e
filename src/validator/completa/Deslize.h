#pragma once

#include "layout/RegistroRemessa.h"

#include <optional>

namespace quilatador {

/// Where and why a line slipped: from some place on, its fields are not where the layout has them. Positions are
/// 1-based and count the bytes of the line as it stands in the file.
struct Deslize {
    enum class Causa {
        ParUtf8,       ///< a character that takes two to four bytes in UTF-8
        Bom,           ///< a byte order mark of UTF-8
        EspacoRigido,  ///< a no-break space, in UTF-8 or as the byte A0
        Tabulacao,     ///< a tab, also in place of several blanks
        BrancoPerdido, ///< blanks are missing
        BrancoDobrado, ///< blanks too many
        QuebraDeLinha, ///< a line feed, a carriage return or both
        Desconhecida   ///< other characters are missing or too many
    };

    Causa causa = Causa::Desconhecida;
    int posicao = 0;  ///< the first byte of a cause that can be seen; otherwise the first place where it may have been
    int ultima = 0;   ///< the last place where it may have been; `posicao` when it is certain
    int desvio = 0;   ///< how far what follows lies too far to the right, or to the left if negative; never 0
    Texto campo = {}; ///< name of the field that has `posicao`, "" behind the last field
    Texto ultimoCampo = {}; ///< name of the field that has `ultima`, "" behind the last field
    Texto bytes = {};       ///< what is too much or stands there instead; "" if it is missing or unknown
    int adiante = 0;        ///< causes of the same sort that shift the line once more further right
};

/// The slip of a line that should be a record of type `tipo`; `linha` is the line as it was read, of any length and
/// content. Of several slips it is the leftmost. Nothing if the line has the right length and at most one field of a
/// known form (number, date, sequence number, blanks, occurrences, identifier) that does not read well, unless that is
/// the last of the line; if no slip explains it; or if the line is more than 8 bytes too short or 32 too long. Only the
/// fields of `tipo` are used, not the line that it may hold.
[[nodiscard]] std::optional<Deslize> acharDeslize(const RegistroRemessa& tipo, VistaTexto linha);

/// What is said of a slip, as the continuation of a sentence: "a partir da posição 87 (Cidade) tudo está 1 à direita:
/// 'ã' em UTF-8 (C3 A3)", or "entre as posições 27 (Nome) e 120 (Endereco) tudo passa a estar 1 à esquerda: 1 branco
/// a menos".
[[nodiscard]] Texto textoDoDeslize(const Deslize& deslize);

} // namespace quilatador
