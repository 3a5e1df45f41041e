#pragma once

#include "gerarRemessa/Gerador.h"
#include "gerarRemessa/SaidaEmBlocos.h"

namespace quilatador::gerador {

/// Writes a ZUL702 or a ZUL708 and returns its number of records. The options must have been checked before.
std::uint64_t gerarRemessa(const Opcoes& opcoes, SaidaEmBlocos& saida);

} // namespace quilatador::gerador
