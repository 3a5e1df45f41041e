#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quilatador {

/// Versions of the Jet file format: 3 is that of Access 97, 4 that of Access 2000 to 2003.
enum class VersaoJet : std::uint32_t { Jet3 = 0, Jet4 = 1 };

/// First byte of a page.
enum class PaginaJet : std::uint8_t { Cabecalho, Dados, Definicao, Indice, Folha, Mapa };

/// Where things lie in a Jet file. It is made of pages of one size; numbers are little-endian; all places are 0-based
/// and in bytes, those of a table definition from the start of its first page. What is here is
/// what reading asks for.
struct FormatoJet {
    VersaoJet versao;
    std::size_t pagina; ///< size of a page

    std::size_t cabecalhoCifrado; ///< bytes of page 0 that are ciphered, from `inicioCifrado`
    std::size_t senha;            ///< bytes of the password

    std::size_t contagemDeLinhas;  ///< in a data page: number of rows, whose places follow, two bytes each
    std::size_t larguraDaContagem; ///< bytes of each count and place in a row, of a name's length, and of a character

    std::size_t colunasVariaveis; ///< in a definition: how many columns are of variable length
    std::size_t colunas;
    std::size_t indices; ///< physical indexes
    std::size_t paginasUsadas;
    std::size_t entradas; ///< the indexes' entries, behind which the columns follow
    std::size_t tamanhoDaEntrada;

    std::size_t coluna; ///< bytes of a column in a definition; its type is the first
    std::size_t numeroDaColuna;
    std::size_t lugarVariavel; ///< its number among the columns of variable length
    std::size_t sinais;
    std::size_t lugarFixo; ///< place in a row, counted from behind the number of columns
    std::size_t tamanhoDaColuna;
};

inline constexpr FormatoJet jet3{.versao = VersaoJet::Jet3,
                                 .pagina = 2048,
                                 .cabecalhoCifrado = 126,
                                 .senha = 20,
                                 .contagemDeLinhas = 8,
                                 .larguraDaContagem = 1,
                                 .colunasVariaveis = 23,
                                 .colunas = 25,
                                 .indices = 31,
                                 .paginasUsadas = 35,
                                 .entradas = 43,
                                 .tamanhoDaEntrada = 8,
                                 .coluna = 18,
                                 .numeroDaColuna = 1,
                                 .lugarVariavel = 3,
                                 .sinais = 13,
                                 .lugarFixo = 14,
                                 .tamanhoDaColuna = 16};

inline constexpr FormatoJet jet4{.versao = VersaoJet::Jet4,
                                 .pagina = 4096,
                                 .cabecalhoCifrado = 128,
                                 .senha = 40,
                                 .contagemDeLinhas = 12,
                                 .larguraDaContagem = 2,
                                 .colunasVariaveis = 43,
                                 .colunas = 45,
                                 .indices = 51,
                                 .paginasUsadas = 55,
                                 .entradas = 63,
                                 .tamanhoDaEntrada = 12,
                                 .coluna = 25,
                                 .numeroDaColuna = 5,
                                 .lugarVariavel = 7,
                                 .sinais = 15,
                                 .lugarFixo = 21,
                                 .tamanhoDaColuna = 23};

/// Places that both versions share.
namespace lugarJet {
inline constexpr std::string_view assinatura{"\0\1\0\0Standard Jet DB\0", 20};
inline constexpr std::size_t versao = 0x14;
inline constexpr std::size_t inicioCifrado = 0x18;
inline constexpr std::size_t chave = 0x3E; ///< 4 bytes: 0, or what all pages but the first are ciphered with
inline constexpr std::size_t senha = 0x42;
inline constexpr std::size_t data = 0x72;       ///< Jet 4: day of creation, a double; it masks the password too
inline constexpr std::size_t proximaPagina = 4; ///< of a definition, 0 for none; in a data page the table's definition
inline constexpr std::size_t continuacao = 8;   ///< in the further pages of a definition
inline constexpr std::uint32_t catalogo = 2;    ///< page with the definition of the table of all objects
} // namespace lugarJet

/// In the place of a row on its page.
namespace linhaJet {
inline constexpr std::uint32_t lugar = 0x1FFF;
inline constexpr std::uint32_t mudada = 0x4000;    ///< only the place where the row is now stands here
inline constexpr std::uint32_t escondida = 0x8000; ///< deleted, or to be reached only from where the row was before
} // namespace linhaJet

/// Types of columns that are read. The rest are dates, money, pictures and the like.
enum class TipoJet : std::uint8_t {
    Byte = 2,
    Inteiro = 3, ///< 16 bits
    Longo = 4,   ///< 32 bits
    Simples = 6,
    Duplo = 7,
    Caracteres = 10,
    Memo = 12 ///< a text of any length, which lies elsewhere
};

/// In the first of the signs of a column.
inline constexpr unsigned colunaFixa = 0x01;

/// Ciphers bytes with a key of four, or brings them back.
void cifrarJet(std::span<char> bytes, std::uint32_t chave);
/// The same for the part of page 0 that all files have ciphered.
void cifrarCabecalhoJet(std::span<char> pagina, const FormatoJet& formato);
/// Lays the mask over the password of a plain page 0, or takes it off. Jet 3 has none.
void mascararSenhaJet(std::span<char> pagina, const FormatoJet& formato);

} // namespace quilatador
