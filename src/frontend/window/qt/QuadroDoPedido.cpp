#include "frontend/window/qt/QuadroDoPedido.h"

#include "common/Numero.h"
#include "frontend/window/qt/Controles.h"
#include "frontend/window/qt/Conversoes.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QVBoxLayout>

#include <initializer_list>
#include <iterator>

namespace quilatador {

using namespace Qt::StringLiterals;

namespace {

/// A hidden frame keeps its space, so that nothing moves when it comes back.
void guardarLugar(QWidget* controle) {
    QSizePolicy politica = controle->sizePolicy();
    politica.setRetainSizeWhenHidden(true);
    controle->setSizePolicy(politica);
}

/// Makes the options exclude each other. The automatic grouping of a frame would not do: it takes in the frames inside.
void agrupar(QWidget* dono, std::initializer_list<QAbstractButton*> opcoes) {
    auto* grupo = new QButtonGroup(dono);
    for (QAbstractButton* opcao : opcoes)
        grupo->addButton(opcao);
}

/// The words beside an option, which can be clicked as those of the option itself.
class LegendaDeOpcao final : public QLabel {
  public:
    LegendaDeOpcao(const QString& texto, QRadioButton* opcao) : QLabel(texto), opcao_(opcao) {
        setToolTip(opcao->toolTip());
    }

  protected:
    void mousePressEvent(QMouseEvent* evento) override {
        if (evento->button() == Qt::LeftButton) opcao_->setFocus(Qt::MouseFocusReason);
    }
    void mouseReleaseEvent(QMouseEvent* evento) override {
        if (evento->button() == Qt::LeftButton && rect().contains(evento->pos())) opcao_->click();
    }

