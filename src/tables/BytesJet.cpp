#include "tables/BytesJet.h"

#include "common/Falha.h"
#include "tables/FalhaDoBanco.h"

namespace quilatador {

void recusarDanificado() {
    throw Falha(falhaDoBanco::danificado, "ArquivoJet"_t, "O banco de dados está danificado"_t);
}

std::string_view pedacoJet(std::string_view bytes, std::size_t posicao, std::size_t tamanho) {
    exigirIntegro(posicao <= bytes.size() && tamanho <= bytes.size() - posicao);
    return bytes.substr(posicao, tamanho);
}

std::uint32_t numeroJet(std::string_view bytes, std::size_t posicao, std::size_t largura) {
    const std::string_view pedaco = pedacoJet(bytes, posicao, largura);
    std::uint32_t valor = 0;
    for (std::size_t i = 0; i < largura; ++i)
        valor |= std::uint32_t{static_cast<unsigned char>(pedaco[i])} << (8 * i);
    return valor;
}

} // namespace quilatador
