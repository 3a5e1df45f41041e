#pragma once

#include "frontend/window/qt/Dialogos.h"

namespace quilatador {

/// The system's own dialogs.
class DialogosQt final : public Dialogos {
  public:
    void mensagem(QWidget& janela, const Mensagem& mensagem) override;
    /// Starts at the file chosen before, else in the folder "C:\", or the user's home where there are no drives.
    [[nodiscard]] std::optional<std::filesystem::path> escolherArquivo(QWidget& janela,
                                                                       const std::filesystem::path& ultimo) override;
};

} // namespace quilatador
