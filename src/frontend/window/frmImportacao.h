#pragma once

#include "frontend/Pedido.h"
#include "frontend/Trabalho.h"
#include "frontend/window/Tela.h"
#include "run/Ambiente.h"
#include "run/modVariaveis.h"

#include <atomic>
#include <optional>

namespace quilatador {

/// The rules of the main window, without the window itself: what its controls do, and what it shows during an analysis.
///
/// Order of use: the window calls `Form_Load` first, and then reports what the user does. The rules change the window
/// through `Tela`.
class frmImportacao {
  public:
    /// The arguments must outlive this object.
    frmImportacao(Ambiente& ambiente, modVariaveis& globais, Tela& tela);
    frmImportacao(const frmImportacao&) = delete;
    frmImportacao& operator=(const frmImportacao&) = delete;

    /// The window is loaded: gives the controls their first values and opens the code tables. Returns false, after an
    /// error box, if the program must end.
    [[nodiscard]] bool Form_Load();
    /// `cmdOK`: checks that the date of the request fits into the barcode, analyses the file and restores the window,
    /// even when an exception passes through. Closes the window afterwards if the user asked for that during the
    /// analysis.
    void confirmar(const Pedido& pedido);
    /// `cmdCancela`: asks a running analysis to stop; without one, closes the window.
    void cancelar();
    /// Whether the window may close now. During an analysis it may not: the analysis is asked to stop, and the window
    /// closes when it has ended.
    [[nodiscard]] bool podeFechar();

    /// `opt702`, `opt708`, `optTAV`: the options of a remittance are shown for that type only.
    void escolherTipo(TipoArquivo tipo);
    /// `chkData`: enables or disables the position and the format of the date.
    void escolherComData(bool comData);
    /// `optPrimeirasGuias` (true), `optTodosDetalhes` (false): enables or disables the number of slips.
    void escolherPrimeirasGuias(bool apenasPrimeiras);
    /// The digits of a text that was typed or pasted into `txtNumeroDetalhes` or `txtPosicao`; the rest is dropped.
    [[nodiscard]] static Texto filtrarDigitos(VistaTexto texto);
    /// `txtNumeroDetalhes` loses the focus: an empty text becomes the initial number.
    void sairDoNumeroDeGuias(VistaTexto texto);
    /// `txtPosicao` loses the focus: if the position lies outside the free field, a message says so, the focus returns,
    /// and the result is false. A box that is disabled or hidden, as for a return, is not tested.
    bool sairDaPosicao(const Pedido& pedido);
    /// The text of `txtNomeArquivo` changes in any way. Without a name `cmdOK` is disabled.
    void mudarNomeArquivo(const std::filesystem::path& arquivo);
    /// The user has finished typing in `txtNomeArquivo`. The type of the file is recognised if the name is a new one:
    /// a type that the user chooses afterwards is kept.
    void sairDoNomeArquivo(const std::filesystem::path& arquivo);
    /// The file dialog of `cmdProcura` returns a name. If a file of that name exists, it is taken and its type is
    /// recognised.
    void tomarArquivo(const std::filesystem::path& arquivo);
    /// The last name that the dialog returned or that was dropped; empty before the first.
    [[nodiscard]] const std::filesystem::path& ultimoArquivo() const noexcept { return ultimoArquivo_; }
    /// A file is dropped on the window, or given to the program when it starts: it is taken as in `tomarArquivo`, and
    /// one that does not exist is reported. Nothing happens during an analysis.
    void receberArquivo(const std::filesystem::path& arquivo);
    /// `cmdAjuda`, `cmdLayout`: open the documents with the system's program for them.
    void abrirAjuda();
    void abrirLeiaute();
    /// No program of the system opens a log or a document: a message says where it is, unless it is missing.
    void semPrograma(const std::filesystem::path& caminho);

  private:
    void analisar(const Pedido& pedido);
    [[nodiscard]] bool recusar(const std::optional<Texto>& motivo);
    void reconhecer(const std::filesystem::path& arquivo);
    void restaurar(bool remessa);
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
    std::filesystem::path reconhecido_; ///< the last name whose type was looked for
    VistaTexto aviso_;                  ///< what is to be said about that name; a constant, or ""
    bool analisando_ = false;           ///< from the press of OK until the window is restored
    bool fecharNoFim_ = false;
};

} // namespace quilatador
