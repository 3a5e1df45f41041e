#pragma once

#include "common/Ambiente.h"
#include "common/Relator.h"
#include "frontend/Pedido.h"
#include "frontend/Tela.h"
#include "globals/modVariaveis.h"
#include "returns/BancoDeDados.h"
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
    /// The Cancel button: during the analysis of a remittance it asks it to stop; else it closes the window.
    void cancelar();
    /// Asks whatever analysis is going on to stop, as an interrupt from outside does.
    void interromper();

  private:
    [[nodiscard]] Depurador& depurador();
    [[nodiscard]] bool recusar(const std::optional<Texto>& motivo);
    Resumo analisarRemessa(const Pedido& pedido);
    Resumo analisarRetorno(const Pedido& pedido);
    void alternarFaces(bool progresso);
    void avisarFim();

    Ambiente& ambiente_;
    modVariaveis& globais_;
    Tela& tela_;
    std::unique_ptr<BancoDeDados> banco_;
    std::unique_ptr<Depurador> depurador_;
    std::vector<Relator*> ouvintes_;
    bool depurando_ = false;
    std::atomic<bool> retornoInterrompido_ = false;
};

} // namespace quilatador
