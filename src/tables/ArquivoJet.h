#pragma once

#include "common/Texto.h"
#include "tables/FormatoJet.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quilatador {

/// What stands in the place of a row on its page: a row, a piece of a long text or a map of pages.
struct VagaJet {
    std::string_view bytes;
    bool mudada;    ///< the bytes begin with the place where the row is now
    bool escondida; ///< deleted, or to be reached only from where the row was before
};

/// A Jet database file in memory, as pages and what is on them. The file is other people's: whatever it says of itself
/// that cannot be so ends in `Falha` 3049, "O banco de dados está danificado". Pages are numbered from 0, the header.
///
/// A table is read in this order: its definition on a page (`TabelaJet`), the map of its pages (`paginasDoMapa`), the
/// rows on each of them (`vaga`), and what these point to (`PonteirosJet`). The rest of the file is never looked at.
class ArquivoJet {
  public:
    /// Takes a whole file and deciphers it. `Falha` 3343 where it is no Jet 3 or Jet 4 database, 3049 where its length
    /// is not that of whole pages.
    explicit ArquivoJet(std::string bytes);

    [[nodiscard]] const FormatoJet& formato() const noexcept { return *formato_; }
    [[nodiscard]] std::size_t tamanho() const noexcept { return bytes_.size(); }
    /// The database's password, "" for none.
    [[nodiscard]] const Texto& senha() const noexcept { return senha_; }

    /// A page, which must be of this type.
    [[nodiscard]] std::string_view pagina(std::uint32_t numero, PaginaJet tipo) const;
    /// Places on a data page, and one of them (0-based).
    [[nodiscard]] std::size_t vagas(std::string_view pagina) const;
    [[nodiscard]] VagaJet vaga(std::string_view pagina, std::size_t qual) const;
    /// The same by a pointer, which has the page in its upper three bytes and the place on it in the lowest.
    [[nodiscard]] VagaJet vagaEm(std::uint32_t ponteiro) const;
    /// The pages that a map marks, in their order. `ponteiro` leads to the map.
    [[nodiscard]] std::vector<std::uint32_t> paginasDoMapa(std::uint32_t ponteiro) const;

  private:
    void decifrar();

    std::string bytes_;
    Texto senha_;
    const FormatoJet* formato_ = nullptr;
    std::uint32_t paginas_ = 0;
};

} // namespace quilatador
