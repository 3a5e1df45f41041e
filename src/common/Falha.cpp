#include "common/Falha.h"

namespace quilatador {

namespace {
constexpr int ultimoNumeroDeArquivo = 76; // "path not found", the highest number of a file-system failure
}

Falha::Falha(int numero, VistaTexto fonte, VistaTexto descricao)
    : numero_(numero)
    , doAmbiente_((numero >= numeroDeFalha::nomeDeArquivoInvalido && numero <= ultimoNumeroDeArquivo) ||
                  numero >= numeroDeFalha::bancoDeDados)
    , fonte_(fonte)
    , descricao_(descricao)
    , what_(utf8DeTexto(descricao_)) {}

Falha Falha::comContexto(VistaTexto fonte, VistaTexto contexto) const {
    Falha nova(numeroDeFalha::geral, fonte, junta(contexto, " - "_t, descricao_));
    nova.doAmbiente_ = doAmbiente_;
    return nova;
}

Falha Falha::conversao(VistaTexto fonte) {
    return {numeroDeFalha::tiposIncompativeis, fonte, "Tipos incompatíveis"_t};
}

} // namespace quilatador
