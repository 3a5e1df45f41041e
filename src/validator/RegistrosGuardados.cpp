#include "validator/RegistrosGuardados.h"

#include <algorithm>

namespace quilatador {

void RegistrosGuardados::guardar(const RegistroRemessa& registro) {
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
    // The fields are looked up once, because this runs for every installment over all options.
    std::vector<const CampoRemessa*> campos;
    for (const Procurado& procurado : procurados)
        campos.push_back(&modelo_.obterCampo(procurado.campo));
    for (std::size_t i = 0; i < quantos_; ++i) {
        const RegistroRemessa& registro = (*this)[i];
        const auto confere = [&, campo = campos.begin()](const Procurado& procurado) mutable {
            return igual(registro.getValorCampo(**campo++), procurado.valor);
        };
        if (std::ranges::all_of(procurados, confere)) return true;
    }
    return false;
}

} // namespace quilatador
