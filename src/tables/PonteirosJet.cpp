#include "tables/PonteirosJet.h"

#include "tables/BytesJet.h"

namespace quilatador {

namespace {

constexpr std::size_t tamanhoDoPonteiro = 4;

} // namespace

VagaJet PonteirosJet::seguir(std::uint32_t ponteiro) {
    const VagaJet vaga = arquivo_->vagaEm(ponteiro);
    if (ponteiro >= seguidos_.size()) seguidos_.resize((ponteiro | 0xFF) + 1);
    exigirIntegro(!seguidos_[ponteiro] && vaga.bytes.size() <= restam_);
    seguidos_[ponteiro] = true;
    restam_ -= vaga.bytes.size();
    return vaga;
}

std::string_view PonteirosJet::linha(const VagaJet& vaga) {
    VagaJet atual = vaga;
    while (atual.mudada)
        atual = seguir(numeroJet(atual.bytes, 0, tamanhoDoPonteiro));
    return atual.bytes;
}

std::string PonteirosJet::textoLongo(std::string_view cabeca) {
    constexpr std::size_t tamanhoDaCabeca = 12;
    constexpr std::uint32_t naLinha = 0x80000000;
    constexpr std::uint32_t inteiro = 0x40000000;
    exigirIntegro(cabeca.size() >= tamanhoDaCabeca);
    const std::uint32_t sinais = numeroJet(cabeca, 0, 4);
    const std::uint32_t ponteiro = numeroJet(cabeca, 4, tamanhoDoPonteiro);
    const std::size_t tamanho = sinais & ~(naLinha | inteiro);
    if ((sinais & naLinha) != 0) return std::string(pedacoJet(cabeca, tamanhoDaCabeca, tamanho));
    if ((sinais & inteiro) != 0) return std::string(pedacoJet(seguir(ponteiro).bytes, 0, tamanho));
    return juntarPedacos(ponteiro, tamanho);
}

/// Each piece begins with a pointer to the next one.
std::string PonteirosJet::juntarPedacos(std::uint32_t ponteiro, std::size_t tamanho) {
    exigirIntegro(tamanho <= restam_);
    std::string texto;
    texto.reserve(tamanho);
    while (texto.size() < tamanho) {
        const std::string_view pedaco = seguir(ponteiro).bytes;
        exigirIntegro(pedaco.size() > tamanhoDoPonteiro);
        ponteiro = numeroJet(pedaco, 0, tamanhoDoPonteiro);
        texto.append(pedaco.substr(tamanhoDoPonteiro, tamanho - texto.size()));
    }
    return texto;
}

} // namespace quilatador
