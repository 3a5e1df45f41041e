#pragma once

#include <QWidget>

#include <utility>

namespace quilatador {

/// Creates a control with the name by which rules, tests and assistive tools find it.
template <typename Controle, typename... Argumentos>
[[nodiscard]] Controle* novoControle(const char* nome, Argumentos&&... argumentos) {
    auto* controle = new Controle(std::forward<Argumentos>(argumentos)...);
    controle->setObjectName(QString::fromLatin1(nome));
    return controle;
}

/// Sets what a screen reader says about a control, and the hint under the mouse if there is one.
inline void descrever(QWidget* controle, const QString& nome, const QString& dica = {}) {
    controle->setAccessibleName(nome);
    controle->setAccessibleDescription(dica);
    controle->setToolTip(dica);
}

} // namespace quilatador
