#include "frontend/window/qt/Aplicacao.h"

#include "frontend/window/qt/Conversoes.h"
#include "frontend/window/qt/JanelaSobre.h"

#include <QApplication>

#include <chrono>
#include <utility>

namespace quilatador {

Aplicacao::Aplicacao(const Meios& meios)
    : tela_(janela_, meios.dialogos, meios.relogio)
    , ambiente_{tela_, meios.relogio, meios.localidade, meios.lancador, meios.arquivos, meios.pastaDoPrograma}
    , formulario_(ambiente_, globais_, tela_)
    , sobre_(meios.arquivos, meios.localidade, meios.pastaDoPrograma, meios.programa)
    , dialogos_(meios.dialogos) {
    ligarPedido();
    ligarCaixas();
    ligarBotoes();
}

/// Hiding the window takes the focus from its controls, and the rules that answer to that must still exist.
Aplicacao::~Aplicacao() {
    janela_.hide();
}

bool Aplicacao::iniciar() {
    if (!formulario_.Form_Load()) return false;
    janela_.show();
    return true;
}

void Aplicacao::receber(const std::filesystem::path& arquivo) {
    formulario_.receberArquivo(arquivo);
}

void Aplicacao::semPrograma(const std::filesystem::path& caminho) {
    formulario_.semPrograma(caminho);
}

void Aplicacao::encerrarQuando(std::function<bool()> pedido) {
    constexpr std::chrono::milliseconds intervalo{100};
    vigia_.callOnTimeout([pedido = std::move(pedido)] {
        if (pedido()) QApplication::closeAllWindows();
    });
    vigia_.start(intervalo);
}

void Aplicacao::ligarPedido() {
    const QuadroDoPedido& pedido = *janela_.pedido;
    const auto ligarTipo = [&](QRadioButton* opcao, TipoArquivo tipo) {
        QObject::connect(opcao, &QRadioButton::toggled, &janela_, [this, tipo](bool escolhida) {
            if (escolhida) formulario_.escolherTipo(tipo);
        });
    };
    ligarTipo(pedido.opt702, TipoArquivo::ZUL702);
    ligarTipo(pedido.opt708, TipoArquivo::ZUL708);
    ligarTipo(pedido.optTAV, TipoArquivo::TAV001);
    QObject::connect(pedido.chkData, &QCheckBox::toggled, &janela_,
                     [this](bool comData) { formulario_.escolherComData(comData); });
    QObject::connect(pedido.optPrimeirasGuias, &QRadioButton::toggled, &janela_,
                     [this](bool primeiras) { formulario_.escolherPrimeirasGuias(primeiras); });
}

void Aplicacao::ligarCaixas() {
    const QuadroDoPedido& pedido = *janela_.pedido;
    QObject::connect(pedido.txtNumeroDetalhes, &CaixaDeNumero::saiu, &janela_,
                     [this] { formulario_.sairDoNumeroDeGuias(textoDeQt(janela_.pedido->txtNumeroDetalhes->text())); });
    // The test waits, because its message box would otherwise open in the middle of the mouse press that took the focus
    // away, and leave the button under it pressed.
    QObject::connect(pedido.txtPosicao, &CaixaDeNumero::saiu, &janela_, [this] {
        posicaoPorConferir_ = true;
        QMetaObject::invokeMethod(
            &janela_, [this] { static_cast<void>(posicaoConferida()); }, Qt::QueuedConnection);
    });
    QObject::connect(pedido.txtNomeArquivo, &QLineEdit::textChanged, &janela_,
                     [this](const QString& nome) { formulario_.mudarNomeArquivo(caminhoDeQt(nome)); });
    QObject::connect(pedido.txtNomeArquivo, &QLineEdit::editingFinished, &janela_,
                     [this] { formulario_.sairDoNomeArquivo(caminhoDeQt(janela_.pedido->txtNomeArquivo->text())); });
    QObject::connect(pedido.cmdProcura, &QPushButton::clicked, &janela_, [this] {
        if (const auto arquivo = dialogos_.escolherArquivo(janela_, formulario_.ultimoArquivo()))
            formulario_.tomarArquivo(*arquivo);
    });
}

void Aplicacao::ligarBotoes() {
    janela_.podeFechar = [this] { return formulario_.podeFechar(); };
    QObject::connect(&janela_, &JanelaPrincipal::arquivoSolto, &janela_,
                     [this](const std::filesystem::path& arquivo) { receber(arquivo); });
    // A quick click comes before the test that waits.
    QObject::connect(janela_.cmdOK, &QPushButton::clicked, &janela_, [this] {
        if (posicaoConferida()) formulario_.confirmar(janela_.pedido->pedido());
    });
    QObject::connect(janela_.cmdCancela, &QPushButton::clicked, &janela_, [this] { formulario_.cancelar(); });
    QObject::connect(janela_.cmdAjuda, &QPushButton::clicked, &janela_, [this] { formulario_.abrirAjuda(); });
    QObject::connect(janela_.cmdLayout, &QPushButton::clicked, &janela_, [this] { formulario_.abrirLeiaute(); });
    QObject::connect(janela_.cmdSobre, &QPushButton::clicked, &janela_, [this] { mostrarSobre(); });
}

/// Whether the position may stay as it is. It is tested once after its box has lost the focus, unless the focus has
/// come back by then.
bool Aplicacao::posicaoConferida() {
    if (!std::exchange(posicaoPorConferir_, false)) return true;
    if (janela_.pedido->txtPosicao->hasFocus() || QApplication::activeModalWidget()) return true;
    return formulario_.sairDaPosicao(janela_.pedido->pedido());
}

/// Does not wait until the box is closed: a running analysis goes on behind it.
void Aplicacao::mostrarSobre() {
    auto* sobre = new JanelaSobre(sobre_.versao(), &janela_);
    sobre->setAttribute(Qt::WA_DeleteOnClose);
    sobre->open();
}

} // namespace quilatador
