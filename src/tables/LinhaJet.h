#pragma once

#include "common/Texto.h"
#include "tables/FormatoJet.h"
#include "tables/PonteirosJet.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quilatador {

/// A column, as the definition of its table describes it.
struct ColunaJet {
    Texto nome;
    TipoJet tipo;        ///< may be a type that `TipoJet` does not name
    std::size_t numero;  ///< 0-based; older rows may have fewer columns
    bool fixa;           ///< whether its values have a fixed length and position
    std::size_t lugar;   ///< fixed: position after the row's number of columns
    std::size_t tamanho; ///< fixed: length in bytes
    std::size_t ordem;   ///< variable: 0-based index among the variable columns

    [[nodiscard]] bool deTextos() const noexcept { return tipo == TipoJet::Caracteres || tipo == TipoJet::Memo; }
    [[nodiscard]] bool deNumeros() const noexcept;
};

/// A value of a row; a text is in UTF-8. A null value and an empty text have no content (monostate).
using ValorJet = std::variant<std::monostate, std::int64_t, double, std::string>;

/// A row of a table. The constructor finds the positions of its values, and `valor` reads one. The object is only valid
/// during the call in which its table passes it on. Raises `Falha` 3049 when the bytes are not a row.
class LinhaJet {
  public:
    /// `comVariaveis` tells whether the table has columns of variable length.
    LinhaJet(const FormatoJet& formato, bool comVariaveis, std::string_view bytes, PonteirosJet& ponteiros);

    /// The value in one of the columns of its table. A column of another type than `TipoJet` names gives no content.
    /// Raises `Falha` 3049 for a damaged value.
    [[nodiscard]] ValorJet valor(const ColunaJet& coluna) const;

  private:
    void lerLugares(std::size_t fim);
    [[nodiscard]] bool nula(const ColunaJet& coluna) const;
    [[nodiscard]] std::string_view bytesDe(const ColunaJet& coluna) const;

    const FormatoJet* formato_;
    PonteirosJet* ponteiros_;
    std::string_view bytes_;
    std::string_view naoNulas_;        ///< one bit per column
    std::size_t colunas_ = 0;          ///< number of columns when the row was written
    std::vector<std::size_t> lugares_; ///< start of each variable column, then the end of the last
};

} // namespace quilatador
