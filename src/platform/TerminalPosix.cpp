#include "platform/Terminal.h"

#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <unistd.h>

namespace quilatador {

namespace {

int numeroDe(Fluxo fluxo) noexcept {
    return fluxo == Fluxo::Padrao ? STDOUT_FILENO : STDERR_FILENO;
}

} // namespace

bool redesenha(Fluxo fluxo) {
    const char* const tipo = std::getenv("TERM");
    const std::string_view nome = tipo ? tipo : "";
    return !nome.empty() && nome != "dumb" && ::isatty(numeroDe(fluxo)) == 1;
}

int larguraDoTerminal(Fluxo fluxo) {
    constexpr int larguraUsual = 80;
    winsize tamanho{};
    const bool sabe = ::ioctl(numeroDe(fluxo), TIOCGWINSZ, &tamanho) == 0 && tamanho.ws_col > 0;
    return sabe ? tamanho.ws_col : larguraUsual;
}

} // namespace quilatador
