#pragma once

/// The failure numbers of the code-table database.
namespace quilatador::falhaDoBanco {

inline constexpr int naoAberto = 3420;
inline constexpr int arquivo = 3024;        ///< the file is missing, unreadable or too large
inline constexpr int naoReconhecido = 3343; ///< not a Jet 3 or Jet 4 database
inline constexpr int danificado = 3049;
inline constexpr int senhaInvalida = 3031;
inline constexpr int semTabela = 3078;
inline constexpr int semColuna = 3061;
inline constexpr int colunaDeOutroTipo = 3259; ///< its type holds neither numbers nor texts
inline constexpr int consultaRecusada = 3075;
inline constexpr int motor = 3035; ///< the engine ran out of memory

} // namespace quilatador::falhaDoBanco
