#include "frontend/window/qt/CaixaDeNumero.h"

#include "frontend/window/frmImportacao.h"
#include "frontend/window/qt/Conversoes.h"

#include <QFocusEvent>
#include <QValidator>

namespace quilatador {

namespace {

QString digitosDe(const QString& texto) {
    return paraQt(frmImportacao::filtrarDigitos(textoDeQt(texto)));
}

/// Refuses no text but removes what is not a digit, so that one rule serves keys, pasting, dropping and input methods.
class FiltroDeDigitos final : public QValidator {
  public:
    using QValidator::QValidator;

    State validate(QString& texto, int& cursor) const override {
        cursor = static_cast<int>(digitosDe(texto.left(cursor)).size());
        texto = digitosDe(texto);
        return Acceptable;
    }
};

} // namespace

CaixaDeNumero::CaixaDeNumero(QWidget* dono) : QLineEdit(dono) {
    setValidator(new FiltroDeDigitos(this));
    setInputMethodHints(Qt::ImhDigitsOnly);
}

void CaixaDeNumero::focusOutEvent(QFocusEvent* evento) {
    QLineEdit::focusOutEvent(evento);
    switch (evento->reason()) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
        return;
    default:
        emit saiu();
    }
}

} // namespace quilatador
