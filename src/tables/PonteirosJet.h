#pragma once

#include "tables/ArquivoJet.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quilatador {

/// Follows the pointers from the rows of a table: to rows that have moved to another page, and to long texts. In a
/// sound file nothing is pointed to twice, and the total is never larger than the file; so a chain that returns to
/// itself, or many rows that share one text, raise `Falha` 3049. Use a new object each time a table is read.
class PonteirosJet {
  public:
    explicit PonteirosJet(const ArquivoJet& arquivo) : arquivo_(&arquivo), restam_(arquivo.tamanho()) {}

    /// The bytes of a row, even when it has moved. `vaga` is the slot where it was first.
    [[nodiscard]] std::string_view linha(const VagaJet& vaga);
    /// The bytes of a long text, for which a row has only the given head. The head contains the length, whose two
    /// highest bits tell where the text is (right after the head, whole in another slot, or in pieces), and the pointer
    /// to its start.
    [[nodiscard]] std::string textoLongo(std::string_view cabeca);

  private:
    [[nodiscard]] VagaJet seguir(std::uint32_t ponteiro);
    [[nodiscard]] std::string juntarPedacos(std::uint32_t ponteiro, std::size_t tamanho);

    const ArquivoJet* arquivo_;
    std::size_t restam_;         ///< number of bytes that may still be read
    std::vector<bool> seguidos_; ///< by pointer; grows with the pages that are pointed to
};

} // namespace quilatador
