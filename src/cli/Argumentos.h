#pragma once

#include "frontend/Pedido.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quilatador {

/// What the command line asks for. What follows `motivo` is meaningful only if `acao` is about files.
struct Argumentos {
    enum class Acao {
        Analisar,
        MostrarLinha, ///< `linha` of the only file
        SugerirData,  ///< of the only file
        Conferir,     ///< the only file with the report `conferir`
        MostrarAjuda,
        MostrarVersao,
        Recusar
    };

    Acao acao = Acao::Analisar;
    Texto motivo; ///< the reason, if `acao` is `Recusar`

    /// As `caminhoCompleto` makes them: empty or relative where it could not.
    std::vector<std::filesystem::path> arquivos;
    std::optional<TipoArquivo> tipo; ///< if empty, each file's first line tells the type
    bool comData = false;
    double posicao = 0; ///< 1-based, of the due date in the barcode; whether it is possible is not checked yet
    Texto formato;
    bool escolheuData = false; ///< whether the user gave `comData`, and `posicao` or `formato`
    std::int64_t linha = 0;    ///< 1-based; no file has a line 0, nor as many as the largest number that can be given
    std::optional<double> primeiras;                  ///< number of slips to analyse; empty for all
    std::optional<std::filesystem::path> pasta;       ///< program folder; if empty, the one that the machine knows
    std::optional<std::filesystem::path> log;         ///< replaces the log beside the file
    std::optional<std::filesystem::path> pastaDeLogs; ///< folder of all logs; never together with `log`
    bool abrir = false;
    bool completa = false;                    ///< whether each file is also checked completely; `csv`, `laudo` imply it
    bool todos = false;                       ///< whether all findings of that check are shown; only with `completa`
    bool laudo = false;                       ///< whether each file gets a report
    std::optional<std::filesystem::path> csv; ///< table of the findings of all files
    std::optional<std::filesystem::path> caminhoDoLaudo; ///< of the only file; if empty, beside each log
    std::filesystem::path conferir;                      ///< the report, if `acao` is `Conferir`
    bool json = false;
    bool silencioso = false;
};

/// Reads the arguments, without the program's name. Never fails: wrong arguments give `Acao::Recusar` and a `motivo`.
[[nodiscard]] Argumentos lerArgumentos(std::vector<std::string> argumentos);

/// The help text and the version line. Both end in a line end.
[[nodiscard]] VistaTexto textoDeAjuda();
[[nodiscard]] Texto textoDaVersao();

} // namespace quilatador
