#pragma once

#include "common/Texto.h"
#include "tables/TabelasDeCodigos.h"

#include <array>
#include <memory>
#include <optional>

struct sqlite3;

namespace quilatador {

/// The SQL engine of the look-ups. It holds copies of code tables in memory, which queries may only read. Upper and
/// lower case of the letters A to Z do not matter in comparisons. Every function raises `Falha` 3035 when there is not
/// enough memory.
class MotorDeConsultas {
  public:
    MotorDeConsultas();

    /// Copies a table into the engine; only then may queries use it. A second call does nothing.
    void copiar(TabelaDeCodigos qual, const TabelasDeCodigos& tabelas);
    /// Runs a query and returns the value of a column (0-based) in its first row: "" for a null value, nothing when
    /// there is no row. Raises `Falha` 3075 when the text is not exactly one query that the engine accepts.
    [[nodiscard]] std::optional<Texto> consultar(VistaTexto sql, int coluna) const;

  private:
    struct Fecha {
        void operator()(sqlite3* sqlite) const noexcept;
    };

    std::unique_ptr<sqlite3, Fecha> sqlite_;
    std::array<bool, tabelasDeCodigos.size()> copiadas_{};
};

} // namespace quilatador
