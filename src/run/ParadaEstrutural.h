#pragma once

#include "common/Falha.h"
#include "run/Achado.h"

#include <utility>

namespace quilatador {

/// Thrown for a structural finding, which ends the run. The message of the finding becomes a plain line in the log.
class ParadaEstrutural : public Falha {
  public:
    ParadaEstrutural(VistaTexto fonte, Achado achado)
        : Falha(numeroDeFalha::geral, fonte, achado.mensagem), achado_(std::move(achado)) {}

    /// The finding that ends the run.
    [[nodiscard]] const Achado& achado() const noexcept { return achado_; }

  private:
    Achado achado_;
};

} // namespace quilatador
