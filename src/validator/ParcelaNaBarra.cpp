#include "validator/ParcelaNaBarra.h"

#include "common/Diversos.h"

namespace quilatador {

ParcelaNaBarra::ParcelaNaBarra(const RegistroRemessa& tipo)
    : vencimento_(tipo.obterCampo("DataVenc"_t))
    , partes_{&tipo.obterCampo("Parte1"_t), &tipo.obterCampo("Parte2"_t), &tipo.obterCampo("Parte3"_t),
              &tipo.obterCampo("Parte4"_t)} {}

void ParcelaNaBarra::contar(const RegistroRemessa& registro, DataNaBarra& datas) {
    const auto vencimento =
        Diversos::String2Data(registro.textoNaLinha(vencimento_), vencimento_.formato(), registro.anoCorrente());
    if (!vencimento) return;
    barra_.clear();
    for (const CampoRemessa* parte : partes_)
        barra_ += registro.textoNaLinha(*parte);
    datas.parcela(barra_, *vencimento);
}

} // namespace quilatador
