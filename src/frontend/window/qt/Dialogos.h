#pragma once

#include "run/Painel.h"

#include <filesystem>
#include <optional>

class QWidget;

namespace quilatador {

/// What makes the window wait for the user: replaceable, so that a test does not.
class Dialogos {
  public:
    virtual ~Dialogos() = default;
    /// Shows a message box over a window and waits until it is closed.
    virtual void mensagem(QWidget& janela, const Mensagem& mensagem) = 0;
    /// Asks for a file to open; `ultimo` was chosen before, or is empty. None where the user gives up.
    [[nodiscard]] virtual std::optional<std::filesystem::path> escolherArquivo(QWidget& janela,
                                                                               const std::filesystem::path& ultimo) = 0;
};

} // namespace quilatador
