#include "common/modDepuracao.h"

#include <algorithm>
#include <array>

namespace quilatador::modDepuracao {

namespace {

constexpr std::array<bool, 256> especiais = [] {
    std::array<bool, 256> tabela{};
    constexpr std::pair<int, int> faixas[] = {{38, 38},   {159, 159}, {170, 170}, {186, 186}, {192, 207}, {209, 214},
                                              {217, 221}, {224, 239}, {241, 246}, {249, 253}, {255, 255}};
    for (const auto& [primeiro, ultimo] : faixas)
        for (int codigo = primeiro; codigo <= ultimo; ++codigo)
            tabela[static_cast<std::size_t>(codigo)] = true;
    return tabela;
}();

/// Whether a line may contain a special character, that is "&" or a code above ASCII; nearly no line does. The loop has
/// no branch, so that the compiler can process many characters at a time.
bool suspeita(VistaTexto texto) noexcept {
    unsigned char algum = 0;
    for (const char c : texto)
        algum = static_cast<unsigned char>(algum | (static_cast<unsigned char>(c) & 0x80u) |
                                           static_cast<unsigned char>(c == '&'));
    return algum != 0;
}

} // namespace

Texto caracteresEspeciais(VistaTexto texto) {
    constexpr std::size_t pedaco = 16;
    Texto achados;
    if (!suspeita(texto)) return achados;
    for (std::size_t inicio = 0; inicio < texto.size(); inicio += pedaco) {
        const std::size_t fim = std::min(inicio + pedaco, texto.size());
        if (!suspeita(texto.substr(inicio, fim - inicio))) continue; // skips the pieces of a line without any
        for (std::size_t i = inicio; i < fim; ++i) {
            if (!especiais[static_cast<unsigned char>(texto[i])]) continue;
            achados.push_back(texto[i]);
            achados.append("("_t).append(textoDe(static_cast<long long>(i) + 1)).append("), "_t);
        }
    }
    return achados;
}

} // namespace quilatador::modDepuracao
