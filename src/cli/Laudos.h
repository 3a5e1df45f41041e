#pragma once

#include "cli/Sessao.h"
#include "frontend/Laudo.h"
#include "frontend/PlanoDeLogs.h"

#include <optional>

namespace quilatador {

/// The reports of a call (`--laudo`), one for each file, if the user wants them. Each takes its place only when it is
/// complete, so that whatever happens before leaves an older one as it was.
///
/// Order of use: `planejar`; for each file that can be checked `iniciar`, its check with that listener, and `gravar`.
class Laudos {
  public:
    /// Keeps a reference, which must outlive this object.
    explicit Laudos(Sessao& sessao) : sessao_(sessao) {}

    /// Whether every report may be written where it is to lie; otherwise false, after a message.
    [[nodiscard]] bool planejar(const PlanoDeLogs& plano);
    /// The listener for the check of the next file; null without reports.
    [[nodiscard]] Relator* iniciar();
    /// Writes the report of the file of that check, and returns its path; nothing without reports, and, after a
    /// message, where it could not be written.
    [[nodiscard]] std::optional<std::filesystem::path> gravar(const DadosDoLaudo& dados);
    /// How many reports could not be written so far.
    [[nodiscard]] int faltas() const noexcept { return faltas_; }

  private:
    [[nodiscard]] std::filesystem::path caminho(const std::filesystem::path& log) const;
    void naoGravar(const std::filesystem::path& log, VistaTexto motivo);
    [[nodiscard]] std::optional<Texto> recusaDo(const std::filesystem::path& laudo, const PlanoDeLogs& plano,
                                                const std::set<Destino>& logs);

    Sessao& sessao_;
    std::optional<AchadosDoLaudo> achados_; ///< of the file in hand
    int faltas_ = 0;
};

} // namespace quilatador
