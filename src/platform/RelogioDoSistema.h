#pragma once

#include "run/Relogio.h"

namespace quilatador {

/// The machine's calendar, in its time zone, and its monotonic clock.
class RelogioDoSistema final : public Relogio {
  public:
    [[nodiscard]] Data hoje() const override;
    [[nodiscard]] Instante agora() const override;
};

} // namespace quilatador
