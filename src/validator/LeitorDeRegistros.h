#pragma once

#include "layout/ArquivoRemessa.h"
#include "run/Rodada.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace quilatador {

/// Walks through the records of a remittance, one pass after the other. What every line is asked for is looked up once
/// per record type, not by name at each line.
///
/// Order of use: `abrir` at the start of each pass, then `ler` until a record without line comes. What is asked about
/// the record in hand is valid until the next `ler`.
class LeitorDeRegistros {
  public:
    /// Both must live as long.
    LeitorDeRegistros(ArquivoRemessa& leiaute, Rodada& rodada);

    /// Opens the file of the run, from its first line on. `Falha` of the file system, or 65 where it is no longer the
    /// file that the first pass read.
    void abrir();
    /// The next record, without line where an empty line or the end of the file comes. `Falha` as
    /// `ArquivoRemessa::lerRegistro`.
    [[nodiscard]] const RegistroRemessa& ler() { return leiaute_.lerRegistro(false); }

    /// Lines read so far in this pass.
    [[nodiscard]] std::int32_t lidas() const noexcept { return leiaute_.contador(); }
    /// "TipoReg" of the record in hand, as text. `Falha` 5 where its type lacks the field, here and below.
    [[nodiscard]] const Texto& tipo();
    /// The letter of the record in hand; NUL where "TipoReg" is not one character.
    [[nodiscard]] char letra();
    [[nodiscard]] Valor sequencial() const { return valor(campos().sequencial, "Sequencial"_t); }
    [[nodiscard]] Valor idRegistro() const { return valor(campos().idRegistro, "IDRegistro"_t); }
    /// Raw text of "Convenio"; valid as long as the record.
    [[nodiscard]] VistaTexto convenio() const;

  private:
    /// The fields of one record type; null where it lacks them.
    struct Campos {
        /// The letter of all lines of the type, where that is what tells the type; none where each line must be asked.
        std::optional<Texto> tipoFixo;
        const CampoRemessa* tipoReg;
        const CampoRemessa* sequencial;
        const CampoRemessa* convenio;
        const CampoRemessa* idRegistro;
    };

    [[nodiscard]] const Campos& campos() const { return campos_[leiaute_.tipoEmMaos()]; }
    [[nodiscard]] Valor valor(const CampoRemessa* campo, VistaTexto nome) const;

    ArquivoRemessa& leiaute_;
    Rodada& rodada_;
    std::vector<Campos> campos_; ///< by place in `tiposRegistros`
    Texto tipoLido_;             ///< holds what `tipo` gives where the lines of a type differ
};

} // namespace quilatador
