#include "gerarRemessa/Linha.h"

#include <algorithm>

namespace quilatador::gerador {

Linha::Linha() {
    bytes_.fill(' ');
    bytes_[tamanho] = '\r';
    bytes_[tamanho + 1] = '\n';
}

void Linha::texto(const Campo& campo, std::initializer_list<VistaTexto> partes) noexcept {
    char* onde = bytes_.data() + campo.inicio - 1;
    std::size_t resto = campo.tamanho;
    for (const VistaTexto parte : partes) {
        const std::size_t cabem = std::min(parte.size(), resto);
        onde = std::copy_n(parte.data(), cabem, onde);
        resto -= cabem;
    }
    std::fill_n(onde, resto, ' ');
}

void Linha::numero(const Campo& campo, std::uint64_t valor) noexcept {
    escreverDigitos(std::span(bytes_).subspan(campo.inicio - 1, campo.tamanho), valor);
}

} // namespace quilatador::gerador
