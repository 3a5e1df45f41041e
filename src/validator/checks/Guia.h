#pragma once

#include "validator/Conferencia.h"
#include "validator/Definicao.h"
#include "validator/GuiaEmMaos.h"

#include <span>

namespace quilatador {

// The slip. Each check writes what is wrong, in the order of the log, and is true where it wrote nothing. A record
// that the slip lacks has an empty line; the sequence pass lets most such slips not come this far, but whoever asks
// about a slip of a file that it stopped in gets the answer. In S and T a field that cannot be read counts as empty;
// elsewhere it is a `Falha`.

/// All segments of a slip, S to Y, against the definitions that stand before it. All are checked, whatever the first
/// ones found.
[[nodiscard]] bool verificarGuia(Rodada& rodada, const GuiaEmMaos& guia, const Definicao& definicao);

/// Segment S, the slip's identification: against `registroE` and `temSegmentoF`.
[[nodiscard]] bool verificarIdentificacaoGuia(Rodada& rodada, const RegistroRemessa& registroS,
                                              const Definicao& definicao);
/// Segment T, the payer, whose address is wanted where the slip goes there.
[[nodiscard]] bool verificarSegmentoT(Rodada& rodada, const RegistroRemessa& registroT,
                                      const RegistroRemessa& registroS);
/// Segment U, the composition of the amount: against `registroE` and `receitas`.
[[nodiscard]] bool verificarSegmentoU(Rodada& rodada, const RegistroRemessa& registroU,
                                      const RegistroRemessa& registroS, const Definicao& definicao);
/// Segment V, the object, which only a remittance with a segment F has.
[[nodiscard]] bool verificarObjeto(Rodada& rodada, const RegistroRemessa& registroV, const RegistroRemessa& registroS,
                                   bool temSegmentoF);
/// Segment W, the object's characteristics.
[[nodiscard]] bool verificarSegmentoW(Rodada& rodada, const RegistroRemessa& registroW,
                                      const RegistroRemessa& registroS,
                                      std::span<const RegistroRemessa> caracteristicas);
/// Segment X: at least four records, those behind the slip's own without a line.
[[nodiscard]] bool verificarSegmentoX(Rodada& rodada, std::span<const RegistroRemessa> mensagensX);

} // namespace quilatador
