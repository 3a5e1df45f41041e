#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quilatador {

/// `Falha` 3049 where `condicao` does not hold: the file contradicts itself. All that a file says of places and lengths
/// goes through here before it is believed.
void exigirIntegro(bool condicao);

/// Bytes of a file from a place (0-based); all of them must be there, or `Falha` 3049.
[[nodiscard]] std::string_view pedacoJet(std::string_view bytes, std::size_t posicao, std::size_t tamanho);
/// A little-endian number of up to four bytes, under the same condition.
[[nodiscard]] std::uint32_t numeroJet(std::string_view bytes, std::size_t posicao, std::size_t largura);

} // namespace quilatador
