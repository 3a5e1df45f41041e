#include "frontend/window/Tela.h"

#include <array>

namespace quilatador {

VistaTexto nomeDoControle(Controle controle) {
    static constexpr std::array<VistaTexto, totalDeControles> nomes{"cmdOK"_t,
                                                                    "cmdCancela"_t,
                                                                    "cmdAjuda"_t,
                                                                    "cmdLayout"_t,
                                                                    "cmdSobre"_t,
                                                                    "fraNomeArquivo"_t,
                                                                    "fraImportacao"_t,
                                                                    "Frame1"_t,
                                                                    "fraDetalhes"_t,
                                                                    "opt702"_t,
                                                                    "opt708"_t,
                                                                    "optTAV"_t,
                                                                    "txtNomeArquivo"_t,
                                                                    "lblAviso"_t,
                                                                    "chkData"_t,
                                                                    "txtPosicao"_t,
                                                                    "cmbFormato"_t,
                                                                    "optTodosDetalhes"_t,
                                                                    "optPrimeirasGuias"_t,
                                                                    "txtNumeroDetalhes"_t,
                                                                    "Label1"_t,
                                                                    "Label2"_t,
                                                                    "Label3"_t,
                                                                    "Label4"_t,
                                                                    "Label5"_t,
                                                                    "Label6"_t,
                                                                    "lblTotalGuias"_t,
                                                                    "lblTotalRegistros"_t,
                                                                    "lblTempoDecorrido"_t,
                                                                    "lblTempoRestante"_t,
                                                                    "lblGuiasDepuradas"_t,
                                                                    "lblRegistroAtual"_t};
    static_assert(!nomes.back().empty(), "every control has a name");
    return nomes.at(static_cast<std::size_t>(controle));
}

} // namespace quilatador
