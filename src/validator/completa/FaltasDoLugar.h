#pragma once

#include "validator/completa/Coletor.h"

namespace quilatador {

/// A finding about the structure of a file. `linha` is 1-based; `letra` is NUL where no record is meant.
[[nodiscard]] Achado faltaDeEstrutura(VistaTexto id, std::int64_t linha, char letra, VistaTexto mensagem);

/// What is wrong with the structure at the line in hand, and with the line right in front of it: whatever else breaks
/// at the same place follows from that.
class FaltasDoLugar {
  public:
    /// `coletor` must outlive this object.
    explicit FaltasDoLugar(Coletor& coletor) noexcept : coletor_(coletor) {}

    /// The line in hand is another one.
    void proximaLinha() noexcept;
    /// Tells a finding about the line in hand that follows from `causa` (0 for none), and returns the number of the
    /// cause from which all of it follows.
    std::int64_t acusar(Achado achado, std::int64_t causa = 0);
    /// Notes that somebody else has told what is wrong with the line in hand, by the number of that finding.
    void acusada(std::int64_t causa) noexcept { daLinha_ = causa; }
    /// The finding about the line in hand; 0 if there is none.
    [[nodiscard]] std::int64_t daLinha() const noexcept { return daLinha_; }
    /// What a letter out of place here follows from: what is wrong with this line, or else with the one before.
    [[nodiscard]] std::int64_t causa() const noexcept { return daLinha_ != 0 ? daLinha_ : daAnterior_; }

    /// Notes that lines are missing right in front of the one in hand, which this finding says.
    void faltamLinhas(std::int64_t causa) noexcept { perdaAqui_ = causa; }
    /// The line in hand has been dealt with: its record has its effect, or none, because it is of no known type ('\0')
    /// or its letter is in a wrong place. Then it is as if a line were missing in front of the next one.
    void comEfeito() noexcept { semEfeito_ = 0; }
    void semEfeito(char letra) noexcept;
    /// The finding that says that something is missing right in front of the line in hand; 0 if none does.
    [[nodiscard]] std::int64_t perda() const noexcept { return perdaAqui_ != 0 ? perdaAqui_ : semEfeito_; }
    /// The finding about the line before if that has no effect, or else 0; and its letter, NUL if it is unknown.
    [[nodiscard]] std::int64_t anteriorSemEfeito() const noexcept { return semEfeito_; }
    [[nodiscard]] char letraSemEfeito() const noexcept { return semEfeito_ != 0 ? letraSemEfeito_ : '\0'; }

  private:
    Coletor& coletor_;
    std::int64_t daLinha_ = 0;
    std::int64_t daAnterior_ = 0;
    std::int64_t perdaAqui_ = 0;
    std::int64_t semEfeito_ = 0;
    char letraSemEfeito_ = '\0';
};

} // namespace quilatador
