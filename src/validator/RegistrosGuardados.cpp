#include "validator/RegistrosGuardados.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace quilatador {

void RegistrosGuardados::guardar(const RegistroRemessa& registro) {
    colunas_.clear();
    if (quantos_ == guardados_.size()) guardados_.emplace_back();
    guardados_[quantos_].linha = registro.linha();
    guardados_[quantos_++].lugar = registro.lugar();
}

const RegistroRemessa& RegistrosGuardados::operator[](std::size_t lugar) const {
    modelo_.linha(guardados_[lugar].linha);
    modelo_.lugar(guardados_[lugar].lugar);
    return modelo_;
}

bool RegistrosGuardados::contem(std::initializer_list<Procurado> procurados) const {
    if (vazia()) return false;
    assert(procurados.size() <= maisProcurados);
    // The fields are looked up once, because this runs for every installment over all options.
    std::array<std::size_t, maisProcurados> quais{};
    std::ranges::transform(procurados, quais.begin(), [&](const Procurado& p) { return colunaDe(p.campo); });
    for (std::size_t i = 0; i < quantos_; ++i) {
        const auto confere = [&, qual = quais.begin()](const Procurado& procurado) mutable {
            return igual(valorNa(colunas_[*qual++], i), procurado.valor);
        };
        if (std::ranges::all_of(procurados, confere)) return true;
    }
    return false;
}

std::size_t RegistrosGuardados::colunaDe(VistaTexto nomeCampo) const {
    const auto coluna = std::ranges::find(colunas_, nomeCampo, [](const Coluna& c) -> VistaTexto { return c.nome; });
    if (coluna != colunas_.end()) return static_cast<std::size_t>(coluna - colunas_.begin());
    colunas_.push_back({Texto(nomeCampo), &modelo_.obterCampo(nomeCampo), std::vector<std::optional<Valor>>(quantos_)});
    return colunas_.size() - 1;
}

/// A value that cannot be read is not remembered, so that it fails every time.
const Valor& RegistrosGuardados::valorNa(Coluna& coluna, std::size_t lugar) const {
    std::optional<Valor>& valor = coluna.valores[lugar];
    if (!valor) valor = (*this)[lugar].getValorCampo(*coluna.campo);
    return *valor;
}

} // namespace quilatador
