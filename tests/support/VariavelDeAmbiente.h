#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace quilatador::testes {

/// Gives a variable of the environment another value while it lives.
class VariavelDeAmbiente {
  public:
    VariavelDeAmbiente(const char* nome, const std::string& valor) : nome_(nome) {
        if (const char* anterior = std::getenv(nome)) anterior_ = anterior;
        ::setenv(nome, valor.c_str(), 1);
    }
    VariavelDeAmbiente(const VariavelDeAmbiente&) = delete;
    VariavelDeAmbiente& operator=(const VariavelDeAmbiente&) = delete;
    ~VariavelDeAmbiente() { anterior_ ? ::setenv(nome_, anterior_->c_str(), 1) : ::unsetenv(nome_); }

  private:
    const char* nome_;
    std::optional<std::string> anterior_;
};

} // namespace quilatador::testes
