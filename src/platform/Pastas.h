#pragma once

#include <filesystem>

namespace quilatador {

/// The folder of the running program's own file, with links followed; empty if the system does not tell.
[[nodiscard]] std::filesystem::path pastaDoExecutavel();

/// The folder with the files that belong to the program: the executable's own if the layout description lies there,
/// else the installed data folder if it lies in that one, else the executable's own.
[[nodiscard]] std::filesystem::path pastaDoPrograma();
[[nodiscard]] std::filesystem::path pastaDoPrograma(const std::filesystem::path& doExecutavel);

} // namespace quilatador
