#include "layout/IndiceDeNomes.h"

namespace quilatador {

void IndiceDeNomes::incluir(VistaTexto nome) {
    constexpr std::size_t casasPorNome = 4;
    constexpr std::size_t menosCasas = 64;
    dispersos_.push_back(dispersar(nome));
    if (casas_.size() >= dispersos_.size() * casasPorNome)
        return por(static_cast<std::uint32_t>(dispersos_.size() - 1));
    casas_.assign(casas_.empty() ? menosCasas : casas_.size() * 2, livre);
    for (std::uint32_t lugar = 0; lugar < dispersos_.size(); ++lugar)
        por(lugar);
}

void IndiceDeNomes::por(std::uint32_t lugar) {
    const std::size_t ultima = casas_.size() - 1;
    std::size_t casa = dispersos_[lugar] & ultima;
    while (casas_[casa] != livre)
        casa = (casa + 1) & ultima;
    casas_[casa] = lugar;
}

} // namespace quilatador
