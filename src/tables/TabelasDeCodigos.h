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

/// The code tables and the columns of each that the look-ups ask for.
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

/// The code tables of a database file: opened with `TabelasDeCodigos`, asked for with `exigir`, read with `percorrer`.
class TabelasDeCodigos {
  public:
    /// A value for each column of the schema.
    using Linha = std::array<ValorJet, 3>;

    /// Takes a whole file, and reads all rows of the tables that it has, so that no damage shows later. `Falha` 3343
    /// where it is no such file, 3049 where it is damaged on the way to those rows, 3031 where it has another password.
    TabelasDeCodigos(std::string bytes, VistaTexto senha);
    TabelasDeCodigos(const TabelasDeCodigos&) = delete;
    TabelasDeCodigos& operator=(const TabelasDeCodigos&) = delete;

    /// `Falha` 3078 where the file lacks the table, 3061 where this lacks a column, 3259 where one has neither numbers
    /// nor texts. The other members ask for a table that has passed.
    void exigir(TabelaDeCodigos qual) const;
    /// Whether a column (0-based) holds texts; else it holds numbers.
    [[nodiscard]] bool deTextos(TabelaDeCodigos qual, std::size_t coluna) const;
    /// Calls `receber` with each row, in the order of the file.
    void percorrer(TabelaDeCodigos qual, const std::function<void(const Linha&)>& receber) const;

  private:
    struct Aberta {
        std::optional<TabelaJet> tabela;
        std::array<const ColunaJet*, 3> colunas{}; ///< null where look-ups cannot have it
        std::optional<Falha> falta;                ///< what keeps look-ups out
    };

    static void acharColunas(const EsquemaDeTabela& esquema, Aberta& aberta);
    [[nodiscard]] const Aberta& aberta(TabelaDeCodigos qual) const { return abertas_[static_cast<std::size_t>(qual)]; }

    ArquivoJet arquivo_;
    std::array<Aberta, tabelasDeCodigos.size()> abertas_;
};

} // namespace quilatador
