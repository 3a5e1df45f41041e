#pragma once

#include "gerarRemessa/Gerador.h"
#include "gerarRemessa/SaidaEmBlocos.h"

namespace quilatador::gerador {

/// Writes a TAV001, its options checked before; gives back its number of lines.
std::uint64_t gerarLiquidacao(const Opcoes& opcoes, SaidaEmBlocos& saida);

} // namespace quilatador::gerador
