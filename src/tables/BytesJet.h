#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quilatador {

/// Raises `Falha` 3049, "O banco de dados está danificado".
[[noreturn]] void recusarDanificado();

/// Raises `Falha` 3049 when the condition is false, because the file contradicts itself. Every position and length in a
/// file must be checked with it before it is used.
inline void exigirIntegro(bool condicao) {
    if (!condicao) recusarDanificado();
}

/// The `tamanho` bytes at `posicao` (0-based). Raises `Falha` 3049 when the file does not have all of them.
[[nodiscard]] std::string_view pedacoJet(std::string_view bytes, std::size_t posicao, std::size_t tamanho);
/// The little-endian number in `largura` bytes (up to four) at `posicao`. Raises the same failure.
[[nodiscard]] std::uint32_t numeroJet(std::string_view bytes, std::size_t posicao, std::size_t largura);

} // namespace quilatador
