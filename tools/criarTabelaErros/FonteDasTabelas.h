#pragma once

#include "jet/EscritorJet.h"

#include <istream>

namespace quilatador {

/// Reads a database written as a text in UTF-8:
///
///     # a comment
///     senha segredo
///     tabela Forma: codigo texto(1), descricao texto(100), ordem inteiro
///     1 | Dinheiro | 10
///     2 |          | 20
///
/// The lines behind a table are its rows, one value for each column; blanks around a value do not count, and an empty
/// one is null. Types are `inteiro` (16 bits), `longo` (32 bits) and `texto(n)`. `Falha` names the line of a fault.
[[nodiscard]] BancoJet lerTabelas(std::istream& fonte);

} // namespace quilatador
