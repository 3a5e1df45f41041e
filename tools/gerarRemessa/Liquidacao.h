#pragma once

#include "gerarRemessa/Gerador.h"
#include "gerarRemessa/SaidaEmBlocos.h"

namespace quilatador::gerador {

/// Writes a TAV001 and returns its number of lines. The options must have been checked before.
std::uint64_t gerarLiquidacao(const Opcoes& opcoes, SaidaEmBlocos& saida);

} // namespace quilatador::gerador
