#include "validator/DatasDaRemessa.h"

#include "run/PercursoDeLinhas.h"
#include "validator/ParcelaNaBarra.h"

namespace quilatador {

std::optional<DatasDaRemessa> lerDatas(const Ambiente& ambiente, ArquivoRemessa& leiaute,
                                       const std::filesystem::path& arquivo, const std::atomic<bool>& cancelado) {
    leiaute.criarCopias(false);
    leiaute.anoCorrente(anoDe(ambiente.relogio.hoje()));
    const auto segmentoC = leiaute.criarRegistro("C"_t);
    const auto segmentoY = leiaute.criarRegistro("Y"_t);
    const CampoRemessa& formatoData = segmentoC->obterCampo("FormatoData"_t);
    ParcelaNaBarra parcelas(*segmentoY);
    DatasDaRemessa lidas{DataNaBarra(leiaute.anoCorrente()), {}, 0};
    PercursoDeLinhas percurso(ambiente, arquivo, cancelado);
    while (const std::optional<VistaTexto> linha = percurso.proxima()) {
        const RegistroRemessa* const registro = leiaute.adotarLinha(*linha);
        if (!registro || linha->size() != static_cast<std::size_t>(registro->Tamanho())) continue;
        if (registro == segmentoY.get()) parcelas.contar(*registro, lidas.datas);
        if (registro == segmentoC.get()) {
            lidas.codigoDoConvenio = Texto(registro->textoNaLinha(formatoData));
            lidas.linhaDoConvenio = percurso.lidas();
        }
    }
    return percurso.terminar() ? std::optional(std::move(lidas)) : std::nullopt;
}

} // namespace quilatador
