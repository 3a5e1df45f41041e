#pragma once

#include "run/Lancador.h"

namespace quilatador {

/// Starts the system's own programs: its text editor for a log, whatever it has for a document. They get no part of
/// this program's terminal and live on after it.
class LancadorDoSistema final : public Lancador {
  public:
    void abrirTexto(const std::filesystem::path& caminho) override;
    void abrirDocumento(const std::filesystem::path& caminho) override;
};

} // namespace quilatador
