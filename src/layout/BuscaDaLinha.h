#pragma once

#include "layout/ArquivoRemessa.h"
#include "layout/Regua.h"
#include "run/Ambiente.h"

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace quilatador {

/// What is known of one line of a remittance.
struct LinhaEncontrada {
    std::int64_t linhas = 0;       ///< lines that were read: all of the file, if it lacks the line
    std::int64_t vaziaAntes = 0;   ///< the first empty line in front of it (1-based), which ends any check; 0 if none
    std::size_t tamanho = 0;       ///< of the line, in characters; 0 if the file lacks the line or the line is empty
    bool maisComprida = false;     ///< whether the line may be longer than that, see `LeitorDeLinhas::maiorLinha`
    std::optional<Texto> segmento; ///< the record type; nothing if the line is of no known one
    std::size_t tamanhoNoLeiaute = 0; ///< of a line of that type
    std::vector<PedacoDaRegua> regua; ///< the whole line; see `regua`
};

/// Looks for line `numero` (1-based) of a file, and cuts it by the layout. Lines are counted as in a log, but an empty
/// one does not end the file. Nothing if the user cancels; `cancelado` is that of `Rodada`. Raises the failures of
/// `PercursoDeLinhas`.
[[nodiscard]] std::optional<LinhaEncontrada> buscarLinha(const Ambiente& ambiente, ArquivoRemessa& leiaute,
                                                         const std::filesystem::path& arquivo, std::int64_t numero,
                                                         const std::atomic<bool>& cancelado);

} // namespace quilatador
