#pragma once

#include "frontend/Pedido.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quilatador {

/// What the command line asks for.
struct Argumentos {
    enum class Acao { Analisar, MostrarAjuda, MostrarVersao, Recusar };

    Acao acao = Acao::Analisar;
    Texto motivo; ///< why the arguments are refused

    std::vector<std::filesystem::path> arquivos; ///< absolute and lexically normal
    std::optional<TipoArquivo> tipo;             ///< none: told by each file's first line
    bool comData = false;
    double posicao = 0;
    Texto formato;
    std::optional<double> primeiras;
    std::optional<std::filesystem::path> pasta;
    std::optional<std::filesystem::path> log;
    bool abrir = false;
    bool json = false;
    bool silencioso = false;
};

/// Reads the arguments, the program's name not among them. Never fails: what is wrong is `Acao::Recusar`.
[[nodiscard]] Argumentos lerArgumentos(std::vector<std::string> argumentos);

/// The help text and the version line, ending in a line end.
[[nodiscard]] VistaTexto textoDeAjuda();
[[nodiscard]] Texto textoDaVersao();

} // namespace quilatador
