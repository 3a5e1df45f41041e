#include "frontend/window/qt/JanelaPrincipal.h"

#include "frontend/window/qt/AreaRolavel.h"
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
#include <QScreen>
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
    , cmdSobre(novoControle<QPushButton>("cmdSobre", u"S&obre o Quilatador..."_s))
    , cmdOK(novoControle<QPushButton>("cmdOK", u"OK"_s))
    , cmdCancela(novoControle<QPushButton>("cmdCancela", u"&Sair"_s)) {
    setObjectName(u"frmImportacao"_s);
    setWindowTitle(paraQt(tituloDoPrograma));
    setAcceptDrops(true);

    auto* janela = new QVBoxLayout(this);
    const int respiro = 2 * janela->spacing();
    janela->setSpacing(respiro);
    janela->setContentsMargins(respiro, respiro, respiro, respiro);
    janela->addWidget(new AreaRolavel(conteudo()), 1);
    janela->addLayout(botoes());
    vigiarTeclas();
    ordenarFoco();
    progresso->hide();
    caberNaTela();
}

/// Everything but the buttons, which must stay in sight on the smallest screen.
QWidget* JanelaPrincipal::conteudo() {
    auto* faces = new QGridLayout; // both have the same place, and one of them is shown
    faces->addWidget(pedido, 0, 0);
    faces->addWidget(progresso, 0, 0);
    auto* conteudo = new QWidget;
    auto* coluna = new QVBoxLayout(conteudo);
    coluna->setSpacing(2 * coluna->spacing());
    coluna->setContentsMargins(0, 0, 0, 0);
    coluna->addLayout(cabecalho());
    coluna->addLayout(faces, 1);
    return conteudo;
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
    linha->setSpacing(fontMetrics().height() / 2); // the widest row decides on how small a screen all buttons are seen
    for (QPushButton* botao : {cmdAjuda, cmdLayout, cmdSobre, cmdOK, cmdCancela}) {
        if (botao != cmdAjuda) botao->setAccessibleName(botao->text().remove(u'&'));
        if (botao == cmdOK) linha->addStretch();
        linha->addWidget(botao);
    }
    return linha;
}

void JanelaPrincipal::vigiarTeclas() {
    for (auto* controle : findChildren<QWidget*>())
        if (qobject_cast<QAbstractButton*>(controle) || qobject_cast<QGroupBox*>(controle))
            controle->installEventFilter(this);
}

/// The size that shows everything, unless the screen is smaller. The toolkit by itself would take two thirds of a
/// screen at most. How high the title bar is cannot be known before it is there.
void JanelaPrincipal::caberNaTela() {
    const QSize barraDeTitulo{0, 2 * fontMetrics().height()};
    resize(sizeHint().boundedTo(screen()->availableSize() - barraDeTitulo));
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
    auto* tecla = static_cast<QKeyEvent*>(evento);
    if (!pressionaBotao(tecla->key())) return false;
    if (tecla->isAutoRepeat()) return true;
    if (tecla->key() == Qt::Key_Space || qobject_cast<QPushButton*>(objeto)) return false;
    keyPressEvent(tecla); // themes such as that of GNOME let option buttons, check boxes and even frames take Enter
    return true;
}

void JanelaPrincipal::keyPressEvent(QKeyEvent* evento) {
    if (evento->isAutoRepeat() && pressionaBotao(evento->key())) return;
    QDialog::keyPressEvent(evento);
}

} // namespace quilatador
