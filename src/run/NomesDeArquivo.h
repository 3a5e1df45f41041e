#pragma once

#include "common/Texto.h"

#include <filesystem>

namespace quilatador {

/// The log's path: that of the analysed file up to and including its first "." (even one in a folder's name), then
/// "log". A path without "." gets `sufixoSemPonto` appended.
[[nodiscard]] std::filesystem::path caminhoDoLog(const std::filesystem::path& arquivo, VistaTexto sufixoSemPonto);

/// The first line of every log.
[[nodiscard]] Texto tituloDoLog(const std::filesystem::path& arquivo, VistaTexto hoje);

} // namespace quilatador
