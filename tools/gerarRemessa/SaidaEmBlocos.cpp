#include "gerarRemessa/SaidaEmBlocos.h"

#include "common/Falha.h"

namespace quilatador::gerador {

SaidaEmBlocos::SaidaEmBlocos(std::ostream& destino) : destino_(destino) {
    bloco_.reserve(tamanhoDoBloco);
}

void SaidaEmBlocos::descarregar() {
    destino_.write(bloco_.data(), static_cast<std::streamsize>(bloco_.size())).flush();
    if (!destino_) throw Falha(numeroDeFalha::erroDeDispositivo, "Gravacao"_t, "Não foi possível gravar o arquivo!"_t);
    bloco_.clear();
}

} // namespace quilatador::gerador
