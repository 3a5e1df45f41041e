#pragma once

#include "common/Painel.h"

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
    txtPosicao,
    cmbFormato,
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

/// The main window as its rules see it: a display whose controls can be shown, enabled and named.
class Tela : public Painel {
  public:
    virtual void mostrar(Controle controle, bool visivel) = 0;
    virtual void habilitar(Controle controle, bool habilitado) = 0;
    /// Sets a caption; "&" marks the access key.
    virtual void legenda(Controle controle, VistaTexto texto) = 0;
    virtual void focar(Controle controle) = 0;
    /// Closes the window, which ends the program.
    virtual void fechar() = 0;
};

} // namespace quilatador
