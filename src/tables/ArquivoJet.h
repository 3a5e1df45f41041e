#pragma once

#include "common/Texto.h"
#include "tables/FormatoJet.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quilatador {

/// The content of one row slot on a data page: a row, a piece of a long text or a map of pages.
struct VagaJet {
    std::string_view bytes;
    bool mudada;    ///< the row has moved, and the bytes begin with a pointer to its new place
    bool escondida; ///< the row is deleted, or it may only be reached through the slot where it was before
};

/// A Jet database file in memory, divided into its pages. The file may come from anywhere and is not trusted: anything
/// in it that contradicts itself raises `Falha` 3049. Pages are numbered from 0, the header.
///
/// To read a table, take its definition (`TabelaJet`), the list of its pages (`paginasDoMapa`), the rows on each page
/// (`vaga`) and what the rows point to (`PonteirosJet`). The rest of the file is never looked at.
class ArquivoJet {
  public:
    /// Takes the bytes of a whole file and deciphers them. Raises `Falha` 3343 when it is not a Jet 3 or Jet 4
    /// database, 3049 when its length is not a whole number of pages.
    explicit ArquivoJet(std::string bytes);

    [[nodiscard]] const FormatoJet& formato() const noexcept { return *formato_; }
    /// The size of the file in bytes.
    [[nodiscard]] std::size_t tamanho() const noexcept { return bytes_.size(); }
    /// The password of the database, or "" when it has none.
    [[nodiscard]] const Texto& senha() const noexcept { return senha_; }

    /// The bytes of a page. Raises `Falha` 3049 when it does not exist, is the header, or is not of the given type.
    [[nodiscard]] std::string_view pagina(std::uint32_t numero, PaginaJet tipo) const;
    /// The number of row slots on a data page, and the content of one of them (0-based).
    [[nodiscard]] std::size_t vagas(std::string_view pagina) const;
    [[nodiscard]] VagaJet vaga(std::string_view pagina, std::size_t qual) const;
    /// The content of the slot that a pointer leads to. The upper three bytes are the number of the page, the lowest
    /// byte is the number of the slot.
    [[nodiscard]] VagaJet vagaEm(std::uint32_t ponteiro) const;
    /// The numbers of the pages that a map lists, in the order of the map. `ponteiro` leads to the map.
    [[nodiscard]] std::vector<std::uint32_t> paginasDoMapa(std::uint32_t ponteiro) const;

  private:
    void decifrar();

    std::string bytes_;
    Texto senha_;
    const FormatoJet* formato_ = nullptr;
    std::uint32_t paginas_ = 0;
};

} // namespace quilatador
