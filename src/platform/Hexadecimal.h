#pragma once

#include "common/Falha.h"

#include <cstddef>
#include <span>
#include <string>

namespace quilatador {

/// Of a SHA-256.
inline constexpr std::size_t bytesDaSoma = 32;

/// Two lower-case digits for each byte.
[[nodiscard]] inline std::string emHexadecimal(std::span<const unsigned char> bytes) {
    constexpr std::string_view digitos = "0123456789abcdef";
    std::string texto;
    for (const unsigned char byte : bytes)
        (texto += digitos[byte >> 4]) += digitos[byte & 0xF];
    return texto;
}

/// The failure of a sum that the system's library did not make.
[[nodiscard]] inline Falha falhaDaSoma() {
    return {numeroDeFalha::geral, "Sha256"_t, "Falha no cálculo do SHA-256"_t};
}

} // namespace quilatador
