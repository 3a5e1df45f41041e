#pragma once

#include <filesystem>

namespace quilatador {

/// The folder of the running program's own file, links followed; empty where the system does not tell.
[[nodiscard]] std::filesystem::path pastaDoExecutavel();

/// The folder with the files that belong to the program: the executable's own where the layout description lies in
/// it, else the installed data folder where it lies there. Where it lies in neither, the executable's own.
[[nodiscard]] std::filesystem::path pastaDoPrograma();
[[nodiscard]] std::filesystem::path pastaDoPrograma(const std::filesystem::path& doExecutavel);

} // namespace quilatador
