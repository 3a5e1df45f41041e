#pragma once

#include "common/Data.h"
#include "layout/RegistroRemessa.h"
#include "run/FalhaDeLeitura.h"
#include "run/Painel.h"
#include "run/Rodada.h"

#include <cstdint>
#include <span>

namespace quilatador {

/// What a step of a check rests on: a field of a record, or a record as a whole.
struct Fundamento {
    char letra = 0;         ///< of the record's segment
    std::int16_t campo = 0; ///< where the field begins, 1-based; 0 stands for all fields
    std::int64_t linha = 0; ///< line of the record, 1-based; 0 stands for all records of the segment

    /// Whether both may be about the same field of the same record.
    [[nodiscard]] bool toca(const Fundamento& outro) const noexcept {
        return letra == outro.letra && (campo == 0 || outro.campo == 0 || campo == outro.campo) &&
               (linha == 0 || outro.linha == 0 || linha == outro.linha);
    }
};

/// Whom the checks report to. The run of a log wants the lines of the log, in which a step that cannot be made ends the
/// run or is passed over in silence. A complete check wants to know more: what each finding rests on, what cannot be
/// read, and what deserves a notice although no rule forbids it.
class Apontador {
  public:
    Apontador() = default;
    Apontador(const Apontador&) = delete;
    Apontador& operator=(const Apontador&) = delete;
    virtual ~Apontador() = default;

    /// Takes a finding. A complete check is told on what it rests; in the run of a log `fundamentos` is empty.
    virtual void apontar(Achado achado, std::span<const Fundamento> fundamentos) = 0;
    /// Takes a plain line for the log.
    virtual void eco(VistaTexto /*linha*/) {}
    /// Takes the text of a label of the display.
    virtual void rotulo(Rotulo /*qual*/, VistaTexto /*texto*/) {}
    /// Today's date, the same from the start to the end.
    [[nodiscard]] virtual const Data& hoje() const = 0;
    /// Whether the user wants it to stop; for loops over very many records. See `Rodada::canceladaAgora`.
    [[nodiscard]] virtual bool canceladaAgora() = 0;

    /// Whether this is a complete check. The functions below are called only then.
    [[nodiscard]] virtual bool completo() const noexcept { return false; }
    /// A field of the record under check, or of another that it needs, could not be read. The step which needed it is
    /// left out, or goes on without a value.
    virtual void naoLido(const FalhaDeLeitura& /*falha*/, const RegistroRemessa& /*emVerificacao*/,
                         const Fundamento& /*campo*/) {}
    /// Whether a step has to be left out, because what it rests on is missing or could not be read.
    [[nodiscard]] virtual bool falta(const Fundamento& /*fundamento*/) { return false; }
    /// Whether a record of the slip is not to be checked at all, although the file may have it.
    [[nodiscard]] virtual bool naoConferido(char /*letra*/) const noexcept { return false; }
};

/// Reports to the run of a log.
class ApontadorDaRodada final : public Apontador {
  public:
    /// `rodada` must outlive this object.
    explicit ApontadorDaRodada(Rodada& rodada) noexcept : rodada_(rodada) {}

    void apontar(Achado achado, std::span<const Fundamento> /*fundamentos*/) override { rodada_.escreverErro(achado); }
    void eco(VistaTexto linha) override { rodada_.escreverLog(linha); }
    void rotulo(Rotulo qual, VistaTexto texto) override { rodada_.painel().rotulo(qual, texto); }
    [[nodiscard]] const Data& hoje() const override { return rodada_.hoje(); }
    [[nodiscard]] bool canceladaAgora() override { return rodada_.canceladaAgora(); }

  private:
    Rodada& rodada_;
};

} // namespace quilatador
