#pragma once

#include "common/Texto.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>

namespace quilatador::gerador {

/// The place of a field in its line, starting at `inicio` (1-based). The name only serves to find the field.
struct Campo {
    char segmento;
    std::string_view nome;
    std::size_t inicio;
    std::size_t tamanho;
};

/// A line of 240 characters with its CR LF. It is blank until fields are written.
class Linha {
  public:
    static constexpr std::size_t tamanho = 240;

    Linha();

    /// Writes the texts one after the other and fills the field with blanks on the right. What goes beyond the end of
    /// the field is cut.
    void texto(const Campo& campo, std::initializer_list<VistaTexto> partes) noexcept;
    /// Writes a number with leading zeros. Digits on the left that do not fit are cut.
    void numero(const Campo& campo, std::uint64_t valor) noexcept;

    /// The character at a position (1-based).
    [[nodiscard]] char caractere(std::size_t posicao) const noexcept { return bytes_[posicao - 1]; }
    /// The line, with its CR LF.
    [[nodiscard]] std::string_view bytes() const noexcept { return {bytes_.data(), bytes_.size()}; }

  private:
    std::array<char, tamanho + 2> bytes_;
};

/// Writes a number with leading zeros into the whole of `destino`. Digits on the left that do not fit are cut.
inline void escreverDigitos(std::span<char> destino, std::uint64_t valor) noexcept {
    for (std::size_t i = destino.size(); i-- > 0; valor /= 10)
        destino[i] = static_cast<char>('0' + valor % 10);
}

} // namespace quilatador::gerador
