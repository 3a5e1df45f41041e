#pragma once

#include "common/Falha.h"
#include "common/Texto.h"
#include "tables/ArquivoJet.h"
#include "tables/LinhaJet.h"
#include "tables/TabelaJet.h"

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>

namespace quilatador {

/// The code tables, and the columns of each that look-ups need.
enum class TabelaDeCodigos : std::size_t { Ocorrencia, FormaArrecadacao, FormaPagamento };

struct EsquemaDeTabela {
    VistaTexto nome;
    std::array<VistaTexto, 3> colunas;
};

inline constexpr std::array<EsquemaDeTabela, 3> tabelasDeCodigos{
    {{"OcorrenciaTAV"_t, {"codigoTipoRetorno"_t, "codigoRetorno"_t, "textoDescricao"_t}},
     {"FormaArrecadacao"_t, {"codigoFormaArrecadacao"_t, "textoDescricaoFormaArrecadacao"_t, "indicadorEstado"_t}},
     {"FormaPagamento"_t, {"codigoFormaPagamento"_t, "textoDescricaoFormaPagamento"_t, "indicadorEstado"_t}}}};

[[nodiscard]] constexpr const EsquemaDeTabela& esquema(TabelaDeCodigos qual) {
    return tabelasDeCodigos[static_cast<std::size_t>(qual)];
}

/// The code tables of a database file. Create it from the bytes of the file, call `exigir` for a table, and then read
/// that table with `percorrer`.
class TabelasDeCodigos {
  public:
    /// One value for each column of the schema.
    using Linha = std::array<ValorJet, 3>;

    /// Takes the bytes of a whole file and reads all rows of the code tables once, so that any damage shows now and not
    /// later. Raises `Falha` 3343 when it is not such a file, 3049 when it is damaged on the way to those rows, 3031
    /// when the password is wrong.
    TabelasDeCodigos(std::string bytes, VistaTexto senha);
    TabelasDeCodigos(const TabelasDeCodigos&) = delete;
    TabelasDeCodigos& operator=(const TabelasDeCodigos&) = delete;

    /// Checks that a table can be used. Raises `Falha` 3078 when the file lacks the table, 3061 when the table lacks a
    /// column, 3259 when a column has neither numbers nor texts. Call the functions below only for a table that has
    /// passed.
    void exigir(TabelaDeCodigos qual) const;
    /// Whether a column (0-based) holds texts. If not, it holds numbers.
    [[nodiscard]] bool deTextos(TabelaDeCodigos qual, std::size_t coluna) const;
    /// Calls `receber` with each row, in the order of the file.
    void percorrer(TabelaDeCodigos qual, const std::function<void(const Linha&)>& receber) const;

  private:
    struct Aberta {
        std::optional<TabelaJet> tabela;
        std::array<const ColunaJet*, 3> colunas{}; ///< null when look-ups cannot use the column
        std::optional<Falha> falta;                ///< the reason why look-ups in the table fail
    };

    static void acharColunas(const EsquemaDeTabela& esquema, Aberta& aberta);
    [[nodiscard]] const Aberta& aberta(TabelaDeCodigos qual) const { return abertas_[static_cast<std::size_t>(qual)]; }

    ArquivoJet arquivo_;
    std::array<Aberta, tabelasDeCodigos.size()> abertas_;
};

} // namespace quilatador