  private:
    QRadioButton* opcao_;
};

} // namespace

QuadroDoPedido::QuadroDoPedido(QWidget* dono)
    : QGroupBox(u"Nome do Arquivo"_s, dono)
    , txtNomeArquivo(novoControle<QLineEdit>("txtNomeArquivo"))
    , lblAviso(novoControle<QLabel>("lblAviso"))
    , cmdProcura(novoControle<QPushButton>("cmdProcura", u"&Procurar..."_s))
    , opt702(novoControle<QRadioButton>("opt702", u"ZUL702"_s))
    , opt708(novoControle<QRadioButton>("opt708", u"ZUL708"_s))
    , optTAV(novoControle<QRadioButton>("optTAV", u"TAV001"_s))
    , Frame1(novoControle<QGroupBox>("Frame1", u"Data no código de barras"_s))
    , chkData(novoControle<QCheckBox>("chkData", u"Com data"_s))
    , txtPosicao(novoControle<CaixaDeNumero>("txtPosicao"))
    , cmbFormato(novoControle<CaixaDeFormato>("cmbFormato"))
    , fraDetalhes(novoControle<QGroupBox>("fraDetalhes", u"Analisar detalhes"_s))
    , optTodosDetalhes(novoControle<QRadioButton>("optTodosDetalhes", u"Todos"_s))
    , txtNumeroDetalhes(novoControle<CaixaDeNumero>("txtNumeroDetalhes"))
    , optPrimeirasGuias(
          novoControle<OpcaoComCaixa>("optPrimeirasGuias", u"Primeiras"_s, txtNumeroDetalhes, u"guias"_s)) {
    setObjectName(u"fraNomeArquivo"_s);
    montarData();
    montarDetalhes();
    auto* opcoes = new QHBoxLayout;
    opcoes->addWidget(Frame1, 1);
    opcoes->addWidget(fraDetalhes, 1);

    auto* quadro = new QVBoxLayout(this);
    quadro->setSpacing(2 * quadro->spacing());
    descreverControles();
    quadro->addLayout(arquivo());
    quadro->addLayout(tiposDeArquivo());
    quadro->addLayout(opcoes);
    quadro->addStretch();
}

Pedido QuadroDoPedido::pedido() const {
    return {.tipoArquivo = opt708->isChecked()   ? TipoArquivo::ZUL708
                           : optTAV->isChecked() ? TipoArquivo::TAV001
                                                 : TipoArquivo::ZUL702,
            .nomeArquivo = caminhoDeQt(txtNomeArquivo->text()),
            .comData = chkData->isChecked(),
            .FormatoDataBarra = textoDeQt(cmbFormato->currentText()),
            .PosicaoDataBarra = lerNumero(textoDeQt(txtPosicao->text())),
            .nomeArquivoLog = {}};
}

std::optional<double> QuadroDoPedido::primeirasGuias() const {
    if (!optPrimeirasGuias->isChecked()) return std::nullopt;
    return lerNumero(textoDeQt(txtNumeroDetalhes->text()));
}

void QuadroDoPedido::descreverControles() {
    descrever(this, title());
    descrever(txtNomeArquivo, u"Nome do arquivo"_s, u"Nome do arquivo para Análise."_s);
    descrever(cmdProcura, u"Procurar arquivo"_s,
              u"Pressione para informar o drive/diretório e o nome do arquivo para Análise."_s);
    descrever(opt702, u"ZUL702, Remessa para Impressão"_s,
              u"Selecione esta opção para efetuar a análise do arquivo ZUL702 (Remessa para Impressão)"_s);
    descrever(opt708, u"ZUL708, Retorno da Remessa de Impressão"_s,
              u"Selecione esta opção para efetuar a análise do arquivo ZUL708 (Retorno da Remessa de Impressão)"_s);
    descrever(optTAV, u"TAV001, Retorno de Liquidação"_s,
              u"Selecione esta opção para efetuar a análise do arquivo TAV001 (Retorno de Liquidação)"_s);
    descrever(Frame1, Frame1->title());
    descrever(chkData, u"Com data"_s,
              u"Selecione esta opção caso o código de barras contenha uma data de vencimento."_s);
    descrever(txtPosicao, u"Posição da data"_s, u"Informe a posição da inicial da data no código de barras."_s);
    descrever(cmbFormato, u"Formato da data"_s, u"Selecione o Formato da Data no código de barras."_s);
    cmbFormato->lineEdit()->setAccessibleName(cmbFormato->accessibleName());
    descrever(fraDetalhes, fraDetalhes->title());
    descrever(optTodosDetalhes, u"Todos"_s, u"Selecione esta opção para analisar todas as guias do arquivo."_s);
    descrever(optPrimeirasGuias, u"Primeiras guias"_s, u"Selecione esta opção para analisar apenas algumas guias."_s);
    descrever(txtNumeroDetalhes, u"Quantidade de guias"_s, u"Informe a quantidade de guias a serem analisadas."_s);
}

/// Below the name there is always a line for what is to be said about it, so that nothing moves when it comes.
QLayout* QuadroDoPedido::arquivo() {
    txtNomeArquivo->setPlaceholderText(u"Digite o nome, procure o arquivo ou solte-o aqui"_s);
    txtNomeArquivo->setMinimumWidth(fontMetrics().averageCharWidth() * 24);
    auto* linha = new QHBoxLayout;
    linha->addWidget(txtNomeArquivo, 1);
    linha->addWidget(cmdProcura);
    lblAviso->setMinimumHeight(fontMetrics().height());
    auto* coluna = new QVBoxLayout;
    coluna->setSpacing(fontMetrics().height() / 4);
    coluna->addLayout(linha);
    coluna->addWidget(lblAviso);
    return coluna;
}

QLayout* QuadroDoPedido::tiposDeArquivo() {
    const std::pair<QRadioButton*, QString> tipos[] = {{opt702, u"Remessa para Impressão"_s},
                                                       {opt708, u"Retorno da Remessa de Impressão"_s},
                                                       {optTAV, u"Retorno de Liquidação"_s}};
    agrupar(this, {opt702, opt708, optTAV});
    auto* grade = new QGridLayout;
    grade->setHorizontalSpacing(2 * fontMetrics().averageCharWidth());
    grade->setVerticalSpacing(fontMetrics().height() / 3);
    grade->setColumnStretch(1, 1);
    for (int linha = 0; linha < static_cast<int>(std::size(tipos)); ++linha) {
        grade->addWidget(tipos[linha].first, linha, 0);
        grade->addWidget(new LegendaDeOpcao(tipos[linha].second, tipos[linha].first), linha, 1);
    }
    return grade;
}

void QuadroDoPedido::montarData() {
    auto* Label7 = novoControle<QLabel>("Label7", u"Posição:"_s);
    auto* Label8 = novoControle<QLabel>("Label8", u"Formato:"_s);
    Label7->setBuddy(txtPosicao);
    Label8->setBuddy(cmbFormato);
    txtPosicao->setFixedWidth(fontMetrics().averageCharWidth() * 6);

    auto* grade = new QGridLayout(Frame1);
    grade->addWidget(chkData, 0, 0, 1, 2);
    grade->addWidget(Label7, 1, 0);
    grade->addWidget(txtPosicao, 1, 1);
    grade->addWidget(Label8, 2, 0);
    grade->addWidget(cmbFormato, 2, 1, Qt::AlignLeft);
    grade->setColumnStretch(1, 1);
    guardarLugar(Frame1);
}

void QuadroDoPedido::montarDetalhes() {
    agrupar(fraDetalhes, {optTodosDetalhes, optPrimeirasGuias});
    auto* coluna = new QVBoxLayout(fraDetalhes);
    coluna->addWidget(optTodosDetalhes);
    coluna->addWidget(optPrimeirasGuias);
    coluna->addStretch();
    guardarLugar(fraDetalhes);
}

} // namespace quilatador
