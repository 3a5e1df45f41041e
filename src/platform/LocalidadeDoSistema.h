#pragma once

#include "run/Localidade.h"

#include <array>
#include <string>

namespace quilatador {

/// What a system says about the user's language, in UTF-8; empty texts where it says nothing.
struct TextosDoSistema {
    std::string separadorDeMilhar;
    std::string separadorDecimal;
    std::array<std::string, 12> meses;
};

/// The user's language, read once. The Brazilian separators and month names replace what it does not have (as the C and
/// POSIX locales, or one that is not installed) and what Windows-1252 cannot write.
class LocalidadeDoSistema final : public Localidade {
  public:
    LocalidadeDoSistema();
    explicit LocalidadeDoSistema(const TextosDoSistema& textos);

    [[nodiscard]] Texto separadorDeMilhar() const override { return separadorDeMilhar_; }
    [[nodiscard]] Texto separadorDecimal() const override { return separadorDecimal_; }
    [[nodiscard]] Texto nomeDoMes(unsigned mes) const override { return meses_.at(mes - 1); }

  private:
    Texto separadorDeMilhar_{"."_t};
    Texto separadorDecimal_{","_t};
    std::array<Texto, 12> meses_;
};

} // namespace quilatador
