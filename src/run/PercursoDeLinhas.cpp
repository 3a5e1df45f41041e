#include "run/PercursoDeLinhas.h"

#include "common/Falha.h"

#include <utility>

namespace quilatador {

PercursoDeLinhas::PercursoDeLinhas(const Ambiente& ambiente, std::filesystem::path arquivo,
                                   const std::atomic<bool>& cancelado)
    : ambiente_(ambiente)
    , arquivo_(std::move(arquivo))
    , cancelado_(cancelado)
    , leitor_(ambiente.arquivos.abrirEntrada(arquivo_),
              [this] {
                  ambiente_.painel.processarEventos();
                  return this->cancelado();
              })
    , versao_(leitor_.versao()) {
    progresso_.totalRegistros = registrosDaRemessa(ambiente.arquivos.tamanho(arquivo_));
    progresso_.inicio = ambiente.relogio.agora();
    ambiente.painel.iniciarProgresso(progresso_);
}

std::optional<VistaTexto> PercursoDeLinhas::proxima() {
    const std::optional<VistaTexto> linha = leitor_.proxima();
    if (!linha) return std::nullopt;
    irParaRegistro(progresso_, progresso_.registroAtual + 1);
    ambiente_.painel.avancar(progresso_);
    return cancelado() ? std::nullopt : linha;
}

bool PercursoDeLinhas::terminar() {
    ambiente_.painel.concluirProgresso(progresso_);
    if (cancelado()) return false;
    if (ambiente_.arquivos.versao(arquivo_) != versao_)
        throw Falha(numeroDeFalha::arquivoAlterado, "PercursoDeLinhas"_t, arquivoAlterado);
    return true;
}

} // namespace quilatador
