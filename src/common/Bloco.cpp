#include "common/Bloco.h"

#include <stdexcept>

namespace quilatador {

void Bloco::crescer(std::size_t falta) {
    const std::size_t nova = 2 * (capacidade_ + falta);
    auto bytes = reservarMemoria(nova);
    if (tamanho_ != 0) std::memcpy(bytes.get(), bytes_.get(), tamanho_);
    bytes_ = std::move(bytes);
    capacidade_ = nova;
}

void Bloco::descartar(std::size_t bytes) noexcept {
    tamanho_ -= bytes;
    std::memmove(bytes_.get(), bytes_.get() + bytes, tamanho_);
}

void Bloco::Caneta::recusar() {
    throw std::length_error("Bloco: a piece longer than the stroke");
}

} // namespace quilatador
