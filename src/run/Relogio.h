#pragma once

#include "common/Data.h"

#include <chrono>

namespace quilatador {

/// The only source of the time in the program.
class Relogio {
  public:
    using Instante = std::chrono::nanoseconds;

    virtual ~Relogio() = default;
    /// Today's date in local time.
    [[nodiscard]] virtual Data hoje() const = 0;
    /// A clock for measuring durations. It never goes back, even when somebody changes the time of day.
    [[nodiscard]] virtual Instante agora() const = 0;
};

} // namespace quilatador
