#pragma once

#include "common/Texto.h"
#include "tables/TabelasDeCodigos.h"

#include <array>
#include <memory>
#include <optional>

struct sqlite3;

namespace quilatador {

/// The engine that runs the queries: it has copies of code tables in memory, and a query may do no more than read them.
/// Texts compare without regard to the case of the letters A to Z. `Falha` 3035 where the engine gets no memory.
class MotorDeConsultas {
  public:
    MotorDeConsultas();

    /// Copies a table, once; a query may then ask for it.
    void copiar(TabelaDeCodigos qual, const TabelasDeCodigos& tabelas);
    /// The value of a column (0-based) in the first row of a query, "" where it is null; none without rows. `Falha`
    /// 3075 where the text is anything but one query that the engine takes.
    [[nodiscard]] std::optional<Texto> consultar(VistaTexto sql, int coluna) const;

  private:
    struct Fecha {
        void operator()(sqlite3* sqlite) const noexcept;
    };

    std::unique_ptr<sqlite3, Fecha> sqlite_;
    std::array<bool, tabelasDeCodigos.size()> copiadas_{};
};

} // namespace quilatador
