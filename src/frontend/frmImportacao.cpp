#include "frontend/frmImportacao.h"

namespace quilatador {

frmImportacao::frmImportacao(Ambiente& ambiente, modVariaveis& globais, Tela& tela)
    : ambiente_(ambiente), globais_(globais), tela_(tela) {}

void frmImportacao::adicionarRelator(Relator& relator) {
    ouvintes_.push_back(&relator);
    if (depurador_) depurador_->adicionarRelator(relator);
}

Depurador& frmImportacao::depurador() {
    if (!depurador_) {
        depurador_ = std::make_unique<Depurador>(ambiente_, globais_);
        for (Relator* ouvinte : ouvintes_)
            depurador_->adicionarRelator(*ouvinte);
    }
    return *depurador_;
}

std::optional<Resumo> frmImportacao::analisar(const Pedido& pedido) {
    if (pedido.comData && recusar(recusaDoFormato(pedido.PosicaoDataBarra, pedido.FormatoDataBarra)))
        return std::nullopt;
    tela_.legenda(Controle::cmdCancela, "&Cancela");
    tela_.habilitar(Controle::cmdCancela, true);
    tela_.habilitar(Controle::cmdOK, false);
    tela_.mostrar(Controle::fraNomeArquivo, false);
    tela_.mostrar(Controle::fraImportacao, true);
    tela_.processarEventos();
    const Resumo resumo = depurar(pedido);
    avisarFim();
    tela_.legenda(Controle::cmdCancela, "&Fechar");
    tela_.mostrar(Controle::fraImportacao, false);
    tela_.mostrar(Controle::fraNomeArquivo, true);
    tela_.habilitar(Controle::cmdCancela, true);
    tela_.habilitar(Controle::cmdOK, true);
    return resumo;
}

bool frmImportacao::recusar(const std::optional<Texto>& motivo) {
    if (!motivo) return false;
    tela_.mensagem({.texto = *motivo, .titulo = Texto(tituloDoPrograma)});
    tela_.focar(Controle::txtPosicao);
    return true;
}

Resumo frmImportacao::depurar(const Pedido& pedido) {
    Depurador& validador = depurador();
    if (pedido.comData) validador.FormatoDataBarra = pedido.FormatoDataBarra;
    validador.PosicaoDataBarra = pedido.comData ? Valor(pedido.PosicaoDataBarra).paraInteiro() : std::int16_t{0};
    depurando_ = true;
    const Resumo resumo = validador.DepurarArquivo(pedido.nomeArquivo, pedido.nomeArquivoLog);
    depurando_ = false;
    return resumo;
}

void frmImportacao::avisarFim() {
    tela_.mensagem({.texto = Texto("Análise finalizada!"_t),
                    .titulo = "Aviso!",
                    .icone = Mensagem::Icone::Exclamacao,
                    .assunto = Mensagem::Assunto::Aviso});
}

void frmImportacao::cancelar() {
    if (depurando_)
        interromper();
    else
        tela_.fechar();
}

void frmImportacao::interromper() {
    if (depurador_) depurador_->Cancelado = true;
}

} // namespace quilatador
