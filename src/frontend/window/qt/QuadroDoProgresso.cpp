#include "frontend/window/qt/QuadroDoProgresso.h"

#include "common/Numero.h"
#include "frontend/window/qt/Controles.h"
#include "frontend/window/qt/Conversoes.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <limits>

namespace quilatador {

using namespace Qt::StringLiterals;

namespace {

/// A label whose text comes from a file: it is shown as plain text, and never makes the window wider.
QLabel* novoTextoDoArquivo(const char* nome, const QString& legenda) {
    auto* rotulo = novoControle<QLabel>(nome, legenda);
    rotulo->setTextFormat(Qt::PlainText);
    rotulo->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    return rotulo;
}

void emNegrito(QWidget* controle) {
    QFont fonte = controle->font();
    fonte.setBold(true);
    controle->setFont(fonte);
}

} // namespace

QuadroDoProgresso::QuadroDoProgresso(QWidget* dono)
    : QGroupBox(u"Progresso da Análise"_s, dono)
    , lblEmpresa(novoTextoDoArquivo("lblEmpresa", u"NomeEmpresa"_s))
    , lblRemessa(novoTextoDoArquivo("lblRemessa", u"Remessa"_s))
    , lblOperacao(novoTextoDoArquivo("lblOperacao", u"Operação"_s))
    , pbrImportacao(novoControle<QProgressBar>("pbrImportacao"))
    , lblRegistroAtual(novoControle<QLabel>("lblRegistroAtual"))
    , lblTotalRegistros(novoControle<QLabel>("lblTotalRegistros"))
    , lblGuiasDepuradas(novoControle<QLabel>("lblGuiasDepuradas"))
    , lblTotalGuias(novoControle<QLabel>("lblTotalGuias"))
    , lblTempoDecorrido(novoControle<QLabel>("lblTempoDecorrido", u"00:00:00"_s))
    , lblTempoRestante(novoControle<QLabel>("lblTempoRestante", u"00:00:00"_s)) {
    setObjectName(u"fraImportacao"_s);
    descrever(this, title());
    descrever(pbrImportacao, title());
    emNegrito(lblEmpresa);

    auto* quadro = new QVBoxLayout(this);
    const int respiro = 2 * quadro->spacing();
    quadro->addStretch();
    quadro->addWidget(lblEmpresa);
    quadro->addWidget(lblRemessa);
    quadro->addSpacing(respiro);
    quadro->addWidget(lblOperacao);
    quadro->addWidget(pbrImportacao);
    quadro->addSpacing(respiro);
    quadro->addLayout(contagens());
    quadro->addStretch();
}

/// Three rows of two counts. The columns of numbers keep their width, so that they do not move when the numbers grow.
QLayout* QuadroDoProgresso::contagens() {
    struct Contagem {
        const char* nome;
        QString legenda;
        QLabel* numero;
    };
    const Contagem linhas[][2] = {
        {{"Label5", u"Registro Atual:"_s, lblRegistroAtual}, {"Label4", u"Total de Registros:"_s, lblTotalRegistros}},
        {{"Label6", u"Guias Depuradas:"_s, lblGuiasDepuradas}, {"Label2", u"Total de Guias:"_s, lblTotalGuias}},
        {{"Label1", u"Tempo decorrido:"_s, lblTempoDecorrido}, {"Label3", u"Tempo restante:"_s, lblTempoRestante}}};
    auto* grade = new QGridLayout;
    grade->setColumnStretch(2, 1);
    for (int linha = 0; linha < 3; ++linha) {
        for (int lado = 0; lado < 2; ++lado) {
            const auto& [nome, legenda, numero] = linhas[linha][lado];
            emNegrito(numero);
            numero->setMinimumWidth(QFontMetrics(numero->font()).horizontalAdvance(u"000000000"_s));
            numero->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
            numero->setAccessibleName(legenda.chopped(1));
            grade->addWidget(novoControle<QLabel>(nome, legenda), linha, 3 * lado);
            grade->addWidget(numero, linha, 3 * lado + 1);
        }
    }
    return grade;
}

void QuadroDoProgresso::rotulo(Rotulo qual, VistaTexto texto) {
    QLabel* const rotulos[] = {lblOperacao, lblEmpresa, lblRemessa};
    rotulos[static_cast<std::size_t>(qual)]->setText(paraQt(texto));
}

void QuadroDoProgresso::totalDeGuias(std::optional<double> total) {
    lblTotalGuias->setText(total ? paraQt(textoDoNumero(*total)) : u"todas"_s);
}

void QuadroDoProgresso::mostrar(const Progresso& progresso, Relogio::Instante agora) {
    const std::int64_t porPasso = progresso.totalRegistros / std::numeric_limits<int>::max() + 1; // the bar has 32 bits
    const auto passos = static_cast<int>(progresso.totalRegistros / porPasso);
    pbrImportacao->setMaximum(std::max(passos, 1)); // a maximum of 0 would move it endlessly
    pbrImportacao->setValue(static_cast<int>(progresso.barra / porPasso));
    lblRegistroAtual->setText(QString::number(qint64{progresso.registroAtual}));
    lblTotalRegistros->setText(QString::number(qint64{progresso.totalRegistros}));
    lblGuiasDepuradas->setText(QString::number(qint64{progresso.guias}));
    lblTempoDecorrido->setText(paraQt(formatarTempo(tempoDecorrido(progresso, agora))));
    lblTempoRestante->setText(paraQt(formatarTempo(tempoRestante(progresso, agora))));
}

} // namespace quilatador
