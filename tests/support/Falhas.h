#pragma once

#include "common/Falha.h"

namespace quilatador::testes {

/// Number of the `Falha` that an operation raises, 0 for none.
template <typename Operacao>
int numeroDaFalha(Operacao operacao) {
    try {
        static_cast<void>(operacao());
        return 0;
    } catch (const Falha& falha) {
        return falha.numero();
    }
}

/// The `Falha` that an operation raises as "number source: description", "" for none.
template <typename Operacao>
Texto textoDaFalha(Operacao operacao) {
    try {
        static_cast<void>(operacao());
        return {};
    } catch (const Falha& falha) {
        return junta(textoDe(falha.numero()), " "_t, falha.fonte(), ": "_t, falha.descricao());
    }
}

} // namespace quilatador::testes
