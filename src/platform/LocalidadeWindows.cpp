#include "platform/LocalidadeDoSistema.h"

#include <windows.h>

namespace quilatador {

namespace {

std::string textoDoUsuario(LCTYPE qual) {
    constexpr int maiorTexto = 100;
    wchar_t texto[maiorTexto] = L"";
    char utf8[4 * maiorTexto] = "";
    GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, qual, texto, maiorTexto);
    WideCharToMultiByte(CP_UTF8, 0, texto, -1, utf8, sizeof utf8, nullptr, nullptr);
    return utf8;
}

TextosDoSistema textosDoUsuario() {
    TextosDoSistema textos{textoDoUsuario(LOCALE_STHOUSAND), textoDoUsuario(LOCALE_SDECIMAL), {}};
    for (std::size_t i = 0; i < textos.meses.size(); ++i)
        textos.meses[i] = textoDoUsuario(LOCALE_SMONTHNAME1 + static_cast<LCTYPE>(i));
    return textos;
}

} // namespace

LocalidadeDoSistema::LocalidadeDoSistema() : LocalidadeDoSistema(textosDoUsuario()) {}

} // namespace quilatador
