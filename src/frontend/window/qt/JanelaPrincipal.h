#pragma once

#include "frontend/window/qt/QuadroDoPedido.h"
#include "frontend/window/qt/QuadroDoProgresso.h"

#include <QDialog>

#include <filesystem>
#include <functional>

namespace quilatador {

/// The main window, `frmImportacao`: its controls and where they stand. What they do is wired by `Aplicacao`.
class JanelaPrincipal final : public QDialog {
    Q_OBJECT

  public:
    JanelaPrincipal();

    /// Asked whenever the window is to close; without it, it does.
    std::function<bool()> podeFechar;

    QuadroDoPedido* const pedido;
    QuadroDoProgresso* const progresso;
    QPushButton* const cmdAjuda;
    QPushButton* const cmdLayout;
    QPushButton* const cmdSobre;
    QPushButton* const cmdOK;
    QPushButton* const cmdCancela;

    /// Escape cancels an analysis, as the button does. Elsewhere it does nothing: a slip of a finger ends no program.
    void reject() override;

  signals:
    void arquivoSolto(const std::filesystem::path& arquivo);

  protected:
    void closeEvent(QCloseEvent* evento) override;
    void dragEnterEvent(QDragEnterEvent* evento) override;
    void dropEvent(QDropEvent* evento) override;
    /// A key held down presses a button once.
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

  private:
    [[nodiscard]] QLayout* cabecalho();
    [[nodiscard]] QLayout* botoes();
    void ordenarFoco();
};

} // namespace quilatador
