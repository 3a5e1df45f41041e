#include "platform/RelogioDoSistema.h"

#include "platform/DiaLocal.h"

namespace quilatador {

Data RelogioDoSistema::hoje() const {
    return diaLocal(std::time(nullptr));
}

Relogio::Instante RelogioDoSistema::agora() const {
    return std::chrono::steady_clock::now().time_since_epoch();
}

} // namespace quilatador
