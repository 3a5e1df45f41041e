#pragma once

#include "frontend/Pedido.h"
#include "frontend/window/Tela.h"
#include "run/Ambiente.h"
#include "run/modVariaveis.h"
#include "run/Relator.h"
#include "tables/BancoDeDados.h"
#include "validator/Depurador.h"

#include <atomic>
#include <memory>
#include <optional>
#include <vector>

namespace quilatador {

/// The rules of the main window, without the window: a program drives them from its controls, the command line from
/// its arguments.
class frmImportacao {
  public:
    frmImportacao(Ambiente& ambiente, modVariaveis& globais, Tela& tela);
    frmImportacao(const frmImportacao&) = delete;
    frmImportacao& operator=(const frmImportacao&) = delete;
    ~frmImportacao();

    /// Further listeners of the analyses to come. Not owned.
    void adicionarRelator(Relator& relator);

    /// Opens the code tables, which stay open while this lives. False, after an error box, where they cannot be
    /// opened: the program is to end, whatever it was to do.
    [[nodiscard]] bool iniciar();
    /// The OK button: checks the request, analyses the file and puts the window back. None where the request was
    /// refused, which a message has said.
    std::optional<Resumo> analisar(const Pedido& pedido);
    /// The Cancel button: during an analysis it asks it to stop; else it closes the window.
    void cancelar();
    /// Asks whatever analysis is going on to stop, as an interrupt from outside does.
    void interromper();

    // What the window's controls do, in frmImportacaoControles.cpp. Whoever has no window needs none of them.

    /// The window loads: its controls get their first values, then as `iniciar`.
    [[nodiscard]] bool Form_Load();
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
    /// `cmdOK`: as `analisar`, but a position that `sairDaPosicao` refuses is refused first, since the key Enter
    /// presses this button without the focus leaving the box. Closes the window where that was asked for meanwhile.
    void confirmar(const Pedido& pedido);
    /// Whether the window may close now. During an analysis it may not: that is asked to stop, and closes it then.
    [[nodiscard]] bool podeFechar();
    /// Passes on what was asked for while events were handled; called behind each time of it. A run clears the flag
    /// that stops it when it starts, so a request that comes just before is made again here.
    void atender();

  private:
    [[nodiscard]] Depurador& depurador();
    [[nodiscard]] bool recusar(const std::optional<Texto>& motivo);
    Resumo analisarRemessa(const Pedido& pedido);
    Resumo analisarRetorno(const Pedido& pedido);
    void alternarFaces(bool progresso);
    void avisarFim();
    [[nodiscard]] bool posicaoRecusada(const Pedido& pedido);

    Ambiente& ambiente_;
    modVariaveis& globais_;
    Tela& tela_;
    std::unique_ptr<BancoDeDados> banco_;
    std::unique_ptr<Depurador> depurador_;
    std::vector<Relator*> ouvintes_;
    std::filesystem::path ultimoArquivo_;
    bool analisando_ = false; ///< between the press of OK and the window's being put back
    bool cancelado_ = false;  ///< the analysis in hand was asked to stop
    bool fecharNoFim_ = false;
    std::atomic<bool> retornoInterrompido_ = false;
};

} // namespace quilatador
