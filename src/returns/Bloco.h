#pragma once

#include "common/Texto.h"

#include <cassert>
#include <cstring>
#include <vector>

namespace quilatador {

/// A text made of very many pieces, used again and again. It is written in strokes: room for a whole stroke is made
/// at once, and the pieces are then copied one behind the other by code compiled into the caller, where most lengths
/// are known; a string that checks its room at each piece takes most of the time of a long report.
class Bloco {
  public:
    /// Writes behind what is there already; its caller has said how much at the most.
    class Caneta {
      public:
        Caneta& append(VistaTexto pedaco) {
            assert(pedaco.size() <= static_cast<std::size_t>(fim_ - lugar_));
            if (!pedaco.empty()) std::memcpy(lugar_, pedaco.data(), pedaco.size()); // an empty one may have no address
            lugar_ += pedaco.size();
            return *this;
        }

      private:
        friend class Bloco;
        Caneta(char* lugar, char* fim) : lugar_(lugar), fim_(fim) {}

        char* lugar_;
        [[maybe_unused]] char* fim_;
    };

    /// Begins a stroke of up to `bytes`; nothing else may be done with the block until it ends.
    [[nodiscard]] Caneta comecar(std::size_t bytes) {
        if (bytes_.size() - tamanho_ < bytes) crescer(bytes);
        return {bytes_.data() + tamanho_, bytes_.data() + bytes_.size()};
    }
    void terminar(const Caneta& caneta) noexcept { tamanho_ = static_cast<std::size_t>(caneta.lugar_ - bytes_.data()); }

    [[nodiscard]] VistaTexto texto() const noexcept { return {bytes_.data(), tamanho_}; }
    /// Empties it; its room stays.
    void esvaziar() noexcept { tamanho_ = 0; }

  private:
    void crescer(std::size_t falta);

    std::vector<char> bytes_ = std::vector<char>(1024);
    std::size_t tamanho_ = 0;
};

} // namespace quilatador
