#pragma once

/// Statuses that the programs end with.
namespace quilatador::situacao {

inline constexpr int nadaEncontrado = 0;
inline constexpr int haAchados = 1;      ///< errors, a structural finding, another type of file, occurrences
inline constexpr int naoRodou = 2;       ///< wrong use, or something that the program needs is missing
inline constexpr int interrompido = 130; ///< as a shell has it for a program that Ctrl-C ended

} // namespace quilatador::situacao
