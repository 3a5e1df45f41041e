#pragma once

#include "common/Texto.h"
#include "tables/ArquivoJet.h"
#include "tables/LinhaJet.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quilatador {

/// A table of a Jet file. The file must outlive it. Everything read from the file is checked, and any function but
/// `coluna` raises `Falha` 3049 for damage.
class TabelaJet {
  public:
    /// Reads the definition of the table, which starts on this page.
    TabelaJet(const ArquivoJet& arquivo, std::uint32_t pagina);

    /// The column with this name, or null when there is none. Upper and lower case of the letters A to Z do not matter.
    [[nodiscard]] const ColunaJet* coluna(VistaTexto nome) const noexcept;
    /// Calls `receber` with each row, in the order of the file.
    void percorrer(const std::function<void(const LinhaJet&)>& receber) const;

  private:
    [[nodiscard]] const FormatoJet& formato() const noexcept { return arquivo_->formato(); }
    [[nodiscard]] std::string bytesDaDefinicao() const;
    [[nodiscard]] ColunaJet lerColuna(std::string_view entrada) const;
    void lerColunas(std::string_view definicao);
    void lerNomes(std::string_view nomes);

    const ArquivoJet* arquivo_;
    std::uint32_t pagina_;
    std::uint32_t mapa_ = 0; ///< pointer to the map of its pages
    bool temVariaveis_ = false;
    std::vector<ColunaJet> colunas_;
};

} // namespace quilatador
