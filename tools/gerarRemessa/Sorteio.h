#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace quilatador::gerador {

/// Random numbers that are the same on every platform, which the distributions of the standard library are not.
class Sorteio {
  public:
    explicit Sorteio(std::uint64_t semente) : motor_(semente) {}

    /// A number from 0 to `limite` - 1.
    [[nodiscard]] std::uint32_t abaixoDe(std::uint32_t limite) {
        return static_cast<std::uint32_t>(((motor_() >> 32) * limite) >> 32);
    }
    /// A number from `menor` to `maior`, including both.
    [[nodiscard]] std::uint32_t entre(std::uint32_t menor, std::uint32_t maior) {
        return menor + abaixoDe(maior - menor + 1);
    }
    /// A random element of an array.
    template <typename Lista>
    [[nodiscard]] const auto& umDe(const Lista& lista) {
        return lista[abaixoDe(static_cast<std::uint32_t>(lista.size()))];
    }

  private:
    std::mt19937_64 motor_;
};

} // namespace quilatador::gerador
