#include "frontend/window/Tela.h"

#include <array>

namespace quilatador {

VistaTexto nomeDoControle(Controle controle) {
    static constexpr std::array<VistaTexto, totalDeControles> nomes{"cmdOK",
                                                                    "cmdCancela",
                                                                    "cmdAjuda",
                                                                    "cmdLayout",
                                                                    "cmdSobre",
                                                                    "fraNomeArquivo",
                                                                    "fraImportacao",
                                                                    "Frame1",
                                                                    "fraDetalhes",
                                                                    "opt702",
                                                                    "opt708",
                                                                    "optTAV",
                                                                    "txtNomeArquivo",
                                                                    "chkData",
                                                                    "txtPosicao",
                                                                    "cmbFormato",
                                                                    "optTodosDetalhes",
                                                                    "optPrimeirasGuias",
                                                                    "txtNumeroDetalhes",
                                                                    "Label1",
                                                                    "Label2",
                                                                    "Label3",
                                                                    "Label4",
                                                                    "Label5",
                                                                    "Label6",
                                                                    "lblTotalGuias",
                                                                    "lblTotalRegistros",
                                                                    "lblTempoDecorrido",
                                                                    "lblTempoRestante",
                                                                    "lblGuiasDepuradas",
                                                                    "lblRegistroAtual"};
    static_assert(!nomes.back().empty(), "every control has a name");
    return nomes.at(static_cast<std::size_t>(controle));
}

} // namespace quilatador
