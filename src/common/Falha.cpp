#include "common/Falha.h"

#include <utility>

namespace quilatador {

namespace {
constexpr int ultimoNumeroDeArquivo = 76; // "path not found", the last of the file-system conditions
}

Falha::Falha(int numero, Texto fonte, Texto descricao)
    : numero_(numero)
    , doAmbiente_((numero >= numeroDeFalha::nomeDeArquivoInvalido && numero <= ultimoNumeroDeArquivo) ||
                  numero >= numeroDeFalha::bancoDeDados)
    , fonte_(std::move(fonte))
    , descricao_(std::move(descricao))
    , what_(utf8DeTexto(descricao_)) {}

Falha Falha::comContexto(Texto fonte, VistaTexto contexto) const {
    Falha nova(numeroDeFalha::geral, std::move(fonte), junta(contexto, " - ", descricao_));
    nova.doAmbiente_ = doAmbiente_;
    return nova;
}

Falha Falha::conversao(Texto fonte) {
    return {numeroDeFalha::tiposIncompativeis, std::move(fonte), Texto("Tipos incompatíveis"_t)};
}

} // namespace quilatador
