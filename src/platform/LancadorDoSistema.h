#pragma once

#include "run/Lancador.h"

#include <functional>
#include <memory>

namespace quilatador {

/// Starts programs of the system: its text editor for a log, its default program for a document. They do not get this
/// program's terminal, and they stay open after it has ended.
class LancadorDoSistema final : public Lancador {
  public:
    /// Receives the absolute path of a file that no program opened, on any thread. It is not called when the desktop's
    /// opener itself finds no such file.
    using SemPrograma = std::function<void(const std::filesystem::path&)>;

    explicit LancadorDoSistema(SemPrograma semPrograma = {});
    LancadorDoSistema(const LancadorDoSistema&) = delete;
    LancadorDoSistema& operator=(const LancadorDoSistema&) = delete;
    /// From here on, nobody is told: the programs that are still starting may start or fail.
    ~LancadorDoSistema() override;

    void abrirTexto(const std::filesystem::path& caminho) override;
    void abrirDocumento(const std::filesystem::path& caminho) override;

  private:
    struct Aviso;

    std::shared_ptr<Aviso> aviso_; ///< shared with the threads that wait for a program to start
};

} // namespace quilatador
