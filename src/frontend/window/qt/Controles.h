#pragma once

#include <QWidget>

#include <utility>

namespace quilatador {

/// Makes a control with the name by which rules, tests and helpers for the disabled find it.
template <typename Controle, typename... Argumentos>
[[nodiscard]] Controle* novoControle(const char* nome, Argumentos&&... argumentos) {
    auto* controle = new Controle(std::forward<Argumentos>(argumentos)...);
    controle->setObjectName(QString::fromLatin1(nome));
    return controle;
}

/// What a screen reader says of a control, and the hint under the mouse where there is one.
inline void descrever(QWidget* controle, const QString& nome, const QString& dica = {}) {
    controle->setAccessibleName(nome);
    controle->setAccessibleDescription(dica);
    controle->setToolTip(dica);
}

} // namespace quilatador
