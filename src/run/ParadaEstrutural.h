#pragma once

#include "common/Falha.h"
#include "run/Achado.h"

#include <utility>

namespace quilatador {

/// A structural finding, which ends the run: its message becomes a plain line of the log.
class ParadaEstrutural : public Falha {
  public:
    ParadaEstrutural(Texto fonte, Achado achado)
        : Falha(numeroDeFalha::geral, std::move(fonte), achado.mensagem), achado_(std::move(achado)) {}

    [[nodiscard]] const Achado& achado() const noexcept { return achado_; }

  private:
    Achado achado_;
};

} // namespace quilatador
