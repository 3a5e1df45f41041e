#include "run/RelatorLog.h"

namespace quilatador {

namespace {
/// Room for the part of a line that goes beyond the block that it fills.
constexpr std::size_t folga = 64 * 1024;
} // namespace

RelatorLog::RelatorLog(std::unique_ptr<ArquivoSaida> arquivo) : arquivo_(std::move(arquivo)), pendente_(bloco + folga) {
    static_assert(bloco % tamanhoDaPagina == 0);
}

void RelatorLog::linha(VistaTexto texto) {
    escrever(texto);
}

void RelatorLog::achado(const Achado& achado) {
    if (achado.gravidade == Gravidade::Erro)
        escrever("** ERRO -> Linha "_t, comZeros(achado.linha, 6), " - "_t, achado.mensagem);
    else
        escrever(achado.mensagem);
}

template <typename... Pedacos>
void RelatorLog::escrever(const Pedacos&... pedacos) {
    constexpr VistaTexto fimDeLinha = "\r\n"_t;
    Bloco::Caneta caneta = comecar((VistaTexto(pedacos).size() + ...) + fimDeLinha.size());
    caneta.append(pedacos..., fimDeLinha);
    terminar(caneta);
}

void RelatorLog::gravarBlocos() {
    while (pendente_.texto().size() >= bloco) {
        gravar([&] { arquivo_->escrever(bytesDoTexto(pendente_.texto().substr(0, bloco))); });
        pendente_.descartar(bloco);
    }
}

template <typename Operacao>
void RelatorLog::gravar(Operacao operacao) {
    try {
        operacao();
    } catch (const Falha& falha) {
        throw FalhaDoLog(falha.numero(), "RelatorLog"_t, falha.descricao());
    }
}

void RelatorLog::fechar() {
    if (const VistaTexto resto = pendente_.texto(); !resto.empty())
        gravar([&] { arquivo_->escrever(bytesDoTexto(resto)); });
    pendente_.descartar(pendente_.texto().size());
    gravar([&] { arquivo_->fechar(); });
}

} // namespace quilatador
