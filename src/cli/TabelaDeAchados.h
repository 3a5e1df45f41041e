#pragma once

#include "cli/RelatorCsv.h"
#include "cli/Sessao.h"
#include "frontend/PlanoDeLogs.h"

#include <memory>
#include <optional>

namespace quilatador {

/// The table of all findings of a call (`--csv`), if the user wants one. It takes its place only when it is complete,
/// so that whatever happens before leaves an older one as it was.
///
/// Order of use: `abrir`; for each file `arquivo` and its check with that listener; `concluir`.
class TabelaDeAchados {
  public:
    /// Keeps a reference, which must outlive this object.
    explicit TabelaDeAchados(Sessao& sessao) : sessao_(sessao) {}

    /// Starts the table. Returns false, after a message, if it cannot be written where the user wants it.
    [[nodiscard]] bool abrir(const PlanoDeLogs& plano);
    /// The listener for the check of a file; null without a table.
    [[nodiscard]] Relator* arquivo(const std::filesystem::path& caminho);
    /// Puts the table in its place, unless the call was interrupted. Returns false, after a message, if that fails.
    [[nodiscard]] bool concluir(bool interrompida);

  private:
    [[nodiscard]] bool recusar(VistaTexto motivo);

    Sessao& sessao_;
    std::unique_ptr<ArquivoProvisorio> saida_;
    std::optional<RelatorCsv> relator_;
};

} // namespace quilatador
