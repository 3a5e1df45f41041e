#include "layout/IndiceDeNomes.h"

#include <utility>

namespace quilatador {

void IndiceDeNomes::incluir(VistaTexto nome) {
    constexpr std::size_t casasPorNome = 4;
    constexpr std::size_t menosCasas = 32;
    if (casas_.size() < (quantos_ + 1) * casasPorNome) {
        const std::vector<Casa> antigas =
            std::exchange(casas_, std::vector<Casa>(casas_.empty() ? menosCasas : casas_.size() * 2));
        for (const Casa& casa : antigas)
            if (casa.lugar != livre) por(casa);
    }
    por({resumir(nome), quantos_++});
}

void IndiceDeNomes::por(Casa nova) {
    const std::size_t ultima = casas_.size() - 1;
    std::size_t i = nova.resumo & ultima;
    while (casas_[i].lugar != livre)
        i = (i + 1) & ultima;
    casas_[i] = nova;
}

} // namespace quilatador
