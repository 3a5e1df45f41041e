#include "frontend/window/qt/JanelaPrincipal.h"

#include "frontend/window/qt/Controles.h"
#include "frontend/window/qt/Conversoes.h"
#include "run/Painel.h"

#include <QCloseEvent>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMimeData>
#include <QSvgWidget>
#include <QVBoxLayout>

#include <optional>

namespace quilatador {

using namespace Qt::StringLiterals;

namespace {

/// The dragged file, if it is exactly one file of this machine.
std::optional<std::filesystem::path> arquivoDe(const QMimeData& dados) {
    const QList<QUrl> enderecos = dados.urls();
    if (enderecos.size() != 1 || !QFileInfo(enderecos.front().toLocalFile()).isFile()) return std::nullopt;
    return caminhoDeQt(QDir::toNativeSeparators(enderecos.front().toLocalFile()));
}

bool pressionaBotao(int tecla) {
    return tecla == Qt::Key_Return || tecla == Qt::Key_Enter || tecla == Qt::Key_Space;
}

} // namespace

JanelaPrincipal::JanelaPrincipal()
    : QDialog(nullptr, Qt::Window)
    , pedido(new QuadroDoPedido)
    , progresso(new QuadroDoProgresso)
    , cmdAjuda(novoControle<QPushButton>("cmdAjuda", QIcon(u":/ajuda.svg"_s), QString()))
    , cmdLayout(novoControle<QPushButton>("cmdLayout", u"&Leiaute dos Arquivos"_s))
    , cmdSobre(novoControle<QPushButton>("cmdSobre", u"&Sobre o Quilatador..."_s))
    , cmdOK(novoControle<QPushButton>("cmdOK", u"OK"_s))
    , cmdCancela(novoControle<QPushButton>("cmdCancela", u"&Sair"_s)) {
    setObjectName(u"frmImportacao"_s);
    setWindowTitle(paraQt(tituloDoPrograma));
    setAcceptDrops(true);

    auto* faces = new QGridLayout; // both have the same place, and one of them is shown
    faces->addWidget(pedido, 0, 0);
    faces->addWidget(progresso, 0, 0);
    auto* janela = new QVBoxLayout(this);
    const int respiro = 2 * janela->spacing();
    janela->setSpacing(respiro);
    janela->setContentsMargins(respiro, respiro, respiro, respiro);
    janela->addLayout(cabecalho());
    janela->addLayout(faces, 1);
    janela->addLayout(botoes());
    ordenarFoco();
    progresso->hide();
}

QLayout* JanelaPrincipal::cabecalho() {
    auto* logo = novoControle<QSvgWidget>("Image1", u":/logo.svg"_s);
    const int lado = 3 * fontMetrics().height();
    logo->setFixedSize(lado, lado);
    descrever(logo, u"Logotipo"_s);

    auto* titulo = new QLabel(u"Quilatador de Leiaute"_s);
    QFont fonte = titulo->font();
    fonte.setPointSizeF(fonte.pointSizeF() * 1.5);
    fonte.setBold(true);
    titulo->setFont(fonte);
    auto* textos = new QVBoxLayout;
    textos->setSpacing(fontMetrics().height() / 4);
    textos->addStretch();
    textos->addWidget(titulo);
    textos->addWidget(new QLabel(u"Confere os arquivos de cobrança trocados com o banco"_s));
    textos->addStretch();

    auto* linha = new QHBoxLayout;
    linha->setSpacing(fontMetrics().height());
    linha->addWidget(logo);
    linha->addLayout(textos, 1);
    return linha;
}

QLayout* JanelaPrincipal::botoes() {
    descrever(cmdAjuda, u"Ajuda"_s, u"Pressione para obter informações sobre a tela."_s);
    cmdAjuda->setShortcut(QKeySequence::HelpContents);
    cmdOK->setDefault(true);
    auto* linha = new QHBoxLayout;
    for (QPushButton* botao : {cmdAjuda, cmdLayout, cmdSobre, cmdOK, cmdCancela}) {
        botao->installEventFilter(this);
        if (botao != cmdAjuda) botao->setAccessibleName(botao->text().remove(u'&'));
        if (botao == cmdOK) linha->addStretch();
        linha->addWidget(botao);
    }
    return linha;
}

void JanelaPrincipal::ordenarFoco() {
    QWidget* const ordem[] = {pedido->txtNomeArquivo,
                              pedido->cmdProcura,
                              pedido->opt702,
                              pedido->opt708,
                              pedido->optTAV,
                              pedido->chkData,
                              pedido->txtPosicao,
                              pedido->cmbFormato,
                              pedido->optTodosDetalhes,
                              pedido->optPrimeirasGuias,
                              pedido->txtNumeroDetalhes,
                              cmdOK,
                              cmdCancela,
                              cmdAjuda,
                              cmdLayout,
                              cmdSobre};
    for (std::size_t i = 1; i < std::size(ordem); ++i)
        setTabOrder(ordem[i - 1], ordem[i]);
}

void JanelaPrincipal::reject() {
    if (progresso->isVisible()) cmdCancela->click();
}

void JanelaPrincipal::closeEvent(QCloseEvent* evento) {
    evento->setAccepted(!podeFechar || podeFechar());
}

void JanelaPrincipal::dragEnterEvent(QDragEnterEvent* evento) {
    if (pedido->isVisible() && arquivoDe(*evento->mimeData())) evento->acceptProposedAction();
}

void JanelaPrincipal::dropEvent(QDropEvent* evento) {
    const auto arquivo = arquivoDe(*evento->mimeData());
    if (!arquivo) return;
    evento->acceptProposedAction();
    emit arquivoSolto(*arquivo);
}

bool JanelaPrincipal::eventFilter(QObject* objeto, QEvent* evento) {
    if (evento->type() != QEvent::KeyPress) return QDialog::eventFilter(objeto, evento);
    const auto* tecla = static_cast<QKeyEvent*>(evento);
    return tecla->isAutoRepeat() && pressionaBotao(tecla->key());
}

void JanelaPrincipal::keyPressEvent(QKeyEvent* evento) {
    if (evento->isAutoRepeat() && pressionaBotao(evento->key())) return;
    QDialog::keyPressEvent(evento);
}

} // namespace quilatador
