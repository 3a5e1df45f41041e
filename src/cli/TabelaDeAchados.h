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
    /// That file has been checked to its end, or as far as its data let it.
    void arquivoConferido() noexcept { algumConferido_ = true; }
    /// Puts the table in its place, unless the call was interrupted or no file could be checked: an empty table would
    /// seem to say that nothing is wrong. Returns false, after a message, if it is not there.
    [[nodiscard]] bool concluir(bool interrompida);

  private:
    [[nodiscard]] bool recusar(VistaTexto motivo);

    Sessao& sessao_;
    std::unique_ptr<ArquivoProvisorio> saida_;
    std::optional<RelatorCsv> relator_;
    bool algumConferido_ = false;
};

} // namespace quilatador
