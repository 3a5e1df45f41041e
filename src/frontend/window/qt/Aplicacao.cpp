#include "frontend/window/qt/Aplicacao.h"

#include "frontend/window/qt/Conversoes.h"
#include "frontend/window/qt/JanelaSobre.h"
#include "frontend/window/qt/Programa.h"

#include <chrono>
#include <type_traits>
#include <utility>

namespace quilatador {

namespace {

/// Connects a signal with what is to be done about it, which takes all of the signal's values or none.
template <typename Origem, typename Sinal, typename Acao>
void ligar(Origem* origem, Sinal sinal, QObject* contexto, Acao acao) {
    QObject::connect(origem, sinal, contexto, [acao](const auto&... valores) {
        if constexpr (std::is_invocable_v<Acao, decltype(valores)...>)
            Programa::atual().proteger([&] { acao(valores...); });
        else
            Programa::atual().proteger(acao);
    });
}

} // namespace

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
    Programa::atual().proteger([&] { formulario_.receberArquivo(arquivo); });
}

void Aplicacao::semPrograma(const std::filesystem::path& caminho) {
    Programa::atual().proteger([&] { formulario_.semPrograma(caminho); });
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
        ligar(opcao, &QRadioButton::toggled, &janela_, [this, tipo](bool escolhida) {
            if (escolhida) formulario_.escolherTipo(tipo);
        });
    };
    ligarTipo(pedido.opt702, TipoArquivo::ZUL702);
    ligarTipo(pedido.opt708, TipoArquivo::ZUL708);
    ligarTipo(pedido.optTAV, TipoArquivo::TAV001);
    ligar(pedido.chkData, &QCheckBox::toggled, &janela_,
          [this](bool comData) { formulario_.escolherComData(comData); });
    ligar(pedido.optPrimeirasGuias, &QRadioButton::toggled, &janela_,
          [this](bool primeiras) { formulario_.escolherPrimeirasGuias(primeiras); });
}

void Aplicacao::ligarCaixas() {
    const QuadroDoPedido& pedido = *janela_.pedido;
    ligar(pedido.txtNumeroDetalhes, &CaixaDeNumero::saiu, &janela_,
          [this] { formulario_.sairDoNumeroDeGuias(textoDeQt(janela_.pedido->txtNumeroDetalhes->text())); });
    // The test waits, because its message box would otherwise open in the middle of the mouse press that took the focus
    // away, and leave the button under it pressed.
    ligar(pedido.txtPosicao, &CaixaDeNumero::saiu, &janela_, [this] {
        posicaoPorConferir_ = true;
        const auto conferir = [this] { Programa::atual().proteger([this] { static_cast<void>(posicaoConferida()); }); };
        QMetaObject::invokeMethod(&janela_, conferir, Qt::QueuedConnection);
    });
    ligar(pedido.txtNomeArquivo, &QLineEdit::textChanged, &janela_,
          [this](const QString& nome) { formulario_.mudarNomeArquivo(caminhoDeQt(nome)); });
    ligar(pedido.txtNomeArquivo, &QLineEdit::editingFinished, &janela_,
          [this] { formulario_.sairDoNomeArquivo(caminhoDeQt(janela_.pedido->txtNomeArquivo->text())); });
    ligar(pedido.cmdProcura, &QPushButton::clicked, &janela_, [this] {
        if (const auto arquivo = dialogos_.escolherArquivo(janela_, formulario_.ultimoArquivo()))
            formulario_.tomarArquivo(*arquivo);
    });
}

void Aplicacao::ligarBotoes() {
    janela_.podeFechar = [this] { return formulario_.podeFechar(); };
    ligar(&janela_, &JanelaPrincipal::arquivoSolto, &janela_,
          [this](const std::filesystem::path& arquivo) { receber(arquivo); });
    // A quick click comes before the test that waits.
    ligar(janela_.cmdOK, &QPushButton::clicked, &janela_, [this] {
        if (posicaoConferida()) formulario_.confirmar(janela_.pedido->pedido());
    });
    ligar(janela_.cmdCancela, &QPushButton::clicked, &janela_, [this] { formulario_.cancelar(); });
    ligar(janela_.cmdAjuda, &QPushButton::clicked, &janela_, [this] { formulario_.abrirAjuda(); });
    ligar(janela_.cmdLayout, &QPushButton::clicked, &janela_, [this] { formulario_.abrirLeiaute(); });
    ligar(janela_.cmdSobre, &QPushButton::clicked, &janela_, [this] { mostrarSobre(); });
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
