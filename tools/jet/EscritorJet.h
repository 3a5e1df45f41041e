#pragma once

#include "common/Texto.h"
#include "tables/FormatoJet.h"

#include <cstdint>
#include <variant>
#include <vector>

namespace quilatador {

/// Types of columns, numbered as the file does.
enum class TipoJet : std::uint8_t {
    Byte = 2,
    Inteiro = 3, ///< 16 bits
    Longo = 4,   ///< 32 bits
    Simples = 6,
    Duplo = 7,
    DataHora = 8, ///< days since 30 December 1899
    Binario = 9,
    Caracteres = 10,
    Ole = 11,
    Memo = 12 ///< a text of any length
};

struct ColunaJet {
    Texto nome; ///< up to 64 characters
    TipoJet tipo = TipoJet::Caracteres;
    std::size_t tamanho = 0; ///< of a text or binary column, 255 at most; others have none
};

/// Null, a number (for the numeric columns) or a text.
using ValorJet = std::variant<std::monostate, double, Texto>;

struct TabelaJet {
    Texto nome;
    std::vector<ColunaJet> colunas;
    std::vector<std::vector<ValorJet>> linhas; ///< a value for each column
};

struct BancoJet {
    VersaoJet versao = VersaoJet::Jet4;
    Texto senha;                 ///< "" for none
    std::uint32_t chave = 0;     ///< what all pages are ciphered with, 0 for plain ones
    bool mapasEmPaginas = false; ///< the tables' page maps on pages of their own, as large tables must have them
    std::vector<TabelaJet> tabelas;
};

/// The bytes of a database file with these tables: what readers of Jet files ask for, without indexes, queries and
/// rights, which Access itself would make. `std::length_error` for a row that does not fit a page.
[[nodiscard]] Texto escreverJet(const BancoJet& banco);

} // namespace quilatador
