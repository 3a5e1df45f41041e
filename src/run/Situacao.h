#pragma once

/// The exit statuses of the programs.
namespace quilatador::situacao {

inline constexpr int nadaEncontrado = 0;
inline constexpr int haAchados = 1;      ///< errors, a structural finding, a file of another type, or occurrences
inline constexpr int naoRodou = 2;       ///< wrong usage, or something that the program needs is missing
inline constexpr int interrompido = 130; ///< the usual status of a program that was ended by Ctrl-C

} // namespace quilatador::situacao
