#pragma once

#include "common/Texto.h"
#include "run/Achado.h"
#include "run/Progresso.h"

#include <cstdint>

namespace quilatador {

/// The ways in which a run can end.
enum class Desfecho {
    Concluida,
    Cancelada,
    Falhou,  ///< the data stopped it: a structural finding, or a value that cannot be read
    NaoRodou ///< it lacked files or parts of the program, or its log could not be written
};

/// The result of a run in numbers.
struct Resumo {
    Desfecho desfecho = Desfecho::Concluida;
    std::int64_t totalErros = 0; ///< errors written; in a print return (ZUL708), records with an occurrence
    std::int64_t totalRegistros = 0;
    std::int64_t guiasDepuradas = 0;
    std::int64_t guiasAceitas = 0;
    std::int64_t guiasRejeitadas = 0;
    Texto descricao; ///< why the run failed, did not start or lost its log, never empty then; "" otherwise
    std::int64_t linhaDaParada = 0; ///< line (1-based) of the structural finding that ended the run; 0 if there is none
};

/// What a complete check says of a slip that is not right.
struct GuiaConferida {
    enum class Estado { ComErro, EmParte, NaoConferida }; ///< as they are counted, see `ContagemDeGuias`

    std::int64_t guia = 0;  ///< its ordinal in the file, 1-based
    std::int64_t linha = 0; ///< its first line, 1-based; 0 if it is not known
    Texto idGuia{};         ///< as it stands in the file
    Estado estado = Estado::ComErro;
};

/// Receives what a run writes. Lines and findings arrive in the order of the log; a listener overrides what it wants.
class Relator {
  public:
    virtual ~Relator() = default;
    /// A plain line: title, phase, echo or summary.
    virtual void linha(VistaTexto /*texto*/) {}
    /// A finding, as soon as it is made.
    virtual void achado(const Achado& achado) = 0;
    /// A slip that is not right, when a complete check has done with it; in the order of their ordinals.
    virtual void guia(const GuiaConferida& /*guia*/) {}
    /// The result of the run. It comes last, and exactly once.
    virtual void resumo(const Resumo& /*resumo*/) {}
};

} // namespace quilatador
