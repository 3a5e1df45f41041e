#include "frontend/window/frmImportacao.h"

namespace quilatador {

namespace {

constexpr Controle botoes[] = {Controle::cmdAjuda, Controle::cmdCancela, Controle::cmdLayout, Controle::cmdOK,
                               Controle::cmdSobre};

/// The controls that are hidden during the analysis of a return, which has nothing to show in them.
constexpr Controle rotulosDeProgresso[] = {Controle::Label1,
                                           Controle::Label2,
                                           Controle::Label3,
                                           Controle::Label4,
                                           Controle::Label5,
                                           Controle::Label6,
                                           Controle::lblTotalGuias,
                                           Controle::lblTotalRegistros,
                                           Controle::lblTempoDecorrido,
                                           Controle::lblTempoRestante,
                                           Controle::lblGuiasDepuradas,
                                           Controle::lblRegistroAtual};

} // namespace

frmImportacao::frmImportacao(Ambiente& ambiente, modVariaveis& globais, Tela& tela)
    : ambiente_(ambiente), tela_(tela), trabalho_(ambiente, globais, cancelado_) {}

void frmImportacao::confirmar(const Pedido& pedido) {
    if (analisando_ || recusar(Trabalho::recusa(pedido))) return;
    analisar(pedido);
    if (fecharNoFim_)
        tela_.fechar();
    else
        tela_.focar(Controle::txtNomeArquivo);
}

void frmImportacao::analisar(const Pedido& pedido) {
    const bool remessa = pedido.tipoArquivo == TipoArquivo::ZUL702;
    analisando_ = true;
    fecharNoFim_ = false;
    try {
        Rodada rodada = trabalho_.comecar(pedido);
        remessa ? mostrarRemessa() : mostrarRetorno();
        trabalho_.analisar(rodada, pedido);
        avisarFim();
    } catch (...) { // whoever handles it, the user gets the buttons back
        restaurar(remessa);
        throw;
    }
    restaurar(remessa);
}

void frmImportacao::restaurar(bool remessa) {
    analisando_ = false;
    remessa ? encerrarRemessa() : encerrarRetorno();
}

bool frmImportacao::recusar(const std::optional<Texto>& motivo) {
    if (!motivo) return false;
    tela_.mensagem({.texto = *motivo, .titulo = Texto(tituloDoPrograma)});
    tela_.focar(Controle::txtPosicao);
    return true;
}

void frmImportacao::mostrarRemessa() {
    tela_.rotulo(Rotulo::Empresa, ""_t); // the names that the last analysis showed do not belong to this file
    tela_.rotulo(Rotulo::Remessa, ""_t);
    tela_.legenda(Controle::cmdCancela, "&Cancela"_t);
    tela_.habilitar(Controle::cmdCancela, true);
    tela_.habilitar(Controle::cmdOK, false);
    alternarFaces(true);
    tela_.processarEventos();
}

void frmImportacao::encerrarRemessa() {
    tela_.legenda(Controle::cmdCancela, "&Fechar"_t);
    alternarFaces(false);
    tela_.habilitar(Controle::cmdCancela, true);
    tela_.habilitar(Controle::cmdOK, true);
}

void frmImportacao::mostrarRetorno() {
    tela_.rotulo(Rotulo::Empresa, "Empresa"_t);
    tela_.rotulo(Rotulo::Remessa, "Remessa"_t);
    tela_.iniciarProgresso({});
    for (const Controle controle : rotulosDeProgresso)
        tela_.mostrar(controle, false);
    for (const Controle botao : botoes)
        tela_.habilitar(botao, false);
    alternarFaces(true);
    tela_.rotulo(Rotulo::Operacao, "Aguarde. Analisando Arquivo..."_t);
}

void frmImportacao::encerrarRetorno() {
    tela_.legenda(Controle::cmdCancela, "&Fechar"_t);
    alternarFaces(false);
    for (const Controle botao : botoes)
        tela_.habilitar(botao, true);
    for (const Controle controle : rotulosDeProgresso)
        tela_.mostrar(controle, true);
}

/// Shows the progress and hides the request, or the other way round.
void frmImportacao::alternarFaces(bool progresso) {
    tela_.mostrar(progresso ? Controle::fraNomeArquivo : Controle::fraImportacao, false);
    tela_.mostrar(progresso ? Controle::fraImportacao : Controle::fraNomeArquivo, true);
}

void frmImportacao::avisarFim() {
    tela_.mensagem({.texto = Texto("Análise finalizada!"_t),
                    .titulo = Texto("Aviso!"_t),
                    .icone = Mensagem::Icone::Exclamacao,
                    .assunto = Mensagem::Assunto::Aviso});
}

void frmImportacao::cancelar() {
    if (!analisando_) return tela_.fechar();
    cancelado_ = true;
}

bool frmImportacao::podeFechar() {
    if (!analisando_) return true;
    fecharNoFim_ = true;
    cancelar();
    return false;
}

} // namespace quilatador
