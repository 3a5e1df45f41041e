#pragma once

#include "common/Texto.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>

namespace quilatador::gerador {

/// Where a field lies in its line: `inicio` is 1-based. The name only tells it from the others.
struct Campo {
    char segmento;
    std::string_view nome;
    std::size_t inicio;
    std::size_t tamanho;
};

/// A line of 240 characters with its CR LF, blank until fields are written.
class Linha {
  public:
    static constexpr std::size_t tamanho = 240;

    Linha();

    /// Texts, one behind the other, filled with blanks on the right; what passes the field's end is cut.
    void texto(const Campo& campo, std::initializer_list<VistaTexto> partes) noexcept;
    /// Digits, filled with zeros on the left; high-order digits that do not fit are cut.
    void numero(const Campo& campo, std::uint64_t valor) noexcept;

    /// The character at a position, 1-based.
    [[nodiscard]] char caractere(std::size_t posicao) const noexcept { return bytes_[posicao - 1]; }
    /// The line with its end.
    [[nodiscard]] std::string_view bytes() const noexcept { return {bytes_.data(), bytes_.size()}; }

  private:
    std::array<char, tamanho + 2> bytes_;
};

/// Writes a number as digits that fill the whole of `destino`, zeros on the left; surplus high-order digits are cut.
inline void escreverDigitos(std::span<char> destino, std::uint64_t valor) noexcept {
    for (std::size_t i = destino.size(); i-- > 0; valor /= 10)
        destino[i] = static_cast<char>('0' + valor % 10);
}

} // namespace quilatador::gerador
