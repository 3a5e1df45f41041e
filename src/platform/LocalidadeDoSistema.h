#pragma once

#include "run/Localidade.h"

#include <array>
#include <string>

namespace quilatador {

/// What a system says of the user's language, in UTF-8; empty where it says nothing.
struct TextosDoSistema {
    std::string separadorDeMilhar;
    std::string separadorDecimal;
    std::array<std::string, 12> meses;
};

/// The user's language, read once. Where it has nothing of its own (the C and POSIX locales, one that is not
/// installed), or nothing that Windows-1252 can write, the Brazilian separators and names stand in.
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
