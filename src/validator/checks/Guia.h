#pragma once

#include "validator/Conferencia.h"
#include "validator/Definicao.h"
#include "validator/GuiaEmMaos.h"

#include <span>

namespace quilatador {

// The checks of a slip. Each one writes its findings in the order of the log and returns true if it wrote none. A
// record that the slip lacks has an empty line: the sequence pass stops most files with such a slip, but `Depurador`
// can be asked about the slip of a file that was stopped. In S and T a field that cannot be read counts as empty; in U
// to X it raises a `Falha`.

/// Checks all segments of a slip, S to Y, against the definitions before it. Every segment is checked, whatever the
/// earlier ones found, but for those that `Apontador::naoConferido` names.
[[nodiscard]] bool verificarGuia(Apontador& apontador, const GuiaEmMaos& guia, const Definicao& definicao);

/// Segment S, the identification of the slip. Reads `registroE` and `temSegmentoF` of the definitions.
[[nodiscard]] bool verificarIdentificacaoGuia(Apontador& apontador, const RegistroRemessa& registroS,
                                              const Definicao& definicao);
/// Segment T, the payer. The address is required if the slip is sent to the payer (`indEndereco` "C" in S).
[[nodiscard]] bool verificarSegmentoT(Apontador& apontador, const RegistroRemessa& registroT,
                                      const RegistroRemessa& registroS);
/// Segment U, the composition of the amount. Reads `registroE` and `receitas` of the definitions.
[[nodiscard]] bool verificarSegmentoU(Apontador& apontador, const RegistroRemessa& registroU,
                                      const RegistroRemessa& registroS, const Definicao& definicao);
/// Segment V, the object: required if the remittance has a segment F, and wrong otherwise.
[[nodiscard]] bool verificarObjeto(Apontador& apontador, const RegistroRemessa& registroV,
                                   const RegistroRemessa& registroS, bool temSegmentoF);
/// Segment W, the characteristics of the object. Each one that is given must be defined in a segment G.
[[nodiscard]] bool verificarSegmentoW(Apontador& apontador, const RegistroRemessa& registroW,
                                      const RegistroRemessa& registroS, const RegistrosGuardados& caracteristicas);
/// Segment X, the messages. Takes at least four records; those that the slip lacks have an empty line.
[[nodiscard]] bool verificarSegmentoX(Apontador& apontador, std::span<const RegistroRemessa> mensagensX);

} // namespace quilatador
