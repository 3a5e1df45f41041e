#pragma once

#include "cli/Argumentos.h"
#include "common/Arquivos.h"
#include "run/Lancador.h"
#include "run/Localidade.h"
#include "run/Relogio.h"
#include "run/Situacao.h"

#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace quilatador {

/// What the command line needs from the machine. The references must outlive the call of `executar`.
struct Maquina {
    Relogio& relogio;
    Localidade& localidade;
    Lancador& lancador;
    Arquivos& arquivos;
    std::ostream& saida;          ///< standard output
    std::ostream& erros;          ///< standard error
    bool saidaColorida = false;   ///< whether `saida` is a terminal whose user wants colours
    bool errosNoTerminal = false; ///< whether `erros` is a terminal on which a line can be drawn again
    int larguraDoTerminal = 80;   ///< in characters
    std::filesystem::path pastaDoPrograma;
    std::function<bool()> interrompido; ///< whether the user wants to stop; called at every line
};

/// Runs the whole command line and returns its exit status, one of `situacao`. Each file is analysed, whatever happened
/// to the one before, and the greatest status counts. A question about one file is answered without an analysis. Why a
/// file could not be analysed is always said on standard error, once. Output that cannot be written, or a lack of
/// memory, gives at least 2.
[[nodiscard]] int executar(std::vector<std::string> argumentos, const Maquina& maquina);

} // namespace quilatador
