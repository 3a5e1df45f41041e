#pragma once

#include "frontend/window/qt/CaixaDeNumero.h"

#include <QRadioButton>

namespace quilatador {

/// An option whose caption has a number box in its middle: blanks keep the room for it, however wide the font's are.
class OpcaoComCaixa final : public QRadioButton {
    Q_OBJECT

  public:
    /// The caption is `antes`, the gap and `depois`.
    OpcaoComCaixa(QString antes, CaixaDeNumero* caixa, QString depois, QWidget* dono = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

  protected:
    void resizeEvent(QResizeEvent* evento) override;
    void changeEvent(QEvent* evento) override;

  private:
    void abrirEspaco();
    void colocarCaixa();

    QString antes_;
    QString depois_;
    CaixaDeNumero* caixa_;
};

} // namespace quilatador
