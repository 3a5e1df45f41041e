#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace quilatador::testes {

/// What a failing test shows of two long texts in UTF-8: their first line (1-based) that differs, about the place where
/// it does. "" where they are equal.
inline std::string diferenca(std::string_view obtido, std::string_view esperado) {
    constexpr std::size_t antes = 60;
    constexpr std::size_t largura = 160;
    if (obtido == esperado) return {};
    const auto iguais = static_cast<std::size_t>(std::ranges::mismatch(obtido, esperado).in1 - obtido.begin());
    const std::size_t linha = obtido.substr(0, iguais).rfind('\n') + 1;
    const std::size_t inicio = std::max(linha, iguais - std::min(iguais, antes));
    const auto trecho = [&](std::string_view texto) {
        return std::string(texto.substr(inicio, std::min(texto.find('\n', iguais) - inicio, largura)));
    };
    return "line " + std::to_string(1 + std::ranges::count(obtido.substr(0, iguais), '\n')) +
           "\n  expected: " + trecho(esperado) + "\n  got:      " + trecho(obtido);
}

} // namespace quilatador::testes
