#pragma once

#include "common/Arquivos.h"
#include "run/TipoArquivo.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <vector>

namespace quilatador {

/// Where the user wants the logs of a call. Without a choice each lies beside its file.
struct EscolhaDosLogs {
    std::optional<std::filesystem::path> log{};   ///< the log itself, if there is only one file
    std::optional<std::filesystem::path> pasta{}; ///< the folder of all logs
};

/// A file that is to be analysed, and its log.
struct LogPlanejado {
    std::filesystem::path arquivo;
    TipoArquivo tipo;
    std::filesystem::path log;
    /// The earlier file of the call that has the same log. Where there is one, this file must not be analysed.
    std::optional<std::filesystem::path> dono{};
};

/// The logs of all files of one call, so that nothing is written before it is known where everything goes.
struct PlanoDeLogs {
    std::vector<LogPlanejado> logs; ///< in the order of the files; a file that was named again is left out
    std::set<Destino> entradas;     ///< the files themselves; no log may fall on one, which the run of the log refuses
};

/// Plans the logs of a call. `tipoDe` tells the type of a file, on which the name of its log may depend. A file has
/// been named again if its log is the same one too, by whatever names; the same file with another log is analysed
/// again.
[[nodiscard]] PlanoDeLogs planejarLogs(std::span<const std::filesystem::path> arquivos, const EscolhaDosLogs& escolha,
                                       const std::function<TipoArquivo(const std::filesystem::path&)>& tipoDe,
                                       const Arquivos& sistema);

} // namespace quilatador
