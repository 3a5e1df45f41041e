#include "frontend/laudo/GuiasDoLaudo.h"

#include <algorithm>

namespace quilatador {

void GuiasDoLaudo::somar(const GuiaConferida& guia) {
    if (guia.estado == GuiaConferida::Estado::NaoConferida) {
        if (naoConferidas_.primeira == 0) naoConferidas_.primeira = guia.guia;
        naoConferidas_.ultima = guia.guia;
    } else if (erradas_.size() < maisGuias) {
        erradas_.push_back(guia);
    } else if (primeiraForaDaLista_ == 0) {
        primeiraForaDaLista_ = guia.guia;
    }
}

std::int64_t GuiasDoLaudo::conhecidasAte(std::int64_t lidas) const noexcept {
    if (primeiraForaDaLista_ > 0) return primeiraForaDaLista_ - 1;
    return naoConferidas_.primeira > 0 ? naoConferidas_.primeira - 1 : lidas;
}

std::vector<GuiasDoLaudo::Faixa> GuiasDoLaudo::certas(std::int64_t lidas) const {
    std::vector<Faixa> faixas;
    std::int64_t proxima = 1;
    const auto juntarAte = [&](std::int64_t ultima) {
        if (proxima <= ultima) faixas.push_back({proxima, ultima});
    };
    for (const GuiaConferida& guia : erradas_) {
        juntarAte(guia.guia - 1);
        proxima = guia.guia + 1;
    }
    juntarAte(conhecidasAte(lidas));
    return faixas;
}

} // namespace quilatador
