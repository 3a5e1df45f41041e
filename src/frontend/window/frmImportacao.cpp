#include "frontend/window/frmImportacao.h"

#include "returns/modTrataTAV001.h"
#include "returns/modTrataZUL708.h"

namespace quilatador {

namespace {

constexpr Controle botoes[] = {Controle::cmdAjuda, Controle::cmdCancela, Controle::cmdLayout, Controle::cmdOK,
                               Controle::cmdSobre};

/// What the analysis of a return has nothing to show in.
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
    : ambiente_(ambiente), globais_(globais), tela_(tela) {}

frmImportacao::~frmImportacao() {
    globais_.bancoDeDados = nullptr;
}

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

bool frmImportacao::iniciar() {
    try {
        banco_ = std::make_unique<BancoDeDados>(ambiente_.arquivos, ambiente_.bancoDeDados());
        globais_.bancoDeDados = banco_.get();
        return true;
    } catch (const Falha&) {
        tela_.mensagem(
            {.texto = Texto("Não foi possível abrir o arquivo TabelaErrosZUL.mdb! Reinstale o aplicativo."_t),
             .titulo = Texto(tituloDeErro),
             .icone = Mensagem::Icone::Exclamacao});
        return false;
    }
}

std::optional<Resumo> frmImportacao::analisar(const Pedido& pedido) {
    const bool remessa = pedido.tipoArquivo == TipoArquivo::ZUL702;
    if (remessa && pedido.comData && recusar(recusaDoFormato(pedido.PosicaoDataBarra, pedido.FormatoDataBarra)))
        return std::nullopt;
    analisando_ = true;
    cancelado_ = false;
    const Resumo resumo = remessa ? analisarRemessa(pedido) : analisarRetorno(pedido);
    analisando_ = false;
    return resumo;
}

bool frmImportacao::recusar(const std::optional<Texto>& motivo) {
    if (!motivo) return false;
    tela_.mensagem({.texto = *motivo, .titulo = Texto(tituloDoPrograma)});
    tela_.focar(Controle::txtPosicao);
    return true;
}

Resumo frmImportacao::analisarRemessa(const Pedido& pedido) {
    tela_.legenda(Controle::cmdCancela, "&Cancela");
    tela_.habilitar(Controle::cmdCancela, true);
    tela_.habilitar(Controle::cmdOK, false);
    alternarFaces(true);
    tela_.processarEventos();

    Depurador& validador = depurador();
    if (pedido.comData) validador.FormatoDataBarra = pedido.FormatoDataBarra;
    validador.PosicaoDataBarra = pedido.comData ? Valor(pedido.PosicaoDataBarra).paraInteiro() : std::int16_t{0};
    Resumo resumo = validador.DepurarArquivo(pedido.nomeArquivo, pedido.nomeArquivoLog);

    avisarFim();
    tela_.legenda(Controle::cmdCancela, "&Fechar");
    alternarFaces(false);
    tela_.habilitar(Controle::cmdCancela, true);
    tela_.habilitar(Controle::cmdOK, true);
    return resumo;
}

Resumo frmImportacao::analisarRetorno(const Pedido& pedido) {
    tela_.rotulo(Rotulo::Empresa, "Empresa");
    tela_.rotulo(Rotulo::Remessa, "Remessa");
    tela_.iniciarProgresso({});
    for (const Controle controle : rotulosDeProgresso)
        tela_.mostrar(controle, false);
    for (const Controle botao : botoes)
        tela_.habilitar(botao, false);
    alternarFaces(true);
    tela_.rotulo(Rotulo::Operacao, "Aguarde. Analisando Arquivo...");

    retornoInterrompido_ = false;
    const auto tratar = pedido.tipoArquivo == TipoArquivo::ZUL708 ? tratarRetornoZUL708 : tratarRetornoTAV001;
    const ResultadoRetorno resultado = tratar(
        ambiente_, globais_, {.nomeArquivo = pedido.nomeArquivo, .log = pedido.nomeArquivoLog, .ouvintes = ouvintes_},
        retornoInterrompido_);

    avisarFim();
    tela_.legenda(Controle::cmdCancela, "&Fechar");
    alternarFaces(false);
    for (const Controle botao : botoes)
        tela_.habilitar(botao, true);
    for (const Controle controle : rotulosDeProgresso)
        tela_.mostrar(controle, true);
    return resultado.resumo;
}

/// Shows the progress and hides the request, or the reverse.
void frmImportacao::alternarFaces(bool progresso) {
    tela_.mostrar(progresso ? Controle::fraNomeArquivo : Controle::fraImportacao, false);
    tela_.mostrar(progresso ? Controle::fraImportacao : Controle::fraNomeArquivo, true);
}

void frmImportacao::avisarFim() {
    tela_.mensagem({.texto = Texto("Análise finalizada!"_t),
                    .titulo = "Aviso!",
                    .icone = Mensagem::Icone::Exclamacao,
                    .assunto = Mensagem::Assunto::Aviso});
}

void frmImportacao::cancelar() {
    if (!analisando_) return tela_.fechar();
    cancelado_ = true;
    interromper();
}

void frmImportacao::interromper() {
    retornoInterrompido_ = true;
    if (depurador_) depurador_->Cancelado = true;
}

} // namespace quilatador
