#pragma once

#include "run/Painel.h"

#include <cstddef>
#include <filesystem>

namespace quilatador {

/// The controls of the main window that its rules change. `nomeDoControle` gives their names.
enum class Controle {
    cmdOK,
    cmdCancela,
    cmdAjuda,
    cmdLayout,
    cmdSobre,
    fraNomeArquivo,
    fraImportacao,
    Frame1,
    fraDetalhes,
    opt702,
    opt708,
    optTAV,
    txtNomeArquivo,
    lblAviso,
    chkData,
    txtPosicao,
    cmbFormato,
    optTodosDetalhes,
    optPrimeirasGuias,
    txtNumeroDetalhes,
    Label1,
    Label2,
    Label3,
    Label4,
    Label5,
    Label6,
    lblTotalGuias,
    lblTotalRegistros,
    lblTempoDecorrido,
    lblTempoRestante,
    lblGuiasDepuradas,
    lblRegistroAtual
};

/// The number of values of `Controle`.
inline constexpr std::size_t totalDeControles = static_cast<std::size_t>(Controle::lblRegistroAtual) + 1;

/// The name of a control, as the enumeration spells it.
[[nodiscard]] VistaTexto nomeDoControle(Controle controle);

/// The main window as its rules see it: a display whose controls can be shown, enabled, filled and given the focus.
class Tela : public Painel {
  public:
    virtual void mostrar(Controle controle, bool visivel) = 0;
    virtual void habilitar(Controle controle, bool habilitado) = 0;
    /// Sets the caption of a button; "&" stands before its access key.
    virtual void legenda(Controle controle, VistaTexto texto) = 0;
    virtual void focar(Controle controle) = 0;
    /// Ticks or clears a check box, or chooses an option, which clears the other options of its group.
    virtual void marcar(Controle controle, bool marcado) = 0;
    /// Sets the text of a text box, combo box or label.
    virtual void escrever(Controle controle, VistaTexto texto) = 0;
    /// Sets the text of `txtNomeArquivo`. It takes a path, because a path may have letters that a `Texto` cannot hold.
    virtual void nomeArquivo(const std::filesystem::path& caminho) = 0;
    /// Closes the window, which ends the program.
    virtual void fechar() = 0;
};

} // namespace quilatador
