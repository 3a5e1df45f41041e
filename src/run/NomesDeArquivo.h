#pragma once

#include "run/TipoArquivo.h"

#include <filesystem>

namespace quilatador {

/// The log's path: that of the analysed file up to and including its first "." (even one in a folder's name), then
/// "log". A path without "." gets "log" appended for a remittance, but ".log" for a return: kept on purpose, the test
/// `caminhoDoLog` holds it.
[[nodiscard]] std::filesystem::path caminhoDoLog(const std::filesystem::path& arquivo, TipoArquivo tipo);

/// The first line of every log.
[[nodiscard]] Texto tituloDoLog(const std::filesystem::path& arquivo, VistaTexto hoje);

} // namespace quilatador
