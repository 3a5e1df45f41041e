#include "platform/AvisoDoLancador.h"

#include <string>
#include <windows.h>

namespace quilatador {

namespace {

/// Whether the program could be started.
bool iniciar(std::wstring comando, WORD janela) {
    STARTUPINFOW inicio{};
    inicio.cb = sizeof inicio;
    inicio.dwFlags = STARTF_USESHOWWINDOW;
    inicio.wShowWindow = janela;
    PROCESS_INFORMATION processo{};
    if (!CreateProcessW(nullptr, comando.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &inicio, &processo))
        return false;
    CloseHandle(processo.hThread);
    CloseHandle(processo.hProcess);
    return true;
}

} // namespace

void LancadorDoSistema::abrirTexto(const std::filesystem::path& caminho) {
    if (!iniciar(L"notepad.exe \"" + caminho.native() + L"\"", SW_SHOWNORMAL)) aviso_->dar(caminho);
}

void LancadorDoSistema::abrirDocumento(const std::filesystem::path& caminho) {
    if (!iniciar(L"rundll32 url.dll,FileProtocolHandler " + caminho.native(), SW_SHOWMINIMIZED)) aviso_->dar(caminho);
}

} // namespace quilatador
