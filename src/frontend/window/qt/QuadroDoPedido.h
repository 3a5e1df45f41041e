#pragma once

#include "frontend/Pedido.h"
#include "frontend/window/qt/CaixaDeFormato.h"
#include "frontend/window/qt/CaixaDeNumero.h"
#include "frontend/window/qt/OpcaoComCaixa.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <optional>

namespace quilatador {

/// The part of the window that takes the request: the frame `fraNomeArquivo`. Its controls have the names by which the
/// rules know them; Qt owns them.
class QuadroDoPedido final : public QGroupBox {
    Q_OBJECT

  public:
    explicit QuadroDoPedido(QWidget* dono = nullptr);

    /// The request as the controls have it now.
    [[nodiscard]] Pedido pedido() const;
    /// The number of slips to analyse; nothing for all of them.
    [[nodiscard]] std::optional<double> primeirasGuias() const;

    QLineEdit* const txtNomeArquivo;
    QLabel* const lblAviso; ///< what is to be said about the file of that name; usually empty
    QPushButton* const cmdProcura;
    QRadioButton* const opt702;
    QRadioButton* const opt708;
    QRadioButton* const optTAV;
    QGroupBox* const Frame1;
    QCheckBox* const chkData;
    CaixaDeNumero* const txtPosicao;
    CaixaDeFormato* const cmbFormato;
    QGroupBox* const fraDetalhes;
    QRadioButton* const optTodosDetalhes;
    CaixaDeNumero* const txtNumeroDetalhes;
    OpcaoComCaixa* const optPrimeirasGuias;

  private:
    void descreverControles();
    [[nodiscard]] QLayout* arquivo();
    [[nodiscard]] QLayout* tiposDeArquivo();
    void montarData();
    void montarDetalhes();
};

} // namespace quilatador
