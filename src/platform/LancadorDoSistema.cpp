#include "platform/AvisoDoLancador.h"

#include <utility>

namespace quilatador {

LancadorDoSistema::LancadorDoSistema(SemPrograma semPrograma) : aviso_(std::make_shared<Aviso>()) {
    aviso_->semPrograma = std::move(semPrograma);
}

LancadorDoSistema::~LancadorDoSistema() {
    const std::lock_guard tranca(aviso_->vez);
    aviso_->semPrograma = nullptr;
}

} // namespace quilatador
