#pragma once

#include "run/Lancador.h"

namespace quilatador {

/// Starts programs of the system: its text editor for a log, its default program for a document. They do not get this
/// program's terminal, and they stay open after it has ended. A program that cannot be started is no failure.
class LancadorDoSistema final : public Lancador {
  public:
    void abrirTexto(const std::filesystem::path& caminho) override;
    void abrirDocumento(const std::filesystem::path& caminho) override;
};

} // namespace quilatador
