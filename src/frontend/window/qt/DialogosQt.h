#pragma once

#include "frontend/window/qt/Dialogos.h"

namespace quilatador {

/// The dialogs that the user sees.
class DialogosQt final : public Dialogos {
  public:
    void mensagem(QWidget* janela, const Mensagem& mensagem) override;
    /// Proposes the same name in the user's home, where it can usually be written.
    [[nodiscard]] std::optional<std::filesystem::path> escolherLog(QWidget& janela, const Mensagem& recusa,
                                                                   const std::filesystem::path& recusado) override;
    /// Starts at the file chosen before. Without one, it starts in "C:\" on Windows and in the user's home elsewhere.
    [[nodiscard]] std::optional<std::filesystem::path> escolherArquivo(QWidget& janela,
                                                                       const std::filesystem::path& ultimo) override;
};

} // namespace quilatador
