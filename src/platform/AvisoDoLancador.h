#pragma once

#include "platform/LancadorDoSistema.h"

#include <mutex>
#include <system_error>

namespace quilatador {

/// Where the failures of a launcher go, as long as it lives.
struct LancadorDoSistema::Aviso {
    void dar(const std::filesystem::path& caminho) {
        std::error_code erro;
        const std::filesystem::path inteiro = std::filesystem::absolute(caminho, erro);
        const std::lock_guard tranca(vez);
        if (semPrograma) semPrograma(erro ? caminho : inteiro);
    }

    std::mutex vez;
    SemPrograma semPrograma;
};

} // namespace quilatador
