#include "validator/DatasDaRemessa.h"

#include "common/Diversos.h"
#include "run/PercursoDeLinhas.h"

#include <array>

namespace quilatador {

namespace {

/// The installments of a layout, whose fields are looked up once.
class Parcelas {
  public:
    explicit Parcelas(const RegistroRemessa& tipo)
        : vencimento_(tipo.obterCampo("DataVenc"_t))
        , partes_{&tipo.obterCampo("Parte1"_t), &tipo.obterCampo("Parte2"_t), &tipo.obterCampo("Parte3"_t),
                  &tipo.obterCampo("Parte4"_t)} {}

    void contar(const RegistroRemessa& registro, DataNaBarra& datas) {
        const auto vencimento =
            Diversos::String2Data(registro.textoNaLinha(vencimento_), vencimento_.formato(), registro.anoCorrente());
        if (!vencimento) return;
        barra_.clear();
        for (const CampoRemessa* parte : partes_)
            barra_ += registro.textoNaLinha(*parte);
        datas.parcela(barra_, *vencimento);
    }

  private:
    const CampoRemessa& vencimento_;
    std::array<const CampoRemessa*, 4> partes_;
    Texto barra_;
};

} // namespace

std::optional<DatasDaRemessa> lerDatas(const Ambiente& ambiente, ArquivoRemessa& leiaute,
                                       const std::filesystem::path& arquivo, const std::atomic<bool>& cancelado) {
    leiaute.criarCopias(false);
    leiaute.anoCorrente(anoDe(ambiente.relogio.hoje()));
    const auto segmentoC = leiaute.criarRegistro("C"_t);
    const auto segmentoY = leiaute.criarRegistro("Y"_t);
    const CampoRemessa& formatoData = segmentoC->obterCampo("FormatoData"_t);
    Parcelas parcelas(*segmentoY);
    DatasDaRemessa lidas{DataNaBarra(leiaute.anoCorrente()), {}};
    PercursoDeLinhas percurso(ambiente, arquivo, cancelado);
    while (const std::optional<VistaTexto> linha = percurso.proxima()) {
        const RegistroRemessa* const registro = leiaute.adotarLinha(*linha);
        if (!registro || linha->size() != static_cast<std::size_t>(registro->Tamanho())) continue;
        if (registro == segmentoY.get()) parcelas.contar(*registro, lidas.datas);
        if (registro == segmentoC.get()) lidas.codigoDoConvenio = Texto(registro->textoNaLinha(formatoData));
    }
    return percurso.terminar() ? std::optional(std::move(lidas)) : std::nullopt;
}

} // namespace quilatador
