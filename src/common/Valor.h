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
/// Empty means that no value has been given yet; it compares as 0 with a number and as "" with a text. Null means that
/// the value is known to be missing: every comparison with it is false, even `igual` and `diferente` at the same time.
class Valor {
  public:
    struct Nulo {
        bool operator==(const Nulo&) const = default;
    };

    /// Without an argument the value is empty.
    Valor() = default;
    Valor(Nulo nulo) : conteudo_(nulo) {}
    Valor(Texto texto) : conteudo_(std::move(texto)) {}
    Valor(VistaTexto texto) : conteudo_(Texto(texto)) {}
    Valor(double numero) : conteudo_(numero) {}
    Valor(int numero) : conteudo_(static_cast<double>(numero)) {}
    Valor(std::int64_t numero) : conteudo_(static_cast<double>(numero)) {}
    Valor(const Data& data) : conteudo_(data) {}

    /// Whether the value is empty or null; it is never both.
    [[nodiscard]] bool vazio() const noexcept { return std::holds_alternative<std::monostate>(conteudo_); }
    [[nodiscard]] bool nulo() const noexcept { return std::holds_alternative<Nulo>(conteudo_); }
    /// A pointer to the content when it is of the kind asked for, and a null pointer otherwise.
    [[nodiscard]] const Texto* comoTexto() const noexcept { return std::get_if<Texto>(&conteudo_); }
    [[nodiscard]] const double* comoNumero() const noexcept { return std::get_if<double>(&conteudo_); }
    [[nodiscard]] const Data* comoData() const noexcept { return std::get_if<Data>(&conteudo_); }

    /// The value as text: a number in its shortest decimal form, a date as "DD/MM/YYYY", and "" for empty and null.
    [[nodiscard]] Texto texto() const;
    /// The number of characters of that text. A null value has no length.
    [[nodiscard]] std::optional<std::size_t> comprimento() const;

    /// Converts to a number; an empty value gives 0, a date its serial number. Raises `Falha` 13 for a text that is not
    /// numeric, 94 for null.
    [[nodiscard]] double paraDuplo() const;
    /// Converts to a whole number of 64, 32 or 16 bits, where halves go to the even neighbour. Raises the failures of
    /// `paraDuplo`, and `Falha` 6 when the number does not fit. Line numbers and other counts have 64 bits.
    [[nodiscard]] std::int64_t paraContagem() const;
    [[nodiscard]] std::int32_t paraLongo() const;
    [[nodiscard]] std::int16_t paraInteiro() const;

    /// Whether kind and content are the same; here two nulls are equal. For containers and tests: rules use `igual`.
    bool operator==(const Valor&) const = default;

  private:
    friend std::partial_ordering comparar(const Valor& a, const Valor& b);

    std::variant<std::monostate, Nulo, Texto, double, Data> conteudo_;
};

/// Compares two values. A number and a numeric text compare as numbers, and a text that is not numeric is greater than
/// any number. A date compares with a number by its serial number. Null is unordered with everything.
[[nodiscard]] std::partial_ordering comparar(const Valor& a, const Valor& b);

[[nodiscard]] bool igual(const Valor& a, const Valor& b);
/// Whether the values are known to differ. This is not the opposite of `igual`: with a null value both are false.
[[nodiscard]] bool diferente(const Valor& a, const Valor& b);
[[nodiscard]] bool menor(const Valor& a, const Valor& b);
[[nodiscard]] bool maior(const Valor& a, const Valor& b);

/// Whether the text of the value is certainly not part of `lista`. An empty text is part of every list; for null the
/// answer is always false.
[[nodiscard]] bool foraDe(const Valor& valor, VistaTexto lista);
/// Whether the value certainly has no character (`semConteudo`) or at least one (`comConteudo`). Both are false for
/// null.
[[nodiscard]] bool semConteudo(const Valor& valor);
[[nodiscard]] bool comConteudo(const Valor& valor);

} // namespace quilatador
