#pragma once

#include "cli/PainelDoTerminal.h"
#include "cli/Programa.h"
#include "run/Ambiente.h"
#include "run/TipoArquivo.h"

#include <atomic>
#include <filesystem>
#include <optional>

namespace quilatador {

/// What carrying out a command line takes, whatever it asks for: the display on the terminal, the surroundings of the
/// core, and the user's request to stop.
class Sessao {
  public:
    /// Keeps references: both must outlive this object.
    Sessao(const Argumentos& argumentos, const Maquina& maquina);
    Sessao(const Sessao&) = delete;
    Sessao& operator=(const Sessao&) = delete;

    [[nodiscard]] const Argumentos& argumentos() const noexcept { return argumentos_; }
    [[nodiscard]] const Maquina& maquina() const noexcept { return maquina_; }
    [[nodiscard]] Ambiente& ambiente() noexcept { return ambiente_; }
    /// Whether the user has asked to stop, as far as the display has noticed it.
    [[nodiscard]] std::atomic<bool>& cancelado() noexcept { return cancelado_; }

    /// The type of a file, as given or as its first line tells. One of unknown type is taken for a remittance, whose
    /// first finding says that it is none.
    [[nodiscard]] TipoArquivo tipoDe(const std::filesystem::path& arquivo) const;
    /// Writes a message to standard error, as all messages of the display.
    void dizer(VistaTexto mensagem);
    /// Takes the progress off the terminal, so that standard output can be written to in the middle of it.
    void limparTela() { painel_.apagar(); }

  private:
    const Argumentos& argumentos_;
    const Maquina& maquina_;
    std::atomic<bool> cancelado_ = false;
    PainelDoTerminal painel_;
    Ambiente ambiente_;
};

/// The reason why a file cannot even be looked for: its name is empty, or it is relative to a folder that exists no
/// more. Nothing if it can.
[[nodiscard]] std::optional<Texto> recusaDoNome(const std::filesystem::path& arquivo);
/// The name of a file in front of what is said about it.
[[nodiscard]] Texto nomeParaMensagem(const std::filesystem::path& arquivo);

} // namespace quilatador
