#include "validator/GuiaEmMaos.h"

namespace quilatador {

GuiaEmMaos::GuiaEmMaos(ArquivoRemessa& leiaute)
    : leiaute_(&leiaute)
    , registroS_(vazio("S"_t))
    , registroT_(vazio("T"_t))
    , registroU_(vazio("U"_t))
    , registroV_(vazio("V"_t))
    , registroW_(vazio("W"_t)) {
    for (RegistroRemessa& mensagem : mensagensX_)
        mensagem = vazio("X"_t);
}

/// An empty record that belongs to the slip. It is a copy, because the reader changes the line of the record type
/// itself.
RegistroRemessa GuiaEmMaos::vazio(VistaTexto nome) const {
    RegistroRemessa registro = leiaute_->criarRegistro(nome)->copia();
    registro.linha(""_t);
    return registro;
}

void GuiaEmMaos::iniciar(const RegistroRemessa& registroS) {
    registroS.copiar(registroS_);
    esvaziar(registroS.lugar());
}

void GuiaEmMaos::iniciarSemS(std::int64_t linha) {
    registroS_.linha(""_t);
    registroS_.lugar(linha);
    esvaziar(linha);
}

void GuiaEmMaos::esvaziar(std::int64_t linha) {
    const auto esquecer = [&](RegistroRemessa& registro) {
        registro.linha(""_t);
        registro.lugar(linha);
    };
    for (RegistroRemessa* outro : {&registroT_, &registroU_, &registroV_, &registroW_})
        esquecer(*outro);
    for (RegistroRemessa& mensagem : mensagensX_)
        esquecer(mensagem);
    parcelasY_.esvaziar();
    contagemX_ = 0;
    contagemY_ = 0;
}

void GuiaEmMaos::guardar(char letra, const RegistroRemessa& registro) {
    switch (letra) {
    case 'T':
        return registro.copiar(registroT_);
    case 'U':
        return registro.copiar(registroU_);
    case 'V':
        return registro.copiar(registroV_);
    case 'W':
        return registro.copiar(registroW_);
    default:
        break;
    }
}

bool GuiaEmMaos::guardarMensagem(const RegistroRemessa& registro) {
    if (++contagemX_ > mensagensX_.size()) return false;
    registro.copiar(mensagensX_[contagemX_ - 1]);
    return true;
}

bool GuiaEmMaos::guardarParcela(const RegistroRemessa& registro, std::size_t previstas) {
    if (++contagemY_ > previstas) return false;
    if (!parcelasY_.temTipo()) parcelasY_ = RegistrosGuardados(vazio("Y"_t));
    parcelasY_.guardar(registro);
    return true;
}

} // namespace quilatador
