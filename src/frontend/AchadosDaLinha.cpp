#include "frontend/AchadosDaLinha.h"

#include <algorithm>
#include <utility>

namespace quilatador {

namespace {

constexpr std::size_t primeirasCausas = 1024;
constexpr std::size_t ultimasCausas = 4096;

} // namespace

AchadosDaLinha::AchadosDaLinha(std::int64_t linha) : linha_(linha), ultimas_(ultimasCausas) {}

void AchadosDaLinha::achado(const Achado& achado) {
    if (achado.causa == 0) lembrar(achado);
    if (achado.linha != linha_) return;
    if (achados_.size() == maisAchados) {
        ++outros_;
        return;
    }
    achados_.push_back(achado);
    if (const Causa* const causa = lembrada(achado.causa)) causas_.emplace(achado.causa, *causa);
}

const AchadosDaLinha::Causa* AchadosDaLinha::causaDe(const Achado& achado) const {
    const auto causa = causas_.find(achado.causa);
    return causa == causas_.end() ? nullptr : &causa->second;
}

void AchadosDaLinha::lembrar(const Achado& causa) {
    Causa& lugar = primeiras_.size() < primeirasCausas ? primeiras_.emplace_back()
                                                       : ultimas_[static_cast<std::size_t>(causa.n) % ultimasCausas];
    lugar.n = causa.n;
    lugar.linha = causa.linha;
    lugar.mensagem = causa.mensagem;
}

const AchadosDaLinha::Causa* AchadosDaLinha::lembrada(std::int64_t n) const {
    if (n == 0) return nullptr;
    const auto primeira = std::ranges::lower_bound(primeiras_, n, {}, &Causa::n);
    if (primeira != primeiras_.end() && primeira->n == n) return &*primeira;
    const Causa& ultima = ultimas_[static_cast<std::size_t>(n) % ultimasCausas];
    return ultima.n == n ? &ultima : nullptr;
}

std::vector<PedacoMarcado> marcar(std::vector<PedacoDaRegua> regua, std::span<const Achado> achados) {
    std::vector<PedacoMarcado> marcados;
    for (PedacoDaRegua& pedaco : regua) {
        PedacoMarcado& marcado = marcados.emplace_back();
        marcado.pedaco = std::move(pedaco);
        for (const Achado& achado : achados)
            if (achado.campo && achado.campo->inicio <= marcado.pedaco.fim &&
                achado.campo->fim >= marcado.pedaco.inicio)
                marcado.achados.push_back(&achado);
    }
    return marcados;
}

} // namespace quilatador
