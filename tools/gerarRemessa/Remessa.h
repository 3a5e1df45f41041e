#pragma once

#include "gerarRemessa/Gerador.h"
#include "gerarRemessa/SaidaEmBlocos.h"

namespace quilatador::gerador {

/// Writes a ZUL702 or a ZUL708, its options checked before; gives back its number of records.
std::uint64_t gerarRemessa(const Opcoes& opcoes, SaidaEmBlocos& saida);

} // namespace quilatador::gerador
