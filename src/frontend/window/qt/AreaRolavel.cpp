#include "frontend/window/qt/AreaRolavel.h"

#include <QApplication>
#include <QScrollBar>

namespace quilatador {

namespace {
constexpr int linhasQueBastam = 4;
} // namespace

AreaRolavel::AreaRolavel(QWidget* conteudo, QWidget* dono) : QScrollArea(dono) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // the keys move between the controls, and the area follows them
    setWidgetResizable(true);
    setWidget(conteudo);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* agora) {
        if (agora && widget()->isAncestorOf(agora)) ensureWidgetVisible(agora);
    });
}

QSize AreaRolavel::sizeHint() const {
    return widget()->sizeHint();
}

QSize AreaRolavel::minimumSizeHint() const {
    const QSize conteudo = widget()->minimumSizeHint();
    return QSize(conteudo.width() / 2, fontMetrics().height() * linhasQueBastam).boundedTo(conteudo);
}

} // namespace quilatador
