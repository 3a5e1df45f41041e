#pragma once

#include "common/Texto.h"
#include "run/Relogio.h"

#include <cstdint>

namespace quilatador {

/// How far a run has come, in plain numbers: what a display makes of them, and how often, is its own business.
struct Progresso {
    std::int32_t registroAtual = 0; ///< 1-based; 0 before the first
    std::int32_t totalRegistros = 0;
    std::int32_t guias = 0;
    Relogio::Instante inicio{}; ///< of the phase in hand, on `Relogio::agora`
};

/// Time since the start of the phase, and the time that the records left will take at the same pace (negative where
/// more records came than were foreseen).
[[nodiscard]] Relogio::Instante tempoDecorrido(const Progresso& progresso, Relogio::Instante agora) noexcept;
[[nodiscard]] Relogio::Instante tempoRestante(const Progresso& progresso, Relogio::Instante agora) noexcept;

/// "hh:nn:ss", with as many digits for the hours as they need, "-" in front of a negative time.
[[nodiscard]] Texto formatarTempo(Relogio::Instante tempo);

} // namespace quilatador
