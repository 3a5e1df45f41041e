#pragma once

#include "common/Arquivos.h"
#include "layout/Regua.h"
#include "run/Achado.h"
#include "run/Ambiente.h"
#include "run/TipoArquivo.h"

#include <atomic>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

namespace quilatador {

/// The file whose lines are asked for.
struct ArquivoDasReguas {
    std::filesystem::path caminho;
    TipoArquivo tipo = TipoArquivo::ZUL702;
    std::optional<VersaoDoArquivo> versao{}; ///< the state that the findings are about; nothing for any
};

/// The rulers of the lines of `achados`, in their order; empty where the file lacks the line. A line that no layout
/// cuts is cut at the field of its finding. Of a long text in a piece only the start is kept, so that this takes little
/// memory whatever the lines are.
///
/// The file is read once, as far as the last of these lines. Nothing if the user cancels; `cancelado` is that of
/// `Rodada`. Raises the failures of `PercursoDeLinhas`, and `Falha` 65 when the file is in another state.
[[nodiscard]] std::optional<std::vector<std::vector<PedacoDaRegua>>> lerReguas(const Ambiente& ambiente,
                                                                               const ArquivoDasReguas& arquivo,
                                                                               std::span<const Achado* const> achados,
                                                                               const std::atomic<bool>& cancelado);

} // namespace quilatador
