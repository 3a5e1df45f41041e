#pragma once

#include "run/ParadaEstrutural.h"

#include <cstdint>
#include <optional>
#include <utility>

namespace quilatador {

/// Raised for something in the data that cannot be read: a value that its field does not allow, or a line of no known
/// type. It ends the run as a structural finding, unless somebody who can go on without the value catches it; `achado`
/// then has all that a report needs.
class FalhaDeLeitura : public ParadaEstrutural {
  public:
    /// `id` is that of the finding, `causa` gives number, source and text, and `campo` is the field that cannot be
    /// read.
    FalhaDeLeitura(VistaTexto id, const Falha& causa, std::optional<CampoDoAchado> campo)
        : ParadaEstrutural(causa, Achado{.id = id,
                                         .gravidade = Gravidade::Estrutural,
                                         .campo = std::move(campo),
                                         .mensagem = causa.descricao()}) {}

    /// The same failure in a line (1-based; 0 if unknown) of a segment (NUL if the line has none). Whoever reads a
    /// field does not know them; whoever reads the record adds them.
    [[nodiscard]] FalhaDeLeitura em(std::int64_t linha, char segmento) const {
        FalhaDeLeitura nova(*this);
        nova.achado_.linha = linha;
        nova.achado_.segmento = segmento;
        return nova;
    }
};

} // namespace quilatador
