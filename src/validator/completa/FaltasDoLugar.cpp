#include "validator/completa/FaltasDoLugar.h"

#include <utility>

namespace quilatador {

Achado faltaDeEstrutura(VistaTexto id, std::int64_t linha, char letra, VistaTexto mensagem) {
    return {.id = id,
            .gravidade = Gravidade::Estrutural,
            .linha = linha,
            .segmento = letra,
            .campo = std::nullopt,
            .mensagem = Texto(mensagem)};
}

void FaltasDoLugar::proximaLinha() noexcept {
    daAnterior_ = std::exchange(daLinha_, 0);
    perdaAqui_ = 0;
}

std::int64_t FaltasDoLugar::acusar(Achado achado, std::int64_t causa) {
    const std::int64_t raiz = coletor_.contar(std::move(achado), causa);
    if (daLinha_ == 0) daLinha_ = raiz;
    return raiz;
}

void FaltasDoLugar::semEfeito(char letra) noexcept {
    semEfeito_ = daLinha_;
    letraSemEfeito_ = letra;
}

} // namespace quilatador
