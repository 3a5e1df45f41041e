#pragma once

#include "common/Texto.h"

#include <algorithm>
#include <vector>

namespace quilatador {

/// A text made of very many pieces, used again and again. Adding a piece is compiled into its caller, where most
/// lengths are known; `std::string` leaves it to the library, which is most of the time of a long report.
class Bloco {
  public:
    Bloco& append(VistaTexto pedaco) {
        if (bytes_.size() - tamanho_ < pedaco.size()) crescer(pedaco.size());
        std::ranges::copy(pedaco, bytes_.data() + tamanho_);
        tamanho_ += pedaco.size();
        return *this;
    }

    [[nodiscard]] VistaTexto texto() const noexcept { return {bytes_.data(), tamanho_}; }
    /// Empties it; its room stays.
    void esvaziar() noexcept { tamanho_ = 0; }

  private:
    void crescer(std::size_t falta);

    std::vector<char> bytes_ = std::vector<char>(1024);
    std::size_t tamanho_ = 0;
};

} // namespace quilatador
