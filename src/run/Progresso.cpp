#include "run/Progresso.h"

#include <algorithm>
#include <cmath>

namespace quilatador {

std::int64_t registrosDaRemessa(std::uint64_t bytes) {
    constexpr double bytesPorRegistro = 241;
    return static_cast<std::int64_t>(std::nearbyint(static_cast<double>(bytes) / bytesPorRegistro));
}

Relogio::Instante tempoDecorrido(const Progresso& progresso, Relogio::Instante agora) noexcept {
    return agora - progresso.inicio;
}

Relogio::Instante tempoRestante(const Progresso& progresso, Relogio::Instante agora) noexcept {
    const auto porRegistro = tempoDecorrido(progresso, agora) / std::max<std::int64_t>(progresso.registroAtual, 1);
    return porRegistro * (progresso.totalRegistros - progresso.registroAtual);
}

Texto formatarTempo(Relogio::Instante tempo) {
    const bool negativo = tempo < Relogio::Instante::zero();
    const auto segundos = std::chrono::duration_cast<std::chrono::seconds>(negativo ? -tempo : tempo).count();
    return junta(negativo && segundos > 0 ? "-"_t : ""_t, comZeros(segundos / 3600, 2), ":"_t,
                 comZeros(segundos / 60 % 60, 2), ":"_t, comZeros(segundos % 60, 2));
}

} // namespace quilatador
