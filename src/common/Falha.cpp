#include "common/Falha.h"

#include <utility>

namespace quilatador {

Falha::Falha(int numero, Texto fonte, Texto descricao)
    : numero_(numero), fonte_(std::move(fonte)), descricao_(std::move(descricao)), what_(utf8DeTexto(descricao_)) {}

Falha Falha::comContexto(Texto fonte, VistaTexto contexto) const {
    return {numeroDeFalha::geral, std::move(fonte), junta(contexto, " - ", descricao_)};
}

Falha Falha::conversao(Texto fonte) {
    return {numeroDeFalha::tiposIncompativeis, std::move(fonte), Texto("Tipos incompatíveis"_t)};
}

} // namespace quilatador
