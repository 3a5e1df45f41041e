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

} // namespace

Interrupcao::Interrupcao()
    : interrupcaoAnterior_(std::signal(SIGINT, aoChegar)), terminoAnterior_(std::signal(SIGTERM, aoChegar)) {}

Interrupcao::~Interrupcao() {
    std::signal(SIGINT, interrupcaoAnterior_);
    std::signal(SIGTERM, terminoAnterior_);
    chegou = false;
}

bool Interrupcao::pedida() const noexcept {
    return chegou.load(std::memory_order_relaxed);
}

} // namespace quilatador
