#pragma once

#include "run/TipoArquivo.h"

#include <filesystem>

namespace quilatador {

/// The path of the log: that of the analysed file up to its first ".", even one in the name of a folder, followed by
/// "log". Without any "." a remittance gets "log" appended, but a return ".log": kept on purpose, the test
/// `caminhoDoLog` holds it.
[[nodiscard]] std::filesystem::path caminhoDoLog(const std::filesystem::path& arquivo, TipoArquivo tipo);

/// The path of the log in a folder for logs: the whole name of the analysed file, followed by ".log".
[[nodiscard]] std::filesystem::path caminhoDoLogNaPasta(const std::filesystem::path& arquivo,
                                                        const std::filesystem::path& pasta);

/// The first line of every log. `hoje` is the date of the run as it is to be shown.
[[nodiscard]] Texto tituloDoLog(const std::filesystem::path& arquivo, VistaTexto hoje);

} // namespace quilatador
