#pragma once

#include "common/Arquivos.h"
#include "run/Relator.h"

#include <optional>

namespace quilatador {

/// What one kind of file makes of a run. `Rodada::executar` calls the operations in the order in which they stand
/// here; whatever they raise ends the run in order.
class Analise {
  public:
    Analise() = default;
    Analise(const Analise&) = delete;
    Analise& operator=(const Analise&) = delete;
    virtual ~Analise() = default;

    /// Before the log is created: why nothing can be analysed, after telling the user; none where all is well.
    [[nodiscard]] virtual std::optional<Texto> preparar() { return std::nullopt; }
    /// Reads the file and tells of it; the title is in the log already.
    [[nodiscard]] virtual Desfecho analisar() = 0;
    /// The state of the file that is open now; none where none is open.
    [[nodiscard]] virtual std::optional<VersaoDoArquivo> versaoDaEntrada() const noexcept = 0;
    /// Closes the file; called at least once, whatever happened before.
    virtual void fecharEntrada() noexcept = 0;
};

} // namespace quilatador
