#pragma once

#include "frontend/Pedido.h"
#include "run/Relator.h"
#include "run/ResumoCompleto.h"

#include <filesystem>
#include <optional>
#include <ostream>
#include <string>

namespace quilatador {

/// The JSON object of a finding of a complete check.
[[nodiscard]] std::string jsonDo(const Achado& achado);

/// Writes one JSON object for each file, on a line of its own (NDJSON), in UTF-8; docs/json.md describes it. Findings
/// are written as they come, so that a file full of them costs no memory.
///
/// Order of use for each file: `iniciar`, then the run with this as a listener, then `terminarRodada`; for a complete
/// check, `iniciarCompleta`, then the check with this as a listener, then `terminarCompleta`, or only `semCompleta`
/// where there was none; last, `terminar`.
class RelatorJson : public Relator {
  public:
    /// The version of the format, which each object states.
    static constexpr int versao = 1;

    explicit RelatorJson(std::ostream& saida) : saida_(saida) {}

    /// Starts the object of a file. `primeiras` is the number of slips that are asked for, if not all are.
    void iniciar(const Pedido& pedido, std::optional<double> primeiras, const std::filesystem::path& log);
    void terminarRodada(const Resumo& resumo);
    void iniciarCompleta();
    void terminarCompleta(const ResumoCompleto& completa);
    /// Says that the complete check that was asked for could not even begin.
    void semCompleta();
    /// Ends the object. `situacao` is the exit status that this file alone would give.
    void terminar(int situacao);

    void achado(const Achado& achado) override;

  private:
    std::ostream& saida_;
    bool primeiro_ = true; ///< whether no finding of the present list has been written
    bool completa_ = false;
};

} // namespace quilatador
