#pragma once

#include "validator/completa/Deslize.h"

#include <span>
#include <vector>

namespace quilatador {

/// A tab may stand for up to so many blanks.
inline constexpr int paradaDaTabulacao = 8;

/// A place of a line whose bytes tell by themselves that a program has changed the text there.
struct Marca {
    int inicio = 0; ///< 0-based
    int bytes = 0;
    Deslize::Causa causa = Deslize::Causa::Desconhecida;
    int menor = 0; ///< by how much it may move what follows: from `menor` to `maior`, to the right if positive
    int maior = 0;
};

/// The counts over some bytes of a line by which a field is recognised.
struct Contagem {
    int cheios = 0;  ///< bytes that are no blank
    int digitos = 0; ///< 0 to 9
    int duplos = 0;  ///< places where content other than a mark goes on after exactly two blanks
    int vaos = 0;    ///< the same after more than two
    int marcas = 0;  ///< marks that begin here
    int bytesDeMarcas = 0;
    int menor = 0; ///< sums of the marks' fields
    int maior = 0;

    [[nodiscard]] friend Contagem operator-(const Contagem& a, const Contagem& b) noexcept {
        return {a.cheios - b.cheios, a.digitos - b.digitos, a.duplos - b.duplos,
                a.vaos - b.vaos,     a.marcas - b.marcas,   a.bytesDeMarcas - b.bytesDeMarcas,
                a.menor - b.menor,   a.maior - b.maior};
    }
};

/// The marks of a line, and the counts of any part of it at a constant cost. Places are 0-based, and a part goes from
/// `a` to before `b`.
class PistasDaLinha {
  public:
    /// Keeps the view of the line.
    explicit PistasDaLinha(VistaTexto linha);

    [[nodiscard]] VistaTexto linha() const noexcept { return linha_; }
    [[nodiscard]] int tamanho() const noexcept { return static_cast<int>(linha_.size()); }
    [[nodiscard]] char byte(int i) const noexcept { return linha_[static_cast<std::size_t>(i)]; }
    [[nodiscard]] bool branco(int i) const noexcept { return i >= 0 && i < tamanho() && byte(i) == ' '; }
    [[nodiscard]] VistaTexto parte(int a, int b) const noexcept {
        return linha_.substr(static_cast<std::size_t>(a), static_cast<std::size_t>(b - a));
    }
    [[nodiscard]] Contagem contar(int a, int b) const noexcept {
        return ate_[static_cast<std::size_t>(b)] - ate_[static_cast<std::size_t>(a)];
    }
    /// The first place from `a` on that is no blank, `tamanho()` if there is none.
    [[nodiscard]] int primeiroCheio(int a) const noexcept { return cheio_[static_cast<std::size_t>(a)]; }
    /// The marks from left to right.
    [[nodiscard]] std::span<const Marca> marcas() const noexcept { return marcas_; }

  private:
    void acharMarcas();
    void contarTudo();

    VistaTexto linha_;
    std::vector<Marca> marcas_;
    std::vector<Contagem> ate_; ///< of what lies before each place
    std::vector<int> cheio_;
};

} // namespace quilatador
