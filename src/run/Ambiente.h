#pragma once

#include "common/Arquivos.h"
#include "run/Lancador.h"
#include "run/Localidade.h"
#include "run/Painel.h"
#include "run/Relogio.h"

#include <filesystem>

namespace quilatador {

/// The world around a run, as its owner (a program's main, or a test) puts it together.
struct Ambiente {
    Painel& painel;
    Relogio& relogio;
    Localidade& localidade;
    Lancador& lancador;
    Arquivos& arquivos;
    std::filesystem::path pastaDoPrograma; ///< where the layout description, the database and the help are

    [[nodiscard]] std::filesystem::path leiaute() const { return pastaDoPrograma / "Arquivo_ZUL702.xml"; }
    [[nodiscard]] std::filesystem::path bancoDeDados() const { return pastaDoPrograma / "TabelaErrosZUL.mdb"; }
};

} // namespace quilatador
