#pragma once

#include "common/Texto.h"

#include <cstdint>
#include <optional>

namespace quilatador {

enum class Gravidade {
    Erro,       ///< an error line of the log; counted, and the run goes on
    Ocorrencia, ///< what the bank reports: a plain line of the log, and the run goes on
    Estrutural  ///< a plain line of the log that ends the run
};

/// The field that a finding is about. Positions are 1-based and inclusive.
struct CampoDoAchado {
    Texto nome;
    int inicio = 0;
    int fim = 0;
    Texto encontrado;              ///< raw text in the line
    std::optional<Texto> esperado; ///< where the rule knows the one right value

    bool operator==(const CampoDoAchado&) const = default;
};

/// One fault in the data. `id` is stable ("c.moeda.invalida"): texts may change, ids are never reused or renamed;
/// docs/findings.md lists them all.
struct Achado {
    VistaTexto id; ///< of a constant: outlives the finding
    Gravidade gravidade = Gravidade::Erro;
    std::int32_t linha = 0; ///< 1-based; 0 where the rule gives none
    char segmento = 0;      ///< letter of the record, 0 where it is about the file
    std::optional<CampoDoAchado> campo;
    Texto mensagem;
};

} // namespace quilatador
