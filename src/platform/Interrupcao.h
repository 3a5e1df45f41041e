#pragma once

namespace quilatador {

/// While it lives, Ctrl-C and a request to terminate (SIGINT, SIGTERM) only set a flag, so that the current run can end
/// in order. The second signal ends the process at once, with status 130. A signal that is ignored stays ignored: so a
/// shell protects what runs in the background. A program has at most one object of this class at a time.
class Interrupcao {
  public:
    Interrupcao();
    Interrupcao(const Interrupcao&) = delete;
    Interrupcao& operator=(const Interrupcao&) = delete;
    /// Restores the earlier handling of the signals and clears the flag.
    ~Interrupcao();

    /// Whether a signal has arrived. Fast enough to be called at every line.
    [[nodiscard]] bool pedida() const noexcept;

  private:
    using Tratador = void (*)(int);

    Tratador interrupcaoAnterior_;
    Tratador terminoAnterior_;
};

} // namespace quilatador
