#pragma once

#include "common/Texto.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quilatador {

/// Finds things that somebody else owns by their names, in which upper and lower case of the letters A to Z do not
/// matter. It holds no names, only where each may be; who asks compares. So it stays small, and is never wrong when a
/// name changes: at worst a name is not found.
class IndiceDeNomes {
  public:
    /// Adds the next name: the first one gets place 0.
    void incluir(VistaTexto nome);

    /// The first place (0-based) of those where this name may be for which `confere(place)` is true; `naoAchado` if
    /// there is none.
    template <typename Confere>
    [[nodiscard]] std::size_t achar(VistaTexto nome, Confere confere) const {
        if (casas_.empty()) return naoAchado;
        const std::size_t ultima = casas_.size() - 1;
        for (std::size_t casa = dispersar(nome) & ultima; casas_[casa] != livre; casa = (casa + 1) & ultima)
            if (confere(casas_[casa])) return casas_[casa];
        return naoAchado;
    }

    static constexpr std::size_t naoAchado = static_cast<std::size_t>(-1);

  private:
    static constexpr std::uint32_t livre = static_cast<std::uint32_t>(-1);

    /// Names of one layout differ in their length, first or last character nearly always, so that more of them need not
    /// be read.
    [[nodiscard]] static std::size_t dispersar(VistaTexto nome) noexcept {
        if (nome.empty()) return 0;
        constexpr std::size_t semCaixa = 0x20; // the bit in which upper and lower case of a letter differ
        const auto codigo = [](char c) { return static_cast<unsigned char>(c) | semCaixa; };
        return nome.size() * 3 + codigo(nome.front()) * 19 + codigo(nome.back()) * 27;
    }
    void por(std::uint32_t lugar);

    std::vector<std::size_t> dispersos_; ///< the hash of each name, by its place
    std::vector<std::uint32_t> casas_; ///< places of names, at most a quarter of it in use; its size is a power of two
};

} // namespace quilatador
