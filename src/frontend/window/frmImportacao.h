#pragma once

#include "frontend/Pedido.h"
#include "frontend/Trabalho.h"
#include "frontend/window/Tela.h"
#include "run/Ambiente.h"
#include "run/modVariaveis.h"

#include <atomic>
#include <optional>

namespace quilatador {

/// The rules of the main window, without the window: what its controls do, and what it shows during an analysis. A
/// window calls `Form_Load` first and hands on what the user does; `Tela` is how the rules change it.
class frmImportacao {
  public:
    frmImportacao(Ambiente& ambiente, modVariaveis& globais, Tela& tela);
    frmImportacao(const frmImportacao&) = delete;
    frmImportacao& operator=(const frmImportacao&) = delete;

    /// The window loads: its controls get their first values, and the code tables are opened. False, after an error
    /// box, where the program is to end.
    [[nodiscard]] bool Form_Load();
    /// `cmdOK`: checks the request, analyses the file and puts the window back. A position that `sairDaPosicao`
    /// refuses is refused first, since the key Enter presses this button without the focus leaving the box. Closes the
    /// window where that was asked for meanwhile.
    void confirmar(const Pedido& pedido);
    /// `cmdCancela`: during an analysis it asks it to stop; else it closes the window.
    void cancelar();
    /// Whether the window may close now. During an analysis it may not: that is asked to stop, and closes it then.
    [[nodiscard]] bool podeFechar();

    /// `opt702`, `opt708`, `optTAV`: the options of a remittance show for no other type.
    void escolherTipo(TipoArquivo tipo);
    /// `chkData`
    void escolherComData(bool comData);
    /// `optPrimeirasGuias` (true), `optTodosDetalhes` (false)
    void escolherPrimeirasGuias(bool apenasPrimeiras);
    /// What stays of a text that was typed or pasted into `txtNumeroDetalhes` or `txtPosicao`.
    [[nodiscard]] static Texto filtrarDigitos(VistaTexto texto);
    /// `txtNumeroDetalhes` loses the focus.
    void sairDoNumeroDeGuias(VistaTexto texto);
    /// `txtPosicao` loses the focus: outside the free field a message says so and the focus goes back there.
    void sairDaPosicao(const Pedido& pedido);
    /// The content of `txtNomeArquivo` changes, in whatever way: without a name there is nothing to analyse.
    void mudarNomeArquivo(bool vazio);
    /// The file dialog of `cmdProcura` ends with a name, which is taken where it is that of an existing file.
    void tomarArquivo(const std::filesystem::path& arquivo);
    /// The name that the dialog gave last; empty before the first.
    [[nodiscard]] const std::filesystem::path& ultimoArquivo() const noexcept { return ultimoArquivo_; }
    /// A file is dropped on the window, or given to the program: taken as above, and its type recognised. Nothing
    /// happens during an analysis.
    void receberArquivo(const std::filesystem::path& arquivo);
    /// `cmdAjuda`, `cmdLayout`: open the documents with the system's handler.
    void abrirAjuda();
    void abrirLeiaute();

  private:
    [[nodiscard]] bool analisar(const Pedido& pedido);
    [[nodiscard]] bool recusar(const std::optional<Texto>& motivo);
    [[nodiscard]] bool posicaoRecusada(const Pedido& pedido);
    void mostrarRemessa();
    void encerrarRemessa();
    void mostrarRetorno();
    void encerrarRetorno();
    void alternarFaces(bool progresso);
    void avisarFim();

    Ambiente& ambiente_;
    Tela& tela_;
    std::atomic<bool> cancelado_ = false;
    Trabalho trabalho_;
    std::filesystem::path ultimoArquivo_;
    bool analisando_ = false; ///< between the press of OK and the window's being put back
    bool fecharNoFim_ = false;
};

} // namespace quilatador
