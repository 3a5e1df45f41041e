#pragma once

#include "frontend/window/qt/CaixaDeNumero.h"

#include <QRadioButton>

namespace quilatador {

/// An option button with a number box in the middle of its caption. As many blanks as the font needs keep the space for
/// the box.
class OpcaoComCaixa final : public QRadioButton {
    Q_OBJECT

  public:
    /// The caption is `antes`, the space for the box, and `depois`.
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
