#pragma once

#include "common/Texto.h"
#include "run/Achado.h"
#include "run/Progresso.h"

#include <cstdint>

namespace quilatador {

/// How a run ended.
enum class Desfecho {
    Concluida,
    Cancelada,
    Falhou,  ///< the data made it stop: a structural finding or a value that cannot be read
    NaoRodou ///< files or program parts that it needs are missing, or its log could not be written
};

/// What a run found, in numbers.
struct Resumo {
    Desfecho desfecho = Desfecho::Concluida;
    std::int32_t totalErros = 0; ///< errors written; for a print return, records with an occurrence
    std::int32_t totalRegistros = 0;
    std::int32_t guiasDepuradas = 0;
    std::int32_t guiasAceitas = 0;
    std::int32_t guiasRejeitadas = 0;
    Texto descricao; ///< why it failed or did not run; "" otherwise
};

/// Listens to a run. Lines and findings come in the order of the log; a listener overrides what it wants to hear.
class Relator {
  public:
    virtual ~Relator() = default;
    /// A plain line: title, phase, echo, summary.
    virtual void linha(VistaTexto /*texto*/) {}
    virtual void achado(const Achado& achado) = 0;
    /// Called once, at the end of the run.
    virtual void resumo(const Resumo& /*resumo*/) {}
};

} // namespace quilatador
