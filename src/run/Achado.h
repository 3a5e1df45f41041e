#pragma once

#include "common/Texto.h"

#include <cstdint>
#include <optional>

namespace quilatador {

/// How serious a finding is: whether it is counted as an error, and whether the run continues.
enum class Gravidade {
    Erro,       ///< an error line in the log; it is counted, and the run continues
    Ocorrencia, ///< something that the bank reports: a plain line in the log, and the run continues
    Estrutural, ///< a plain line in the log that ends the run
    Aviso       ///< only of a complete check: something that no rule forbids, and that deserves a look all the same
};

/// The name of a gravity for other programs, which stays as it is.
[[nodiscard]] constexpr VistaTexto nomeDa(Gravidade gravidade) noexcept {
    switch (gravidade) {
    case Gravidade::Erro:
        return "erro"_t;
    case Gravidade::Ocorrencia:
        return "ocorrencia"_t;
    case Gravidade::Estrutural:
        return "estrutural"_t;
    case Gravidade::Aviso:
        return "aviso"_t;
    }
    return {};
}

/// The field that a finding is about. Positions in the line are 1-based and inclusive.
struct CampoDoAchado {
    Texto nome;
    int inicio = 0;
    int fim = 0;
    Texto encontrado;              ///< the text in the line, unchanged
    std::optional<Texto> esperado; ///< the right value, when the rule allows only one

    bool operator==(const CampoDoAchado&) const = default;
};

/// A fault in the data. `id` ("c.moeda.invalida") is stable: the text of a finding may change, but an id is never
/// renamed or used again. docs/findings.md lists all ids.
struct Achado {
    VistaTexto id; ///< view of a constant, which outlives the finding
    Gravidade gravidade = Gravidade::Erro;
    std::int64_t linha = 0; ///< line number, 1-based; 0 when the rule has none
    char segmento = 0;      ///< letter of the record; 0 when the finding is about the file
    std::optional<CampoDoAchado> campo;
    Texto mensagem;

    // Only a complete check fills in what follows.
    std::int64_t n = 0;     ///< number of the finding, from 1, in the order in which they are told
    std::int64_t causa = 0; ///< number of an earlier finding from which this one follows; 0 if it is a cause itself
    std::int64_t guia = 0;  ///< ordinal of the slip in the file, 1-based; 0 when the finding is about no slip
    Texto idGuia{};         ///< "IdGuia" of that slip as it stands in the file; "" if it has none
    /// Whether the rule is stricter than the bank: the finding then makes nothing wrong. `motivo` says why.
    bool discutido = false;
    Texto motivo{}; ///< why the rule is disputed; "" otherwise
};

/// Whether a finding of a complete check makes the file wrong.
[[nodiscard]] constexpr bool contaComoErro(Gravidade gravidade, bool discutido) noexcept {
    return !discutido && (gravidade == Gravidade::Erro || gravidade == Gravidade::Estrutural);
}

} // namespace quilatador
