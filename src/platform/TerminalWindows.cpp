#include "platform/Terminal.h"

#include <windows.h>

namespace quilatador {

namespace {

HANDLE saidaDe(Fluxo fluxo) noexcept {
    return GetStdHandle(fluxo == Fluxo::Padrao ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

} // namespace

bool ehTerminal(Fluxo fluxo) {
    DWORD modo = 0;
    return GetConsoleMode(saidaDe(fluxo), &modo) != 0;
}

int larguraDoTerminal(Fluxo fluxo) {
    constexpr int larguraUsual = 80;
    CONSOLE_SCREEN_BUFFER_INFO tela{};
    const bool sabe = GetConsoleScreenBufferInfo(saidaDe(fluxo), &tela) != 0;
    return sabe ? tela.srWindow.Right - tela.srWindow.Left + 1 : larguraUsual;
}

} // namespace quilatador
