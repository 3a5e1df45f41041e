#pragma once

#include "platform/LancadorDoSistema.h"

#include <mutex>

namespace quilatador {

/// Where the failures of a launcher go, as long as it lives.
struct LancadorDoSistema::Aviso {
    void dar(const std::filesystem::path& caminho) {
        const std::lock_guard tranca(vez);
        if (semPrograma) semPrograma(caminho);
    }

    std::mutex vez;
    SemPrograma semPrograma;
};

} // namespace quilatador
