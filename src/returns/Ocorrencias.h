#pragma once

#include "run/Achado.h"
#include "tables/ConsultasDaRodada.h"

#include <cstddef>
#include <cstdint>

namespace quilatador {

/// The occurrence codes that the bank put into one record of a print return (ZUL708). Keeps the view of the record.
class Ocorrencias {
  public:
    /// How many codes a record has room for.
    static constexpr std::size_t lugares = 3;

    /// A line that is too short for them has blanks in their place.
    explicit Ocorrencias(VistaTexto linha) : linha_(linha), codigos_(trecho(linha, inicio, lugares * tamanhoDoCodigo)) {
        codigos_.resize(lugares * tamanhoDoCodigo, ' ');
    }

    /// Whether the record has none, which is written as all zeros or all blanks.
    [[nodiscard]] bool nenhuma() const noexcept { return codigos_ == "000000"_t || codigos_ == "      "_t; }
    /// Whether there is a code at a place, 0 to `lugares` - 1.
    [[nodiscard]] bool tem(std::size_t lugar) const noexcept {
        return codigo(lugar) != "00"_t && codigo(lugar) != "  "_t;
    }
    /// The finding "zul708.ocorrencia" for the code at a place that has one. `numero` is the number of the line
    /// (1-based). Raises the failures of `ConsultasDaRodada`.
    [[nodiscard]] Achado achado(std::size_t lugar, std::int64_t numero, ConsultasDaRodada& consultas) const;
    /// What the message of such a finding says whatever its record is: the code, and its text if that is known.
    [[nodiscard]] static VistaTexto semRegistro(VistaTexto mensagem) noexcept;

  private:
    static constexpr std::size_t inicio = 229; ///< 1-based
    static constexpr std::size_t tamanhoDoCodigo = 2;

    [[nodiscard]] VistaTexto codigo(std::size_t lugar) const noexcept {
        return {codigos_.data() + lugar * tamanhoDoCodigo, tamanhoDoCodigo};
    }

    VistaTexto linha_;
    Texto codigos_;
};

} // namespace quilatador
