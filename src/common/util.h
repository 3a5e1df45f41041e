#pragma once

#include "common/Texto.h"

namespace quilatador::util {

/// A control with properties that are set by name; `Falha` 438 where it lacks the property.
class ControlePorNome {
  public:
    virtual ~ControlePorNome() = default;
    virtual void definir(VistaTexto propriedade, int valor) = 0;
    [[nodiscard]] virtual int comprimento() const = 0;
};

/// Moves the caret of a text box that receives the focus to its start. The second property's name is misspelt, no
/// control has it, and nothing is selected: kept on purpose, the test `SelecionarCampo` holds it. Never fails.
void SelecionarCampo(ControlePorNome& controle);

} // namespace quilatador::util
