#include "platform/Pastas.h"

#include <string>
#include <windows.h>

namespace quilatador {

std::filesystem::path pastaDoExecutavel() {
    constexpr DWORD maiorCaminho = 32768; // the longest path of the system, in characters
    std::wstring nome(maiorCaminho, L'\0');
    nome.resize(GetModuleFileNameW(nullptr, nome.data(), maiorCaminho));
    return std::filesystem::path(nome).parent_path();
}

} // namespace quilatador
