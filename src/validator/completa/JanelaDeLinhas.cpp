#include "validator/completa/JanelaDeLinhas.h"

#include <utility>

namespace quilatador {

const LinhaDoArquivo* JanelaDeLinhas::olhar(std::size_t adiante) {
    while (quantas_ <= adiante) {
        const std::optional<VistaTexto> linha = percurso_.proxima();
        if (!linha) return nullptr;
        LinhaDoArquivo& nova = na(quantas_++);
        nova.texto.assign(*linha);
        nova.lugar = percurso_.lidas();
    }
    return &na(adiante);
}

void JanelaDeLinhas::avancar(std::size_t quantas) noexcept {
    primeira_ = (primeira_ + quantas) % alcance;
    quantas_ -= quantas;
}

void JanelaDeLinhas::trocar() noexcept {
    std::swap(na(0), na(1));
}

} // namespace quilatador
