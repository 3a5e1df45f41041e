#pragma once

#include <filesystem>

namespace quilatador {

/// The absolute path of a file that the user names, as a file dialog would return it: without "." and "..", except for
/// a ".." behind a symbolic link, whose meaning only the system knows. An empty path stays empty. A relative one stays
/// as it is when the working folder exists no more.
[[nodiscard]] std::filesystem::path caminhoCompleto(const std::filesystem::path& caminho);

} // namespace quilatador
