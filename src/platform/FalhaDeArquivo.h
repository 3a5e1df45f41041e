#pragma once

#include "common/Falha.h"

#include <filesystem>

namespace quilatador {

/// The failure, of source "Gravacao", that an `errno` of the system's file calls stands for.
[[nodiscard]] Falha falhaDeArquivo(int erro);
/// The same for a file that is open already: 61 where the disk is full, else 57.
[[nodiscard]] Falha falhaDeTransferencia(int erro);

/// Whether the system can have a file of this name at all. An empty name has none; one with a NUL would reach the
/// system cut short, and mean another file.
[[nodiscard]] bool nomePossivel(const std::filesystem::path& caminho) noexcept;

} // namespace quilatador
