#pragma once

#include "common/Arquivos.h"
#include "run/Lancador.h"
#include "run/Localidade.h"
#include "run/Painel.h"
#include "run/Relogio.h"

#include <array>
#include <filesystem>

namespace quilatador {

/// The outside world of a run. Its owner, the main function of a program or a test, creates the parts and keeps them
/// alive for as long as the run needs them.
struct Ambiente {
    Painel& painel;
    Relogio& relogio;
    Localidade& localidade;
    Lancador& lancador;
    Arquivos& arquivos;
    std::filesystem::path pastaDoPrograma; ///< folder of the layout description, the database and the help

    /// The files of the program that a run reads: the layout description of a ZUL702, and the code tables.
    [[nodiscard]] std::filesystem::path leiaute() const { return pastaDoPrograma / "Arquivo_ZUL702.xml"; }
    [[nodiscard]] std::filesystem::path bancoDeDados() const { return pastaDoPrograma / "TabelaErrosZUL.mdb"; }
    /// The documents that the window opens: the help, and the description of the layouts.
    [[nodiscard]] std::filesystem::path ajuda() const { return documentos() / "Ajuda" / "Quilatador.htm"; }
    [[nodiscard]] std::filesystem::path documentoDosLeiautes() const {
        return documentos() / "Layouts" / "layouts.html";
    }
    /// All of these files. Nothing that a run writes may fall on one of them.
    [[nodiscard]] std::array<std::filesystem::path, 4> arquivosDoPrograma() const {
        return {leiaute(), bancoDeDados(), ajuda(), documentoDosLeiautes()};
    }

  private:
    [[nodiscard]] std::filesystem::path documentos() const { return pastaDoPrograma / "Documentos" / "TAV"; }
};

} // namespace quilatador
