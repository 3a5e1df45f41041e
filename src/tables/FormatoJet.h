#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace quilatador {

/// The versions of the Jet file format: Access 97 writes version 3, Access 2000 to 2003 write version 4.
enum class VersaoJet : std::uint32_t { Jet3 = 0, Jet4 = 1 };

/// The type of a page, which is its first byte.
enum class PaginaJet : std::uint8_t { Cabecalho, Dados, Definicao, Indice, Folha, Mapa };

/// Where things are stored in a Jet file of one version, as far as reading needs it. A file consists of pages of one
/// size, and its numbers are little-endian. All positions are 0-based and in bytes; those of a table definition count
/// from the start of its first page.
struct FormatoJet {
    VersaoJet versao;
    std::size_t pagina; ///< size of a page in bytes

    std::size_t cabecalhoCifrado; ///< length of the ciphered part of page 0, which starts at `inicioCifrado`
    std::size_t senha;            ///< length of the password in bytes

    std::size_t contagemDeLinhas;  ///< data page: place of the number of rows; their positions follow, two bytes each
    std::size_t larguraDaContagem; ///< bytes of a count or position in a row, of a name's length, and of a character

    std::size_t colunasVariaveis; ///< definition: position of the number of columns of variable length
    std::size_t colunas;
    std::size_t indices; ///< the number of physical indexes
    std::size_t paginasUsadas;
    std::size_t entradas; ///< the entries of the indexes; the columns follow them
    std::size_t tamanhoDaEntrada;

    std::size_t coluna; ///< length of a column entry in a definition; its first byte is the type
    std::size_t numeroDaColuna;
    std::size_t lugarVariavel; ///< index of the column among those of variable length
    std::size_t sinais;
    std::size_t lugarFixo; ///< position in a row, counted from the end of the number of columns
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

/// Positions and other values that both versions share.
namespace lugarJet {
inline constexpr std::string_view assinatura{"\0\1\0\0Standard Jet DB\0", 20};
inline constexpr std::size_t versao = 0x14;
inline constexpr std::size_t inicioCifrado = 0x18;
inline constexpr std::size_t chave = 0x3E; ///< 4 bytes: 0, or the key with which all pages but the first are ciphered
inline constexpr std::size_t senha = 0x42;
inline constexpr std::size_t data = 0x72;       ///< Jet 4: day of creation, a double, which also masks the password
inline constexpr std::size_t proximaPagina = 4; ///< of a definition, 0 for none; on a data page: its table's definition
inline constexpr std::size_t continuacao = 8;   ///< start of the content in the further pages of a definition
inline constexpr std::uint32_t catalogo = 2;    ///< page that defines the table of all objects
} // namespace lugarJet

/// The parts of the number that gives the position of a row on its page.
namespace linhaJet {
inline constexpr std::uint32_t lugar = 0x1FFF;
inline constexpr std::uint32_t mudada = 0x4000;    ///< the slot holds only a pointer to the new place of the row
inline constexpr std::uint32_t escondida = 0x8000; ///< deleted, or only to be reached from where the row was before
} // namespace linhaJet

/// The column types that can be read. Other types are dates, money, pictures and the like.
enum class TipoJet : std::uint8_t {
    Byte = 2,
    Inteiro = 3, ///< 16 bits
    Longo = 4,   ///< 32 bits
    Simples = 6,
    Duplo = 7,
    Caracteres = 10,
    Memo = 12 ///< a text of any length, which is stored outside the row
};

/// A bit in the first byte of the flags of a column: its values have a fixed length.
inline constexpr unsigned colunaFixa = 0x01;

/// Enciphers bytes with a key of four bytes, or deciphers them again.
void cifrarJet(std::span<char> bytes, std::uint32_t chave);
/// Does the same for the part of page 0 that is ciphered in every file.
void cifrarCabecalhoJet(std::span<char> pagina, const FormatoJet& formato);
/// Masks the password in a deciphered page 0, or unmasks it again. Jet 3 has no mask.
void mascararSenhaJet(std::span<char> pagina, const FormatoJet& formato);

} // namespace quilatador
