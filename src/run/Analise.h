#pragma once

#include "common/Texto.h"
#include "run/Relator.h"

#include <optional>

namespace quilatador {

/// The part of a run that depends on the type of the file. `Rodada::executar` calls the operations in the order in
/// which they are declared here. Whatever they throw ends the run in an orderly way.
class Analise {
  public:
    Analise() = default;
    Analise(const Analise&) = delete;
    Analise& operator=(const Analise&) = delete;
    virtual ~Analise() = default;

    /// Called before the log is created. When the analysis is impossible, it tells the user and returns the reason;
    /// otherwise it returns nothing.
    [[nodiscard]] virtual std::optional<Texto> preparar() { return std::nullopt; }
    /// Reads the file and writes lines and findings through the `Rodada`, and tells it of each opening of the file. The
    /// log already has its title.
    [[nodiscard]] virtual Desfecho analisar() = 0;
    /// Closes the file. It is called at least once, whatever happened before.
    virtual void fecharEntrada() noexcept = 0;
};

} // namespace quilatador
