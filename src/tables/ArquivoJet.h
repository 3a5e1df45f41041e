#pragma once

#include "common/Texto.h"
#include "tables/FormatoJet.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quilatador {

/// A Jet database file in memory, plain and checked before a library reads it: a damaged file must end in a message,
/// and libraries of this format trust what they read. Only what reading the rows of a table goes through is checked;
/// indexes, forms and the like are never looked at.
class ArquivoJet {
  public:
    /// Takes a whole file and deciphers it. `Falha` 3343 where it is no Jet 3 or Jet 4 database, 3049 where its length
    /// is not that of whole pages.
    explicit ArquivoJet(Texto bytes);

    [[nodiscard]] VersaoJet versao() const noexcept { return formato_->versao; }
    /// The database's password, "" for none.
    [[nodiscard]] const Texto& senha() const noexcept { return senha_; }
    /// The plain file; its header is ciphered, as it is in any.
    [[nodiscard]] std::span<char> bytes() noexcept { return bytes_; }

    /// Checks the definition of a table, which starts at this page (0-based), the maps of its pages and each of its
    /// rows. `Falha` 3049.
    void verificarTabela(std::uint32_t pagina) const;
    /// The bytes of a long text, of which a row has only the given head. `Falha` 3049.
    [[nodiscard]] Texto textoLongo(VistaTexto cabeca) const;

  private:
    struct Definicao;

    void decifrar();
    [[nodiscard]] VistaTexto pagina(std::uint32_t numero, PaginaJet tipo) const;
    [[nodiscard]] VistaTexto linhaEm(std::uint32_t lugar) const;
    [[nodiscard]] Texto bytesDaDefinicao(std::uint32_t numero) const;
    [[nodiscard]] Definicao lerDefinicao(std::uint32_t numero) const;
    [[nodiscard]] std::vector<std::uint32_t> paginasDoMapa(std::uint32_t lugar) const;
    void verificarPagina(VistaTexto pagina, const Definicao& definicao) const;
    void verificarLinha(VistaTexto linha, const Definicao& definicao) const;
    [[nodiscard]] std::vector<std::size_t> lugaresVariaveis(VistaTexto linha, std::size_t fim) const;

    Texto bytes_;
    Texto senha_;
    const FormatoJet* formato_ = &jet4;
    std::uint32_t paginas_ = 0;
};

} // namespace quilatador
