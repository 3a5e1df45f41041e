#include "cli/TextoNoTerminal.h"

#include <algorithm>

namespace quilatador {

std::string paraTerminal(VistaTexto texto) {
    constexpr char hexa[] = "0123456789ABCDEF";
    std::string resultado;
    for (const char c : texto) {
        const auto codigo = static_cast<unsigned char>(c);
        if (codigo < 0x20 || (codigo >= 0x7F && codigo <= 0x9F))
            resultado += {'\\', 'x', hexa[codigo >> 4], hexa[codigo & 15]};
        else
            resultado += utf8DeTexto(VistaTexto(&c, 1));
    }
    return resultado;
}

std::string comBrancosVisiveis(VistaTexto texto) {
    constexpr std::size_t maisBrancos = 3; // that are drawn one by one
    std::string visivel;
    while (!texto.empty()) {
        const std::size_t brancos = std::min(texto.find_first_not_of(' '), texto.size());
        texto.remove_prefix(brancos);
        for (std::size_t i = 0; brancos <= maisBrancos && i < brancos; ++i)
            visivel += "␣";
        if (brancos > maisBrancos) {
            visivel += "␣×" + std::to_string(brancos);
            if (!texto.empty()) visivel += ' '; // or a digit of the text would seem to belong to the count
        }
        const VistaTexto palavra = texto.substr(0, texto.find(' '));
        visivel += paraTerminal(palavra);
        texto.remove_prefix(palavra.size());
    }
    return visivel;
}

std::string ouNada(VistaTexto texto) {
    return texto.empty() ? "(nada)" : comBrancosVisiveis(texto);
}

std::size_t largura(std::string_view utf8) {
    return static_cast<std::size_t>(
        std::ranges::count_if(utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

} // namespace quilatador
