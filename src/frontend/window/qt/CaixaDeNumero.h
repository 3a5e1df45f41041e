#pragma once

#include <QLineEdit>

namespace quilatador {

/// A text box for digits. Any other character that is typed or pasted is dropped.
class CaixaDeNumero final : public QLineEdit {
    Q_OBJECT

  public:
    explicit CaixaDeNumero(QWidget* dono = nullptr);

  signals:
    /// The focus has gone to another control, or the box is hidden. Another window in front, or an open menu, does not
    /// count.
    void saiu();

  protected:
    void focusOutEvent(QFocusEvent* evento) override;
};

} // namespace quilatador
