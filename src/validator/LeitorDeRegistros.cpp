#include "validator/LeitorDeRegistros.h"

namespace quilatador {

LeitorDeRegistros::LeitorDeRegistros(ArquivoRemessa& leiaute, Rodada& rodada) : leiaute_(leiaute), rodada_(rodada) {
    for (const auto& tipo : leiaute.tiposRegistros()) {
        const auto campo = [&](VistaTexto nome) {
            const auto indice = tipo->indiceDoCampo(nome);
            return indice ? tipo->campos()[*indice].get() : nullptr;
        };
        const CampoRemessa* tipoReg = campo("TipoReg"_t);
        std::optional<Texto> fixo;
        if (tipoReg && iguaisSemCaixa(tipo->identificador(), "TipoReg"_t) && tipoReg->natureza() == "S"_t)
            fixo = tipoReg->interpretar(tipoReg->Valor().texto()).texto();
        campos_.push_back({fixo, tipoReg, campo("Sequencial"_t), campo("Convenio"_t), campo("IDRegistro"_t)});
    }
}

void LeitorDeRegistros::abrir() {
    leiaute_.contador(0);
    leiaute_.criarCopias(false);
    leiaute_.abrirArquivoEntrada(rodada_.nomeArquivo(), rodada_.desistencia());
    rodada_.entradaAberta(leiaute_.versaoDaEntrada().value());
}

const Texto& LeitorDeRegistros::tipo() {
    if (campos().tipoFixo) return *campos().tipoFixo;
    return tipoLido_ = valor(campos().tipoReg, "TipoReg"_t).texto();
}

char LeitorDeRegistros::letra() {
    const Texto& texto = tipo();
    return texto.size() == 1 ? texto.front() : '\0';
}

VistaTexto LeitorDeRegistros::convenio() const {
    const RegistroRemessa& registro = leiaute_.registroEmMaos();
    const CampoRemessa* campo = campos().convenio;
    return registro.textoNaLinha(campo ? *campo : registro.obterCampo("Convenio"_t));
}

Valor LeitorDeRegistros::valor(const CampoRemessa* campo, VistaTexto nome) const {
    const RegistroRemessa& registro = leiaute_.registroEmMaos();
    try {
        return campo ? registro.getValorCampo(*campo) : registro.getValorCampo(nome);
    } catch (const FalhaDeLeitura& falha) {
        throw falha.em(lidas(), falha.achado().segmento); // nobody has proved yet that the record numbers itself right
    }
}

} // namespace quilatador
