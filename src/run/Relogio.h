#pragma once

#include "common/Data.h"

#include <chrono>

namespace quilatador {

/// The only source of time. `agora` never goes back, whatever happens to the time of day.
class Relogio {
  public:
    using Instante = std::chrono::nanoseconds;

    virtual ~Relogio() = default;
    [[nodiscard]] virtual Data hoje() const = 0;
    [[nodiscard]] virtual Instante agora() const = 0;
};

} // namespace quilatador
