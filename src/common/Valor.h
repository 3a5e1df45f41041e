#pragma once

#include "common/Data.h"
#include "common/Texto.h"

#include <compare>
#include <cstdint>
#include <optional>
#include <variant>

namespace quilatador {

/// The value of a field: empty, null, a text, a number or a date.
///
/// Empty is a value not yet given: 0 beside a number, "" beside a text. Null is a value known to be missing: every
/// test on it fails, its own opposite included (neither `igual` nor `diferente` holds).
class Valor {
  public:
    struct Nulo {
        bool operator==(const Nulo&) const = default;
    };

    Valor() = default;
    Valor(Nulo nulo) : conteudo_(nulo) {}
    Valor(Texto texto) : conteudo_(std::move(texto)) {}
    Valor(VistaTexto texto) : conteudo_(Texto(texto)) {}
    Valor(double numero) : conteudo_(numero) {}
    Valor(int numero) : conteudo_(static_cast<double>(numero)) {}
    Valor(const Data& data) : conteudo_(data) {}

    [[nodiscard]] bool vazio() const noexcept { return std::holds_alternative<std::monostate>(conteudo_); }
    [[nodiscard]] bool nulo() const noexcept { return std::holds_alternative<Nulo>(conteudo_); }
    /// The text, number or date, or null where the value is of another kind.
    [[nodiscard]] const Texto* comoTexto() const noexcept { return std::get_if<Texto>(&conteudo_); }
    [[nodiscard]] const double* comoNumero() const noexcept { return std::get_if<double>(&conteudo_); }
    [[nodiscard]] const Data* comoData() const noexcept { return std::get_if<Data>(&conteudo_); }

    /// The value as text: a number in its shortest decimal form, a date as "DD/MM/YYYY"; empty and null give "".
    [[nodiscard]] Texto texto() const;
    /// Characters of that text; a null value has no length.
    [[nodiscard]] std::optional<std::size_t> comprimento() const;

    /// The value converted to a number. `Falha` 13 where it is a text that is not numeric, 94 where it is null.
    [[nodiscard]] double paraDuplo() const;
    /// The same as a whole number of 32 (16) bits, halves to even; `Falha` 6 where it does not fit.
    [[nodiscard]] std::int32_t paraLongo() const;
    [[nodiscard]] std::int16_t paraInteiro() const;

    /// The same kind and content (null equals null here): for containers and tests, not for rules.
    bool operator==(const Valor&) const = default;

  private:
    friend std::partial_ordering comparar(const Valor& a, const Valor& b);

    std::variant<std::monostate, Nulo, Texto, double, Data> conteudo_;
};

/// How two values compare. A number and a numeric text compare as numbers; a text that is not numeric is greater than
/// any number; a date beside a number is its serial number. Unordered where either is null.
[[nodiscard]] std::partial_ordering comparar(const Valor& a, const Valor& b);

[[nodiscard]] bool igual(const Valor& a, const Valor& b);
/// Not the opposite of `igual`: neither holds where a value is null.
[[nodiscard]] bool diferente(const Valor& a, const Valor& b);
[[nodiscard]] bool menor(const Valor& a, const Valor& b);
[[nodiscard]] bool maior(const Valor& a, const Valor& b);

/// Whether the value's text is known not to stand within `lista`: an empty text stands in any, a null value in none
/// and out of none.
[[nodiscard]] bool foraDe(const Valor& valor, VistaTexto lista);
/// Whether the value is known to have no character, or at least one; neither holds for null.
[[nodiscard]] bool semConteudo(const Valor& valor);
[[nodiscard]] bool comConteudo(const Valor& valor);

} // namespace quilatador
