#include "validator/completa/ConteudoCompleto.h"

#include "validator/checks/Guia.h"
#include "validator/checks/Registros.h"
#include "validator/checks/SegmentosABC.h"

#include <utility>

namespace quilatador {

ConteudoCompleto::ConteudoCompleto(Coletor& coletor, ArquivoRemessa& leiaute, Definicao definicao,
                                   std::optional<double> primeiras)
    : coletor_(coletor)
    , definicao_(std::move(definicao))
    , guia_(leiaute)
    , primeiras_(primeiras)
    , datas_(leiaute.anoCorrente()) {
    try {
        parcelas_.emplace(*leiaute.criarRegistro("Y"_t));
    } catch (const Falha&) { // a layout without these fields has no dates to be compared
        parcelas_.reset();
    }
}

void ConteudoCompleto::header(const RegistroRemessa& registro) {
    definicao_.registroA = registro.copia();
    verificarSegmentoA(coletor_, definicao_);
    verificarCaracteres(registro, 'A');
}

void ConteudoCompleto::headerTorto(const RegistroRemessa& registro) {
    definicao_.registroA = registro.copia();
}

void ConteudoCompleto::definir(const RegistroRemessa& registro, char letra) {
    ++definicoes_;
    verificarDefinicao(coletor_, registro, letra, definicao_);
}

void ConteudoCompleto::definirSemConteudo(char letra, std::int64_t causa) {
    coletor_.marcarAusente(letra, causa);
    if (letra == 'F') definicao_.temSegmentoF = true;
    if (letra == 'L') ++definicao_.parcelasPrevistas;
}

void ConteudoCompleto::verificarCaracteres(const RegistroRemessa& registro, char letra) {
    if (coletor_.temGuia() && !guiaPedida()) return;
    quilatador::verificarCaracteres(coletor_, registro, letra, registro.lugar());
}

void ConteudoCompleto::iniciarGuia(const RegistroRemessa& registroS) {
    guia_.iniciar(registroS);
    parcelaSemConteudo_ = false;
    coletor_.iniciarGuia(++guias_, registroS.getValorCampoString("IdGuia"_t), registroS.lugar());
}

void ConteudoCompleto::iniciarGuiaSemS(std::int64_t linha) {
    guia_.iniciarSemS(linha);
    parcelaSemConteudo_ = false;
    coletor_.iniciarGuia(++guias_, {}, linha);
    coletor_.deixarDeConferir('S');
}

void ConteudoCompleto::guardar(const RegistroRemessa& registro, char letra) {
    if (letra == 'Y' && parcelas_) parcelas_->contar(registro, datas_);
    if (guiaPedida()) guardarNaGuia(coletor_, registro, letra, registro.lugar(), guia_, definicao_);
}

void ConteudoCompleto::guardarSemConteudo(char letra) {
    if (letra == 'Y')
        parcelaSemConteudo_ = true;
    else
        coletor_.deixarDeConferir(letra);
}

void ConteudoCompleto::somar(const ContagemDeGuias& guias, const DataNaBarra& datas) {
    ContagemDeGuias& todas = coletor_.resumo().guias;
    todas.lidas += guias.lidas;
    todas.certas += guias.certas;
    datas_.somar(datas);
}

void ConteudoCompleto::contarDatas(ResumoCompleto& resumo) const {
    resumo.parcelas = datas_.parcelas();
    for (const DataNaBarra::Candidata& c : datas_.melhores(definicao_.FormatoDataBarra))
        resumo.datas.push_back({c.formato, c.posicao, c.acertos});
}

void ConteudoCompleto::encerrarGuia() {
    if (!coletor_.temGuia()) return;
    if (guiaPedida()) {
        if (parcelaSemConteudo_ && guia_.parcelasY().vazia()) coletor_.deixarDeConferir('Y');
        static_cast<void>(verificarGuia(coletor_, guia_, definicao_));
        if (parcelaSemConteudo_) coletor_.deixarDeConferir('Y'); // in part
    }
    coletor_.encerrarGuia(guiaPedida());
}

} // namespace quilatador
