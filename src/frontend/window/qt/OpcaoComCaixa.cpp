#include "frontend/window/qt/OpcaoComCaixa.h"

#include <QEvent>
#include <QStyle>
#include <QStyleOptionButton>

#include <utility>

namespace quilatador {

namespace {
constexpr int algarismosVisiveis = 7;
constexpr int folga = 2; ///< blanks on each side of the box
} // namespace

OpcaoComCaixa::OpcaoComCaixa(QString antes, CaixaDeNumero* caixa, QString depois, QWidget* dono)
    : QRadioButton(dono), antes_(std::move(antes)), depois_(std::move(depois)), caixa_(caixa) {
    caixa_->setParent(this);
    abrirEspaco();
}

QSize OpcaoComCaixa::sizeHint() const {
    return QRadioButton::sizeHint().expandedTo({0, caixa_->sizeHint().height()});
}

void OpcaoComCaixa::resizeEvent(QResizeEvent* evento) {
    QRadioButton::resizeEvent(evento);
    colocarCaixa();
}

void OpcaoComCaixa::changeEvent(QEvent* evento) {
    QRadioButton::changeEvent(evento);
    if (evento->type() == QEvent::FontChange || evento->type() == QEvent::StyleChange) abrirEspaco();
}

void OpcaoComCaixa::abrirEspaco() {
    const QFontMetrics metrica(font());
    const int largura = metrica.horizontalAdvance(QLatin1Char('0')) * algarismosVisiveis;
    caixa_->setFixedWidth(largura);
    const int branco = metrica.horizontalAdvance(QLatin1Char(' '));
    const int brancos = (largura + branco - 1) / branco + 2 * folga;
    setText(antes_ + QString(brancos, QLatin1Char(' ')) + depois_);
    colocarCaixa();
}

void OpcaoComCaixa::colocarCaixa() {
    QStyleOptionButton opcao;
    initStyleOption(&opcao);
    const QRect texto = style()->subElementRect(QStyle::SE_RadioButtonContents, &opcao, this);
    const int inicio = texto.left() + fontMetrics().horizontalAdvance(antes_ + QString(folga, QLatin1Char(' ')));
    const int altura = caixa_->sizeHint().height();
    caixa_->setGeometry(
        QStyle::visualRect(layoutDirection(), rect(), {inicio, (height() - altura) / 2, caixa_->width(), altura}));
}

} // namespace quilatador
