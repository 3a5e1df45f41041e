#include "frontend/window/qt/Programa.h"

#include <QScopedValueRollback>

#include <cstdio>
#include <exception>
#include <new>

namespace quilatador {

namespace {

/// What the user reads about the exception that is being handled.
Texto motivo() {
    try {
        throw;
    } catch (const std::bad_alloc&) {
        return Texto(memoriaInsuficiente);
    } catch (const std::exception& erro) {
        return junta("Ocorreu um erro inesperado: "_t, textoDeUtf8(erro.what()));
    } catch (...) {
        return Texto("Ocorreu um erro inesperado."_t);
    }
}

} // namespace

void Programa::contarExcecao() noexcept {
    if (avisando_ || !avisar) return;
    const QScopedValueRollback mensagem(avisando_, true);
    try {
        avisar({.texto = motivo(), .titulo = Texto(tituloDeErro), .icone = Mensagem::Icone::Exclamacao});
    } catch (...) { // not even memory for the message: the terminal, if there is one, is all that is left
        std::fputs("Quilatador: mensagem de erro não mostrada\n", stderr);
    }
}

bool Programa::notify(QObject* destino, QEvent* evento) {
    try {
        return QApplication::notify(destino, evento);
    } catch (...) {
        contarExcecao();
        return false;
    }
}

} // namespace quilatador
