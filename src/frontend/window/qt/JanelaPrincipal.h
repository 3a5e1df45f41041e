#pragma once

#include "frontend/window/qt/QuadroDoPedido.h"
#include "frontend/window/qt/QuadroDoProgresso.h"

#include <QDialog>

#include <filesystem>
#include <functional>

namespace quilatador {

/// The main window, `frmImportacao`: its controls and where they are. `Aplicacao` connects them with what they do.
class JanelaPrincipal final : public QDialog {
    Q_OBJECT

  public:
    JanelaPrincipal();

    /// Called whenever the window is about to close; says whether it may. An empty function lets it close.
    std::function<bool()> podeFechar;

    QuadroDoPedido* const pedido;
    QuadroDoProgresso* const progresso;
    QPushButton* const cmdAjuda;
    QPushButton* const cmdLayout;
    QPushButton* const cmdSobre;
    QPushButton* const cmdOK;
    QPushButton* const cmdCancela;

    /// Escape cancels a running analysis, as the button does. Otherwise it does nothing, so that a slip of the finger
    /// does not end the program.
    void reject() override;

  signals:
    /// One file of this machine was dropped on the window.
    void arquivoSolto(const std::filesystem::path& arquivo);

  protected:
    void closeEvent(QCloseEvent* evento) override;
    void dragEnterEvent(QDragEnterEvent* evento) override;
    void dropEvent(QDropEvent* evento) override;
    /// A key that is held down presses a button only once. Enter presses the default button, unless the focus is on
    /// another push button.
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    [[nodiscard]] QLayout* cabecalho();
    [[nodiscard]] QLayout* botoes();
    [[nodiscard]] QWidget* conteudo();
    void vigiarTeclas();
    void ordenarFoco();
    void caberNaTela();
};

} // namespace quilatador
