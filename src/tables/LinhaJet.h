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

/// A column as the definition of its table has it.
struct ColunaJet {
    Texto nome;
    TipoJet tipo;        ///< may be one that `TipoJet` does not name
    std::size_t numero;  ///< 0-based; rows from before the column was added have fewer
    bool fixa;           ///< whether its values have one length, and one place in the row
    std::size_t lugar;   ///< of a fixed one: behind the row's number of columns
    std::size_t tamanho; ///< of a fixed one, in bytes
    std::size_t ordem;   ///< of a variable one: its number (0-based) among these

    [[nodiscard]] bool deTextos() const noexcept { return tipo == TipoJet::Caracteres || tipo == TipoJet::Memo; }
    [[nodiscard]] bool deNumeros() const noexcept;
};

/// A value of a row, in UTF-8 where it is a text; none where it is null or an empty text.
using ValorJet = std::variant<std::monostate, std::int64_t, double, std::string>;

/// A row of a table. What is in it is taken apart once; the values are read when they are asked for. `Falha` 3049 where
/// the bytes are no row. Valid while its table calls with it.
class LinhaJet {
  public:
    /// `comVariaveis` says whether the table has columns of variable length.
    LinhaJet(const FormatoJet& formato, bool comVariaveis, std::string_view bytes, PonteirosJet& ponteiros);

    /// The value in a column of texts or numbers of its table.
    [[nodiscard]] ValorJet valor(const ColunaJet& coluna) const;

  private:
    void lerLugares(std::size_t fim);
    [[nodiscard]] bool nula(const ColunaJet& coluna) const;
    [[nodiscard]] std::string_view bytesDe(const ColunaJet& coluna) const;

    const FormatoJet* formato_;
    PonteirosJet* ponteiros_;
    std::string_view bytes_;
    std::string_view naoNulas_;        ///< a bit for each column
    std::size_t colunas_ = 0;          ///< that the table had when the row was written
    std::vector<std::size_t> lugares_; ///< where each variable column starts, and where the last ends
};

} // namespace quilatador
