#include "cli/Sugestao.h"

#include <algorithm>
#include <numeric>

namespace quilatador {

namespace {

constexpr std::size_t menorComeco = 3;    // letters; a shorter beginning says too little
constexpr std::size_t maiorDiferenca = 2; // letters

std::string semEnfeites(std::string_view opcao) {
    opcao.remove_prefix(std::min(opcao.find_first_not_of('-'), opcao.size()));
    std::string nome(opcao.substr(0, opcao.find('=')));
    std::ranges::transform(nome, nome.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? char(c + 32) : c; });
    return nome;
}

/// How many letters have to be changed, added or left out to make one word of the other (Levenshtein).
std::size_t diferenca(std::string_view a, std::string_view b) {
    std::vector<std::size_t> linha(b.size() + 1);
    std::iota(linha.begin(), linha.end(), std::size_t{0});
    for (const char letra : a) {
        std::size_t diagonal = linha[0]++;
        for (std::size_t i = 0; i < b.size(); ++i) {
            const std::size_t trocada = diagonal + (letra == b[i] ? 0 : 1);
            diagonal = linha[i + 1];
            linha[i + 1] = std::min({trocada, linha[i] + 1, diagonal + 1});
        }
    }
    return linha.back();
}

} // namespace

std::optional<std::string> maisParecida(std::string_view opcao, const std::vector<std::string>& nomes) {
    const std::string palavra = semEnfeites(opcao);
    const auto distancia = [&](const std::string& nome) {
        const bool comeco = palavra.size() >= menorComeco && nome.starts_with(palavra);
        return comeco ? 0 : diferenca(palavra, nome);
    };
    const auto melhor = std::ranges::min_element(nomes, {}, distancia);
    if (melhor == nomes.end()) return std::nullopt;
    // Of two short words, two different letters make quite another word.
    const std::size_t tolerada = std::min(maiorDiferenca, std::min(palavra.size(), melhor->size()) / 2);
    return distancia(*melhor) <= tolerada ? std::optional(*melhor) : std::nullopt;
}

} // namespace quilatador
