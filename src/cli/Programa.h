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

/// What the command line needs of the machine.
struct Maquina {
    Relogio& relogio;
    Localidade& localidade;
    Lancador& lancador;
    Arquivos& arquivos;
    std::ostream& saida;          ///< standard output
    std::ostream& erros;          ///< standard error
    bool errosNoTerminal = false; ///< whether a person watches it
    int larguraDoTerminal = 80;
    std::filesystem::path pastaDoPrograma;
    std::function<bool()> interrompido; ///< whether the user wants to stop, asked at every line
};

/// The whole command line: analyses each file, whatever happened to the one before, and gives the greatest status.
[[nodiscard]] int executar(std::vector<std::string> argumentos, const Maquina& maquina);

} // namespace quilatador
