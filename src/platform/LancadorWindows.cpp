#include "platform/LancadorDoSistema.h"

#include <string>
#include <windows.h>

namespace quilatador {

namespace {

void iniciar(std::wstring comando, WORD janela) {
    STARTUPINFOW inicio{};
    inicio.cb = sizeof inicio;
    inicio.dwFlags = STARTF_USESHOWWINDOW;
    inicio.wShowWindow = janela;
    PROCESS_INFORMATION processo{};
    if (!CreateProcessW(nullptr, comando.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &inicio, &processo))
        return;
    CloseHandle(processo.hThread);
    CloseHandle(processo.hProcess);
}

} // namespace

void LancadorDoSistema::abrirTexto(const std::filesystem::path& caminho) {
    iniciar(L"notepad.exe \"" + caminho.native() + L"\"", SW_SHOWNORMAL);
}

void LancadorDoSistema::abrirDocumento(const std::filesystem::path& caminho) {
    iniciar(L"rundll32 url.dll,FileProtocolHandler " + caminho.native(), SW_SHOWMINIMIZED);
}

} // namespace quilatador
