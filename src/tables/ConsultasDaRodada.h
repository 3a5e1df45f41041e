#pragma once

#include "common/Texto.h"

#include <array>
#include <functional>
#include <map>
#include <optional>

namespace quilatador {

class BancoDeDados;

/// The look-ups of one run: each distinct code reaches the code tables once.
class ConsultasDaRodada {
  public:
    /// `banco` is null where it could not be opened: each look-up is then `Falha` 3420.
    explicit ConsultasDaRodada(BancoDeDados* banco) : banco_(banco) {}

    /// The description of a code of one character, "" for an empty code. Valid as long as this object. Fails as
    /// `BancoDeDados` does.
    [[nodiscard]] VistaTexto formaArrecadacao(VistaTexto codigo);
    [[nodiscard]] VistaTexto formaPagamento(VistaTexto codigo);
    /// The text of an occurrence, none where it has none.
    [[nodiscard]] const std::optional<Texto>& ocorrencia(VistaTexto codigo);

  private:
    using PorCaractere = std::array<std::optional<Texto>, 256>;

    [[nodiscard]] VistaTexto descricao(PorCaractere& conhecidas, VistaTexto codigo,
                                       Texto (BancoDeDados::*consulta)(Texto&));
    [[nodiscard]] BancoDeDados& banco() const;

    BancoDeDados* banco_;
    PorCaractere arrecadacao_;
    PorCaractere pagamento_;
    std::map<Texto, std::optional<Texto>, std::less<>> ocorrencias_;
};

} // namespace quilatador
