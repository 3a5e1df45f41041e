#include "frontend/laudo/Html.h"

#include <algorithm>

namespace quilatador {

namespace {

constexpr std::size_t maisCaracteres = 300; // of one text of the file

std::string comoCodigo(unsigned char byte) {
    constexpr std::string_view digitos = "0123456789ABCDEF";
    return unir("‹", digitos.substr(byte >> 4, 1), digitos.substr(byte & 0xFU, 1), "›");
}

std::string caractereEmHtml(char c) {
    const auto byte = static_cast<unsigned char>(c);
    switch (byte) {
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case '"':
        return "&quot;";
    case '\'':
        return "&#39;";
    case 0x81:
    case 0x8D:
    case 0x8F:
    case 0x90:
    case 0x9D:
        return "�";
    case 0xA0:
        return "⍽";
    default:
        return byte < ' ' || byte == 0x7F ? comoCodigo(byte) : utf8DeTexto(VistaTexto(&c, 1));
    }
}

std::string brancosEmHtml(std::size_t brancos) {
    constexpr std::size_t maisSeparados = 3; // that are drawn one by one
    if (brancos > maisSeparados) return unir("<i>␣×", std::to_string(brancos), "</i>");
    std::string marcas;
    for (std::size_t i = 0; i < brancos; ++i)
        marcas += "␣";
    return marcas;
}

std::string visivel(char c) {
    return c == ' ' ? "␣" : caractereEmHtml(c);
}

/// One of two texts of the same length, with marks where it differs from the other.
std::string marcarDiferencas(VistaTexto texto, VistaTexto outro) {
    std::string html;
    bool marcando = false;
    for (std::size_t i = 0; i < texto.size(); ++i) {
        if (const bool difere = texto[i] != outro[i]; difere != marcando) {
            html += difere ? "<mark>" : "</mark>";
            marcando = difere;
        }
        html += visivel(texto[i]);
    }
    return marcando ? html += "</mark>" : html;
}

} // namespace

std::string paraHtml(VistaTexto texto) {
    std::string html;
    html.reserve(texto.size() + texto.size() / 4);
    for (const char c : texto)
        html += caractereEmHtml(c);
    return html;
}

std::string bytesParaHtml(VistaTexto bytes) {
    std::string html;
    VistaTexto resto = bytes.substr(0, maisCaracteres);
    while (!resto.empty()) {
        const std::size_t brancos = std::min(resto.find_first_not_of(' '), resto.size());
        html += brancosEmHtml(brancos);
        resto.remove_prefix(brancos);
        const VistaTexto palavra = resto.substr(0, resto.find(' '));
        html += paraHtml(palavra);
        resto.remove_prefix(palavra.size());
    }
    if (bytes.size() <= maisCaracteres) return html;
    return html += unir("<i>… mais ", std::to_string(bytes.size() - maisCaracteres), "</i>");
}

ParDeTextos compararEmHtml(VistaTexto primeiro, VistaTexto segundo) {
    if (primeiro.size() != segundo.size() || primeiro.size() > maisCaracteres)
        return {bytesParaHtml(primeiro), bytesParaHtml(segundo)};
    return {marcarDiferencas(primeiro, segundo), marcarDiferencas(segundo, primeiro)};
}

} // namespace quilatador
