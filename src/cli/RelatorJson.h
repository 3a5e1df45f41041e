#pragma once

#include "run/Relator.h"

#include <filesystem>
#include <ostream>

namespace quilatador {

/// Writes one JSON object for each file, on a line of its own (NDJSON), in UTF-8; docs/json.md describes it. Findings
/// are written as they come, so that a file full of them costs no memory.
///
/// Order of use for each file: `iniciar`, then the run with this as a listener, then `terminar`.
class RelatorJson : public Relator {
  public:
    /// The version of the format, which each object states.
    static constexpr int versao = 1;

    explicit RelatorJson(std::ostream& saida) : saida_(saida) {}

    /// Starts the object of a file.
    void iniciar(const std::filesystem::path& arquivo, VistaTexto tipo, const std::filesystem::path& log);
    /// Ends the object. `situacao` is the exit status that this file alone would give.
    void terminar(const Resumo& resumo, int situacao);

    void achado(const Achado& achado) override;

  private:
    std::ostream& saida_;
    bool primeiro_ = true;
};

} // namespace quilatador
