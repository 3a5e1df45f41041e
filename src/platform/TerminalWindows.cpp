#include "platform/Terminal.h"

#include <windows.h>

namespace quilatador {

namespace {

HANDLE saidaDe(Fluxo fluxo) noexcept {
    return GetStdHandle(fluxo == Fluxo::Padrao ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

} // namespace

bool redesenha(Fluxo fluxo) {
    DWORD modo = 0;
    const HANDLE saida = saidaDe(fluxo);
    return GetConsoleMode(saida, &modo) != 0 && SetConsoleMode(saida, modo | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

int larguraDoTerminal(Fluxo fluxo) {
    constexpr int larguraUsual = 80;
    CONSOLE_SCREEN_BUFFER_INFO tela{};
    const bool sabe = GetConsoleScreenBufferInfo(saidaDe(fluxo), &tela) != 0;
    return sabe ? tela.srWindow.Right - tela.srWindow.Left + 1 : larguraUsual;
}

} // namespace quilatador
