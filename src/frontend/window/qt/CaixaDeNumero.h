#pragma once

#include <QLineEdit>

namespace quilatador {

/// A box for digits: whatever else is typed or pasted is left out.
class CaixaDeNumero final : public QLineEdit {
    Q_OBJECT

  public:
    explicit CaixaDeNumero(QWidget* dono = nullptr);

  signals:
    /// The focus went to another control, or the box is hidden. Another window in front, or a menu, is no leaving.
    void saiu();

  protected:
    void focusOutEvent(QFocusEvent* evento) override;
};

} // namespace quilatador
