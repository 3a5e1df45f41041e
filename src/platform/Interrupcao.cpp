#include "platform/Interrupcao.h"

#include "run/Situacao.h"

#include <atomic>
#include <csignal>
#include <cstdlib>

namespace quilatador {

namespace {

/// A global, because a signal handler can reach nothing else.
std::atomic<bool> chegou = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler must not wait for a lock");

extern "C" void aoChegar(int sinal) {
    if (chegou.exchange(true)) std::_Exit(situacao::interrompido);
    std::signal(sinal, aoChegar); // some systems restore the default after the first signal
}

/// Handles a signal from now on, unless it is ignored, and returns the earlier handling. It is ignored for a moment to
/// learn that, because the other way round a signal that is to be ignored could arrive.
auto atender(int sinal) {
    const auto anterior = std::signal(sinal, SIG_IGN);
    if (anterior != SIG_IGN) std::signal(sinal, aoChegar);
    return anterior;
}

} // namespace

Interrupcao::Interrupcao() : interrupcaoAnterior_(atender(SIGINT)), terminoAnterior_(atender(SIGTERM)) {}

Interrupcao::~Interrupcao() {
    std::signal(SIGINT, interrupcaoAnterior_);
    std::signal(SIGTERM, terminoAnterior_);
    chegou = false;
}

bool Interrupcao::pedida() const noexcept {
    return chegou.load(std::memory_order_relaxed);
}

} // namespace quilatador
