#pragma once

#include "common/Ambiente.h"
#include "common/Relator.h"
#include "frontend/Pedido.h"
#include "frontend/Tela.h"
#include "globals/modVariaveis.h"
#include "validator/Depurador.h"

#include <memory>
#include <optional>
#include <vector>

namespace quilatador {

/// The rules of the main window, without the window: a program drives them from its controls, the command line from
/// its arguments.
class frmImportacao {
  public:
    frmImportacao(Ambiente& ambiente, modVariaveis& globais, Tela& tela);

    /// Further listeners of the analyses to come. Not owned.
    void adicionarRelator(Relator& relator);

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
    Resumo depurar(const Pedido& pedido);
    void avisarFim();

    Ambiente& ambiente_;
    modVariaveis& globais_;
    Tela& tela_;
    std::unique_ptr<Depurador> depurador_;
    std::vector<Relator*> ouvintes_;
    bool depurando_ = false;
};

} // namespace quilatador
