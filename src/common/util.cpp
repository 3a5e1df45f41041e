#include "common/util.h"

#include "common/Falha.h"

namespace quilatador::util {

namespace {

void tentar(ControlePorNome& controle, VistaTexto propriedade, int valor) {
    try {
        controle.definir(propriedade, valor);
    } catch (const Falha&) {
        return; // a control without the property stays as it is
    }
}

} // namespace

void SelecionarCampo(ControlePorNome& controle) {
    tentar(controle, "SelStart"_t, 0);
    tentar(controle, "sellenght"_t, controle.comprimento());
}

} // namespace quilatador::util
