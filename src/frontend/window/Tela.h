#pragma once

#include "run/Painel.h"

#include <cstddef>
#include <filesystem>

namespace quilatador {

/// Controls of the main window that the front end's rules change; `nomeDoControle` gives their names.
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

/// As many as `Controle` has.
inline constexpr std::size_t totalDeControles = static_cast<std::size_t>(Controle::lblRegistroAtual) + 1;

/// The control's name, as the enumeration spells it.
[[nodiscard]] VistaTexto nomeDoControle(Controle controle);

/// The main window as its rules see it: a display whose controls can be shown, enabled and named.
class Tela : public Painel {
  public:
    virtual void mostrar(Controle controle, bool visivel) = 0;
    virtual void habilitar(Controle controle, bool habilitado) = 0;
    /// Sets a caption; "&" marks the access key.
    virtual void legenda(Controle controle, VistaTexto texto) = 0;
    virtual void focar(Controle controle) = 0;
    /// Ticks a check box or chooses an option, which takes the choice from the others of its group.
    virtual void marcar(Controle controle, bool marcado) = 0;
    /// Sets the content of a text or combo box.
    virtual void escrever(Controle controle, VistaTexto texto) = 0;
    /// Sets the content of `txtNomeArquivo`. A path of its own, since it may have letters that a text cannot hold.
    virtual void nomeArquivo(const std::filesystem::path& caminho) = 0;
    /// Closes the window, which ends the program.
    virtual void fechar() = 0;
};

} // namespace quilatador
