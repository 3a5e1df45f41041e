#include "platform/Terminal.h"

#include <cstdlib>

namespace quilatador {

bool temCores(Fluxo fluxo) {
    const char* const semCores = std::getenv("NO_COLOR");
    return (!semCores || *semCores == '\0') && redesenha(fluxo);
}

} // namespace quilatador
