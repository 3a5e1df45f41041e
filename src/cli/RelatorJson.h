#pragma once

#include "run/Relator.h"

#include <filesystem>
#include <ostream>

namespace quilatador {

/// One JSON object for each file, on a line of its own (NDJSON), in UTF-8; docs/json.md describes it. It is written
/// as the findings come, so that a file full of them costs no memory.
class RelatorJson : public Relator {
  public:
    static constexpr int versao = 1;

    explicit RelatorJson(std::ostream& saida) : saida_(saida) {}

    /// Begins the object of a file.
    void iniciar(const std::filesystem::path& arquivo, VistaTexto tipo, const std::filesystem::path& log);
    /// Ends it; `situacao` is the exit status that the file alone would give.
    void terminar(const Resumo& resumo, int situacao);

    void achado(const Achado& achado) override;

  private:
    std::ostream& saida_;
    bool primeiro_ = true;
};

} // namespace quilatador
