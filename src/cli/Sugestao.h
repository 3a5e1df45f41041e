#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quilatador {

/// The option that a user may have meant by a word that is none: one that starts with the word, or differs from it by
/// at most two letters. `opcao` may have hyphens in front and a value behind "="; `nomes` have neither. Upper and lower
/// case are alike. Nothing if no name is near.
[[nodiscard]] std::optional<std::string> maisParecida(std::string_view opcao, const std::vector<std::string>& nomes);

} // namespace quilatador
