#pragma once

#include "common/Texto.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quilatador {

/// Finds things that somebody else owns by their names, in which upper and lower case of the letters A to Z do not
/// matter. It holds no names, only where each may be; who asks compares. So it is never wrong when a name changes: at
/// worst a name is not found.
class IndiceDeNomes {
  public:
    static constexpr std::size_t naoAchado = static_cast<std::size_t>(-1);

    /// Adds the next name: the first one gets place 0.
    void incluir(VistaTexto nome);

    /// The first place (0-based) of those where this name may be for which `confere(place)` is true; `naoAchado` if
    /// there is none.
    template <typename Confere>
    [[nodiscard]] std::size_t achar(VistaTexto nome, Confere confere) const {
        if (casas_.empty()) return naoAchado;
        const std::uint32_t resumo = resumir(nome);
        const std::size_t ultima = casas_.size() - 1;
        for (std::size_t i = resumo & ultima; casas_[i].lugar != livre; i = (i + 1) & ultima)
            if (casas_[i].resumo == resumo && confere(casas_[i].lugar)) return casas_[i].lugar;
        return naoAchado;
    }

  private:
    static constexpr std::uint32_t livre = static_cast<std::uint32_t>(-1);
    struct Casa {
        std::uint32_t resumo = 0; ///< of the name, see `resumir`
        std::uint32_t lugar = livre;
    };

    /// A number that names have in common only seldom if they differ. Those of one record type nearly always differ in
    /// their length, first or last character, so that the others need not be read.
    [[nodiscard]] static std::uint32_t resumir(VistaTexto nome) noexcept {
        if (nome.empty()) return 0;
        constexpr std::uint32_t semCaixa = 0x20; // the bit in which upper and lower case of a letter differ
        const auto codigo = [](char c) { return static_cast<unsigned char>(c) | semCaixa; };
        return static_cast<std::uint32_t>(nome.size()) * 3 + codigo(nome.front()) * 19 + codigo(nome.back()) * 27;
    }
    void por(Casa nova);

    std::vector<Casa> casas_; ///< at most a quarter of them in use; their number is a power of two
    std::uint32_t quantos_ = 0;
};

} // namespace quilatador
