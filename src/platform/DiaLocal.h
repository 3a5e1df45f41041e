#pragma once

#include "common/Data.h"

#include <ctime>

namespace quilatador {

/// The date of a moment in the system's time zone.
[[nodiscard]] Data diaLocal(std::time_t momento);

} // namespace quilatador
