#include "returns/Bloco.h"

namespace quilatador {

void Bloco::crescer(std::size_t falta) {
    bytes_.resize(2 * (bytes_.size() + falta));
}

} // namespace quilatador
