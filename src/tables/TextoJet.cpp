#include "tables/TextoJet.h"

#include "common/Texto.h"

#include <cstdint>

namespace quilatador {

namespace {

std::uint32_t byteEm(std::string_view bytes, std::size_t posicao) noexcept {
    return static_cast<unsigned char>(bytes[posicao]);
}

void juntarUtf8(std::string& destino, std::uint32_t ponto) {
    constexpr std::uint32_t primeiraMetade = 0xD800;
    constexpr std::uint32_t ultimaMetade = 0xDFFF;
    if (ponto >= primeiraMetade && ponto <= ultimaMetade) ponto = '?';
    if (ponto < 0x80) {
        destino.push_back(static_cast<char>(ponto));
        return;
    }
    if (ponto < 0x800) {
        destino.push_back(static_cast<char>(0xC0 | ponto >> 6));
    } else {
        destino.push_back(static_cast<char>(0xE0 | ponto >> 12));
        destino.push_back(static_cast<char>(0x80 | (ponto >> 6 & 0x3F)));
    }
    destino.push_back(static_cast<char>(0x80 | (ponto & 0x3F)));
}

} // namespace

std::string utf8DoTextoJet(std::string_view bytes, VersaoJet versao) {
    if (versao == VersaoJet::Jet3) return utf8DeTexto(textoDosBytes(bytes));
    constexpr std::string_view marca = "\xFF\xFE";
    const bool comprimido = bytes.starts_with(marca);
    if (comprimido) bytes.remove_prefix(marca.size());
    std::string utf8;
    utf8.reserve(bytes.size());
    std::size_t largura = comprimido ? 1 : 2;
    for (std::size_t i = 0; i + largura <= bytes.size();) {
        if (comprimido && bytes[i] == '\0') {
            largura = 3 - largura;
            ++i;
            continue;
        }
        juntarUtf8(utf8, byteEm(bytes, i) | (largura == 2 ? byteEm(bytes, i + 1) << 8 : 0));
        i += largura;
    }
    return utf8;
}

} // namespace quilatador
