#pragma once

#include "common/Falha.h"
#include "run/Achado.h"

#include <utility>

namespace quilatador {

/// Thrown for a structural finding, which ends the run. The message of the finding becomes a plain line in the log.
class ParadaEstrutural : public Falha {
  public:
    ParadaEstrutural(VistaTexto fonte, const Achado& achado)
        : ParadaEstrutural(Falha(numeroDeFalha::geral, fonte, achado.mensagem), achado) {}

    /// The finding that ends the run.
    [[nodiscard]] const Achado& achado() const noexcept { return achado_; }

  protected:
    /// For a failure that has a number and a source of its own.
    ParadaEstrutural(const Falha& causa, Achado achado) : Falha(causa), achado_(std::move(achado)) {}

    Achado achado_;
};

} // namespace quilatador
