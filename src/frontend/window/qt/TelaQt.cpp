#include "frontend/window/qt/TelaQt.h"

#include "frontend/window/qt/Conversoes.h"

#include <QCoreApplication>

#include <algorithm>
#include <cassert>

namespace quilatador {

namespace {

using namespace std::chrono_literals;
constexpr Relogio::Instante intervaloDosQuadros = 33ms;
/// On a slow display the frames come less often, so that drawing takes only one part in this many of the time. They
/// never come so rarely that a button would answer late.
constexpr int partesPorQuadro = 12;
constexpr Relogio::Instante maiorIntervalo = 80ms;
/// Reading the clock takes a good part of the time of a record, so it is read only once per this many records.
constexpr std::int32_t registrosPorLeitura = 256;

} // namespace

TelaQt::TelaQt(JanelaPrincipal& janela, Dialogos& dialogos, const Relogio& relogio)
    : janela_(janela), dialogos_(dialogos), relogio_(relogio) {
    for (std::size_t i = 0; i < totalDeControles; ++i) {
        controles_[i] = janela.findChild<QWidget*>(paraQt(nomeDoControle(static_cast<Controle>(i))));
        assert(controles_[i] && "the window lacks a control that the rules know");
    }
}

QWidget* TelaQt::widget(Controle controle) const {
    return controles_[static_cast<std::size_t>(controle)];
}

QAbstractButton* TelaQt::botao(Controle controle) const {
    return qobject_cast<QAbstractButton*>(widget(controle));
}

/// Called for every slip, usually with the text that is shown already.
void TelaQt::rotulo(Rotulo qual, VistaTexto texto) {
    Texto& mostrado = rotulos_[qual];
    if (mostrado == texto && !texto.empty()) return;
    mostrado = Texto(texto);
    janela_.progresso->rotulo(qual, texto);
}

void TelaQt::iniciarProgresso(const Progresso& progresso) {
    janela_.progresso->totalDeGuias(primeirasGuias());
    janela_.progresso->mostrar(progresso, progresso.inicio);
}

void TelaQt::avancar(const Progresso& progresso) {
    if (progresso.registroAtual % registrosPorLeitura != 0) return;
    const auto agora = relogio_.agora();
    if (agora < proximoQuadro_) return;
    janela_.progresso->mostrar(progresso, agora);
    processarEventos();
    const auto fim = relogio_.agora();
    proximoQuadro_ = fim + std::clamp((fim - agora) * partesPorQuadro, intervaloDosQuadros, maiorIntervalo);
}

void TelaQt::concluirProgresso(const Progresso& progresso) {
    janela_.progresso->mostrar(progresso, relogio_.agora());
}

void TelaQt::processarEventos() {
    QCoreApplication::processEvents();
}

void TelaQt::mensagem(const Mensagem& mensagem) {
    dialogos_.mensagem(&janela_, mensagem);
}

std::optional<std::filesystem::path> TelaQt::outroLugarParaOLog(const Mensagem& recusa,
                                                                const std::filesystem::path& recusado) {
    return dialogos_.escolherLog(janela_, recusa, recusado);
}

std::optional<double> TelaQt::primeirasGuias() const {
    return janela_.pedido->primeirasGuias();
}

void TelaQt::mostrar(Controle controle, bool visivel) {
    widget(controle)->setVisible(visivel);
}

void TelaQt::habilitar(Controle controle, bool habilitado) {
    widget(controle)->setEnabled(habilitado);
}

void TelaQt::legenda(Controle controle, VistaTexto texto) {
    botao(controle)->setText(paraQt(texto));
}

void TelaQt::focar(Controle controle) {
    widget(controle)->setFocus();
    if (auto* caixa = qobject_cast<QLineEdit*>(widget(controle))) caixa->selectAll(); // typing then replaces it
}

void TelaQt::marcar(Controle controle, bool marcado) {
    botao(controle)->setChecked(marcado);
}

void TelaQt::escrever(Controle controle, VistaTexto texto) {
    if (auto* caixa = qobject_cast<QLineEdit*>(widget(controle)))
        caixa->setText(paraQt(texto));
    else if (auto* lista = qobject_cast<QComboBox*>(widget(controle)))
        lista->setCurrentText(paraQt(texto));
    else if (auto* rotulo = qobject_cast<QLabel*>(widget(controle)))
        rotulo->setText(paraQt(texto));
}

void TelaQt::nomeArquivo(const std::filesystem::path& caminho) {
    janela_.pedido->txtNomeArquivo->setText(caminhoParaQt(caminho));
}

void TelaQt::fechar() {
    janela_.close();
}

} // namespace quilatador
