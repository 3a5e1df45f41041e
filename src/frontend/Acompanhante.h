#pragma once

#include "common/Arquivos.h"
#include "common/Texto.h"
#include "run/Ambiente.h"

#include <filesystem>
#include <optional>
#include <set>

namespace quilatador {

/// The reason why what accompanies the logs of a call, a report or a table of the findings, must not be written at a
/// place: it would fall on an input of the call, on one of its logs, on a file of the program, or on another file that
/// is recognised as one of the types that are analysed. Nothing if it may. `nome` is what the user knows it as, with
/// its article ("O laudo"), and begins the reason.
[[nodiscard]] std::optional<Texto> recusaDoAcompanhante(VistaTexto nome, const std::filesystem::path& caminho,
                                                        const std::set<Destino>& entradas,
                                                        const std::set<Destino>& logs, const Ambiente& ambiente);

} // namespace quilatador
