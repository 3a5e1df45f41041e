#pragma once

#include "run/Painel.h"

#include <filesystem>
#include <optional>

class QWidget;

namespace quilatador {

/// Everything that makes the window wait for the user. It is an interface, so that a test need not wait.
class Dialogos {
  public:
    virtual ~Dialogos() = default;
    /// Shows a message box and waits until it is closed. It is in front of `janela`, or stands alone without one.
    virtual void mensagem(QWidget* janela, const Mensagem& mensagem) = 0;
    /// Shows `recusa`, which says that the log cannot be written to `recusado`, and offers to choose another place.
    /// Returns nothing if the user does not want one.
    [[nodiscard]] virtual std::optional<std::filesystem::path> escolherLog(QWidget& janela, const Mensagem& recusa,
                                                                           const std::filesystem::path& recusado) = 0;
    /// Asks for a file to open. `ultimo` is the file chosen before, or empty. Returns nothing if the user cancels.
    [[nodiscard]] virtual std::optional<std::filesystem::path> escolherArquivo(QWidget& janela,
                                                                               const std::filesystem::path& ultimo) = 0;
};

} // namespace quilatador
