#pragma once

#include "common/Falha.h"

#include <filesystem>

namespace quilatador {

/// The failure, with the source "Gravacao", for an `errno` of the system's file calls. Its number is 52, 53, 55, 61, 70
/// or 75, and 57 for any other error.
[[nodiscard]] Falha falhaDeArquivo(int erro);
/// The same for a file that is already open: 61 if the disk is full, else 57.
[[nodiscard]] Falha falhaDeTransferencia(int erro);

/// Whether the system can have a file of this name at all. No file has an empty name, and a name with a NUL would reach
/// the system cut short and mean another file.
[[nodiscard]] bool nomePossivel(const std::filesystem::path& caminho) noexcept;

} // namespace quilatador
