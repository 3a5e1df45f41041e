#pragma once

#include "common/MemoriaAlinhada.h"
#include "common/Texto.h"

#include <concepts>
#include <cstring>
#include <utility>

namespace quilatador {

/// A text made of very many pieces, used again and again. It is written in strokes: room for a whole stroke is made
/// at once, and the pieces are then copied one behind the other by code compiled into the caller, where most lengths
/// are known; a string that makes room at each piece takes most of the time of a long report.
class Bloco {
  public:
    /// Writes behind what is there already; its caller has said how much at the most. A piece beyond that is
    /// `std::length_error`.
    class Caneta {
      public:
        /// Adds pieces. Compiled into the caller, always: where a piece's length is known there, its copy is a few
        /// moves.
        template <std::convertible_to<VistaTexto>... Pedacos>
        [[gnu::always_inline]] Caneta& append(const Pedacos&... pedacos) {
            char* destino = reservar((VistaTexto(pedacos).size() + ...));
            ((destino = copiar(VistaTexto(pedacos), destino)), ...);
            return *this;
        }
        /// Room for `bytes` more, which the caller fills.
        [[nodiscard]] char* reservar(std::size_t bytes) {
            if (bytes > static_cast<std::size_t>(fim_ - lugar_)) recusar();
            return std::exchange(lugar_, lugar_ + bytes);
        }
        /// What this stroke has written.
        [[nodiscard]] VistaTexto texto() const noexcept { return {inicio_, lugar_}; }

      private:
        friend class Bloco;
        Caneta(char* lugar, char* fim) : inicio_(lugar), lugar_(lugar), fim_(fim) {}
        [[gnu::always_inline]] static char* copiar(VistaTexto pedaco, char* destino) {
            if (!pedaco.empty()) std::memcpy(destino, pedaco.data(), pedaco.size()); // an empty one may have no address
            return destino + pedaco.size();
        }
        [[noreturn]] static void recusar();

        char* inicio_;
        char* lugar_;
        char* fim_;
    };

    /// A block that takes `bytes` before it has to grow.
    explicit Bloco(std::size_t bytes) : bytes_(reservarMemoria(bytes)), capacidade_(bytes) {}

    /// Begins a stroke of up to `bytes`; nothing else may be done with the block until it ends.
    [[nodiscard]] Caneta comecar(std::size_t bytes) {
        if (capacidade_ - tamanho_ < bytes) crescer(bytes);
        char* const lugar = bytes_.get() + tamanho_;
        return {lugar, lugar + bytes};
    }
    void terminar(const Caneta& caneta) noexcept { tamanho_ = static_cast<std::size_t>(caneta.lugar_ - bytes_.get()); }

    [[nodiscard]] VistaTexto texto() const noexcept { return {bytes_.get(), tamanho_}; }
    /// Takes away the first `bytes`, up to all there are; the room stays.
    void descartar(std::size_t bytes) noexcept;

  private:
    void crescer(std::size_t falta);

    MemoriaAlinhada bytes_;
    std::size_t capacidade_;
    std::size_t tamanho_ = 0;
};

} // namespace quilatador
