#pragma once

#include "common/Texto.h"
#include "run/Relogio.h"

#include <cstdint>

namespace quilatador {

/// How far a run has come, in plain numbers. The display decides how and how often it shows them.
struct Progresso {
    std::int64_t registroAtual = 0; ///< number of the current record, 1-based; 0 before the first
    std::int64_t totalRegistros = 0;
    std::int64_t barra = 0;     ///< how far the progress bar is, in records: at most `totalRegistros`
    std::int64_t guias = 0;     ///< number of slips to be shown
    Relogio::Instante inicio{}; ///< start of the current phase, as read from `Relogio::agora`
};

/// Moves to a record of a remittance. Its bar follows as long as more records are expected, so that it never reaches
/// its end: kept on purpose, the test `progressoUmaVezPorLinha` holds it.
inline void irParaRegistro(Progresso& progresso, std::int64_t registro) noexcept {
    progresso.registroAtual = registro;
    if (progresso.totalRegistros > registro) progresso.barra = registro;
}

/// Estimates the number of records of a remittance from the length of its file, to the nearest whole number (halves to
/// even).
[[nodiscard]] std::int64_t registrosDaRemessa(std::uint64_t bytes);

/// The time since the phase started, and the time that the remaining records will take at the same pace. The latter is
/// negative when there are more records than expected.
[[nodiscard]] Relogio::Instante tempoDecorrido(const Progresso& progresso, Relogio::Instante agora) noexcept;
[[nodiscard]] Relogio::Instante tempoRestante(const Progresso& progresso, Relogio::Instante agora) noexcept;

/// Formats a time as "hh:nn:ss" (hours, minutes, seconds). Hours take more digits when they need them, and a negative
/// time starts with "-".
[[nodiscard]] Texto formatarTempo(Relogio::Instante tempo);

} // namespace quilatador
