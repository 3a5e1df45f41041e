#pragma once

#include "layout/ArquivoRemessa.h"
#include "run/Rodada.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace quilatador {

/// Reads the records of a remittance, pass by pass. The fields that are needed of every line are looked up once per
/// record type, not by name at each line.
///
/// Order of use: `abrir` at the start of each pass, then `ler` until it returns a record with an empty line. The other
/// members tell about the current record; what they return is valid until the next `ler`.
class LeitorDeRegistros {
  public:
    /// Keeps references: both must outlive this object.
    LeitorDeRegistros(ArquivoRemessa& leiaute, Rodada& rodada);

    /// Opens the file of the run at its first line. `Falha` as in `Arquivos::abrirEntrada`, or 65 if the file is no
    /// longer the one that the first pass read.
    void abrir();
    /// The next record. Its line is empty at an empty line and at the end of the file. `Falha` as in
    /// `ArquivoRemessa::avancar`.
    [[nodiscard]] const RegistroRemessa& ler() { return leiaute_.avancar(false); }

    /// Number of lines read so far in this pass.
    [[nodiscard]] std::int64_t lidas() const noexcept { return leiaute_.contador(); }
    /// "TipoReg" of the current record, as text. This and the members below raise `Falha` 5 if the record type lacks
    /// the field.
    [[nodiscard]] const Texto& tipo();
    /// The letter of the current record; NUL if "TipoReg" is not exactly one character.
    [[nodiscard]] char letra();
    [[nodiscard]] Valor sequencial() const { return valor(campos().sequencial, "Sequencial"_t); }
    [[nodiscard]] Valor idRegistro() const { return valor(campos().idRegistro, "IDRegistro"_t); }
    /// The raw text of "Convenio", valid as long as the record.
    [[nodiscard]] VistaTexto convenio() const;

  private:
    /// The fields of one record type; null for those that it lacks.
    struct Campos {
        /// The letter that all lines of the type share, if it is what identifies the type; otherwise each line must be
        /// read.
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
    std::vector<Campos> campos_; ///< indexed like `tiposRegistros`
    Texto tipoLido_;             ///< the result of `tipo` if the lines of a type differ
};

} // namespace quilatador
