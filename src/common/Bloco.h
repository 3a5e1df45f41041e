#pragma once

#include "common/MemoriaAlinhada.h"
#include "common/Texto.h"

#include <concepts>
#include <cstring>
#include <utility>

namespace quilatador {

/// A text buffer for reports that are made of very many small pieces. `comecar` makes room for several lines at once
/// and returns a `Caneta`, which appends the pieces; `terminar` then adds what it wrote to the block. Making room once
/// for each piece would take most of the time of a long report.
class Bloco {
  public:
    /// Appends to the block within the room that `comecar` made. A piece that does not fit raises `std::length_error`.
    class Caneta {
      public:
        /// Appends all the pieces. It is always inlined: when the caller knows the length of a piece at compile time,
        /// copying the piece takes only a few instructions.
        template <std::convertible_to<VistaTexto>... Pedacos>
        [[gnu::always_inline]] Caneta& append(const Pedacos&... pedacos) {
            char* destino = reservar((VistaTexto(pedacos).size() + ...));
            ((destino = copiar(VistaTexto(pedacos), destino)), ...);
            return *this;
        }
        /// Reserves room for `bytes` more characters, which the caller has to fill.
        [[nodiscard]] char* reservar(std::size_t bytes) {
            if (bytes > static_cast<std::size_t>(fim_ - lugar_)) recusar();
            return std::exchange(lugar_, lugar_ + bytes);
        }
        /// The text that this pen has written since `comecar`.
        [[nodiscard]] VistaTexto texto() const noexcept { return {inicio_, lugar_}; }

      private:
        friend class Bloco;
        Caneta(char* lugar, char* fim) : inicio_(lugar), lugar_(lugar), fim_(fim) {}
        [[gnu::always_inline]] static char* copiar(VistaTexto pedaco, char* destino) {
            if (!pedaco.empty()) std::memcpy(destino, pedaco.data(), pedaco.size()); // an empty view may be null
            return destino + pedaco.size();
        }
        [[noreturn]] static void recusar();

        char* inicio_;
        char* lugar_;
        char* fim_;
    };

    /// Creates a block that holds `bytes` before it has to grow.
    explicit Bloco(std::size_t bytes) : bytes_(reservarMemoria(bytes)), capacidade_(bytes) {}

    /// Makes room for up to `bytes` and returns the pen that writes there. Until `terminar` is called with that pen,
    /// nothing else may be done with the block.
    [[nodiscard]] Caneta comecar(std::size_t bytes) {
        if (capacidade_ - tamanho_ < bytes) crescer(bytes);
        char* const lugar = bytes_.get() + tamanho_;
        return {lugar, lugar + bytes};
    }
    /// Adds to the block what the pen has written.
    void terminar(const Caneta& caneta) noexcept { tamanho_ = static_cast<std::size_t>(caneta.lugar_ - bytes_.get()); }

    /// Everything in the block, valid until the block changes.
    [[nodiscard]] VistaTexto texto() const noexcept { return {bytes_.get(), tamanho_}; }
    /// Removes the first `bytes`, which must not be more than the block has. The memory stays reserved.
    void descartar(std::size_t bytes) noexcept;

  private:
    void crescer(std::size_t falta);

    MemoriaAlinhada bytes_;
    std::size_t capacidade_;
    std::size_t tamanho_ = 0;
};

} // namespace quilatador
