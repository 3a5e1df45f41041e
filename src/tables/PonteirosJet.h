#pragma once

#include "tables/ArquivoJet.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quilatador {

/// What the rows of a table point to: rows that moved to another page, and long texts. In a sound file nothing is
/// pointed to twice, and all of it together is never more than the file: a chain that comes back to itself, or many
/// rows that name one text, end in `Falha` 3049. An object is made for each reading of a table.
class PonteirosJet {
  public:
    explicit PonteirosJet(const ArquivoJet& arquivo) : arquivo_(&arquivo), restam_(arquivo.tamanho()) {}

    /// The bytes of a row, wherever it has moved to. `vaga` is where it was first.
    [[nodiscard]] std::string_view linha(const VagaJet& vaga);
    /// The bytes of a long text, of which a row has only the given head: its length, in the two uppermost bits of this
    /// where the text is (behind the head, whole in another place, or in pieces), and where it begins.
    [[nodiscard]] std::string textoLongo(std::string_view cabeca);

  private:
    [[nodiscard]] VagaJet seguir(std::uint32_t ponteiro);
    [[nodiscard]] std::string juntarPedacos(std::uint32_t ponteiro, std::size_t tamanho);

    const ArquivoJet* arquivo_;
    std::size_t restam_;         ///< bytes that may yet be fetched
    std::vector<bool> seguidos_; ///< by pointer; as long as the last page with one asks for
};

} // namespace quilatador
