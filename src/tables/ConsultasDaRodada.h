#pragma once

#include "common/Texto.h"

#include <array>
#include <functional>
#include <map>
#include <optional>

namespace quilatador {

class BancoDeDados;

/// The look-ups of one run. It remembers the answers, so that each distinct code is looked up in the code tables once.
class ConsultasDaRodada {
  public:
    /// `banco` is null when the database could not be opened. Every look-up then raises `Falha` 3420.
    explicit ConsultasDaRodada(BancoDeDados* banco) : banco_(banco) {}

    /// The description of a code of one character, or "" for an empty code. The view is valid as long as this object.
    /// Raises the failures of `BancoDeDados`.
    [[nodiscard]] VistaTexto formaArrecadacao(VistaTexto codigo);
    [[nodiscard]] VistaTexto formaPagamento(VistaTexto codigo);
    /// The text of an occurrence, or nothing when the table has no such code. Raises the failures of `BancoDeDados`.
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
