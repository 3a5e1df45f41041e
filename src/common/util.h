#pragma once

#include "common/Texto.h"

namespace quilatador::util {

/// A control of a window whose properties are set by name. `definir` raises `Falha` 438 when the control has no such
/// property.
class ControlePorNome {
  public:
    virtual ~ControlePorNome() = default;
    virtual void definir(VistaTexto propriedade, int valor) = 0;
    /// The number of characters in the control.
    [[nodiscard]] virtual int comprimento() const = 0;
};

/// Moves the caret of a text box that gets the focus to its start; it never fails. It also sets a second property whose
/// name is misspelt, so that nothing gets selected: kept on purpose, the test `SelecionarCampo` holds it.
void SelecionarCampo(ControlePorNome& controle);

} // namespace quilatador::util
