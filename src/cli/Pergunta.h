#pragma once

#include "cli/Sessao.h"
#include "layout/ArquivoRemessa.h"

#include <functional>

namespace quilatador {

/// Answers a question about the only file of the command line, which must be a remittance, and returns the exit status.
/// `responder` gets the layout and returns the status, or nothing if the user stopped it; a `Falha` of its becomes a
/// message, as does whatever keeps the question from being asked. `opcao` is the option that asks it.
[[nodiscard]] int perguntar(Sessao& sessao, VistaTexto opcao,
                            const std::function<std::optional<int>(ArquivoRemessa&)>& responder);

/// Says why the question has no answer, and returns the exit status for that.
[[nodiscard]] int semResposta(Sessao& sessao, VistaTexto motivo);

} // namespace quilatador
