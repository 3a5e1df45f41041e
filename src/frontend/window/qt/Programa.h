#pragma once

#include "run/Painel.h"

#include <QApplication>

#include <functional>

namespace quilatador {

/// Qt's application, which no exception ends: one that escapes while an event is handled is told to the user, and the
/// program goes on.
class Programa final : public QApplication {
    Q_OBJECT

  public:
    Programa(int& argc, char** argv) : QApplication(argc, argv) {}

    /// Shows a message box and waits until it is closed.
    std::function<void(const Mensagem&)> avisar;

    /// The application that is running.
    [[nodiscard]] static Programa& atual() { return *static_cast<Programa*>(instance()); }

    /// Calls `acao`, which answers to the toolkit, and tells the user if it raises an exception. None should pass
    /// through the toolkit: it is built without the code that cleans up behind one.
    template <typename Acao>
    void proteger(Acao acao) noexcept {
        try {
            acao();
        } catch (...) {
            contarExcecao();
        }
    }
    /// Tells the user of the exception that is being handled; call it from a `catch`. While the message is shown,
    /// further exceptions are not told: the message itself may be what raises them.
    void contarExcecao() noexcept;

    /// The last resort, for what the toolkit itself raises. The result is false if an exception escaped.
    bool notify(QObject* destino, QEvent* evento) override;

  private:
    bool avisando_ = false;
};

} // namespace quilatador
