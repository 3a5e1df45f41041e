#pragma once

#include "common/Texto.h"

namespace quilatador {

/// What the few texts that follow the system's language need of it.
class Localidade {
  public:
    virtual ~Localidade() = default;
    [[nodiscard]] virtual Texto separadorDeMilhar() const = 0;
    [[nodiscard]] virtual Texto separadorDecimal() const = 0;
    /// Full name of a month, 1 to 12, as the system writes it.
    [[nodiscard]] virtual Texto nomeDoMes(unsigned mes) const = 0;
};

} // namespace quilatador
