#pragma once

#include "frontend/window/frmImportacao.h"
#include "frontend/window/frmSobre.h"
#include "frontend/window/qt/Dialogos.h"
#include "frontend/window/qt/JanelaPrincipal.h"
#include "frontend/window/qt/TelaQt.h"

#include <QTimer>

#include <functional>

namespace quilatador {

/// The program behind the window: it connects the rules with the controls.
///
/// Order of use: `iniciar`; if it returns true, `receber` and `encerrarQuando` as needed, then Qt's event loop.
class Aplicacao final {
  public:
    /// What the window needs from the machine. The references must outlive the `Aplicacao`.
    struct Meios {
        Relogio& relogio;
        Localidade& localidade;
        Lancador& lancador;
        Arquivos& arquivos;
        Dialogos& dialogos;
        std::filesystem::path pastaDoPrograma; ///< where the layout description, the database and the help are
        std::filesystem::path programa;        ///< the running program's own file
    };

    explicit Aplicacao(const Meios& meios);
    Aplicacao(const Aplicacao&) = delete;
    Aplicacao& operator=(const Aplicacao&) = delete;
    ~Aplicacao();

    /// Loads the window and shows it. Returns false, after a message box, if the program must end instead.
    [[nodiscard]] bool iniciar();
    /// Takes a file as if it had been dropped on the window.
    void receber(const std::filesystem::path& arquivo);

    /// Tells the user where a file is that should have been opened, because no program of the system did.
    void semPrograma(const std::filesystem::path& caminho);

    /// From now on, asks `pedido` ten times a second whether the program has been told from outside to end. If so, it
    /// closes its windows as the user would: a running analysis is cancelled, and its log gets its ending.
    void encerrarQuando(std::function<bool()> pedido);

    [[nodiscard]] JanelaPrincipal& janela() noexcept { return janela_; }

  private:
    void ligarPedido();
    void ligarCaixas();
    void ligarBotoes();
    [[nodiscard]] bool posicaoConferida();
    void mostrarSobre();

    JanelaPrincipal janela_;
    TelaQt tela_;
    Ambiente ambiente_;
    modVariaveis globais_;
    frmImportacao formulario_;
    frmSobre sobre_;
    Dialogos& dialogos_;
    QTimer vigia_;
    bool posicaoPorConferir_ = false; ///< `txtPosicao` has lost the focus, and the test of its value is still to come
};

} // namespace quilatador
