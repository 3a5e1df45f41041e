#pragma once

namespace quilatador {

/// While it lives, Ctrl-C and a request to terminate only raise a flag, so that the run in hand can end in order. The
/// second one leaves at once, with status 130. A program has one of these at a time.
class Interrupcao {
  public:
    Interrupcao();
    Interrupcao(const Interrupcao&) = delete;
    Interrupcao& operator=(const Interrupcao&) = delete;
    /// What the signals did before holds again; the flag is taken down.
    ~Interrupcao();

    /// Whether one came. Cheap enough to be asked at every line.
    [[nodiscard]] bool pedida() const noexcept;

  private:
    using Tratador = void (*)(int);

    Tratador interrupcaoAnterior_;
    Tratador terminoAnterior_;
};

} // namespace quilatador
