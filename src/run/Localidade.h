#pragma once

#include "common/Texto.h"

namespace quilatador {

/// The regional settings of the system, for the few texts that follow them.
class Localidade {
  public:
    virtual ~Localidade() = default;
    /// The separators of a number: between groups of three digits, and before the decimals.
    [[nodiscard]] virtual Texto separadorDeMilhar() const = 0;
    [[nodiscard]] virtual Texto separadorDecimal() const = 0;
    /// The full name of a month, 1 to 12, as the system writes it.
    [[nodiscard]] virtual Texto nomeDoMes(unsigned mes) const = 0;
};

} // namespace quilatador
