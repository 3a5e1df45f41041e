#pragma once

#include <cstdint>
#include <optional>
#include <ostream>

/// Generates files of the bank's collection service for samples, tests and benchmarks. The same options give the same
/// bytes on every platform.
namespace quilatador::gerador {

enum class Tipo {
    ZUL702, ///< remittance
    ZUL708, ///< return for the ZUL702 of the same options, where every tenth record has occurrence codes
    TAV001, ///< settlement return, version 03
};

inline constexpr std::uint32_t menorRemessa = 16;               ///< records of the shortest remittance, with one slip
inline constexpr std::uint32_t maiorRemessa = 999'999;          ///< limit of the six-digit sequence number
inline constexpr std::uint32_t maximoDeGuias = 83'331;          ///< this many slips fit in the longest remittance
inline constexpr std::uint32_t maximoDePagamentos = 99'999'999; ///< limit of a payment's eight-digit number

struct Opcoes {
    Tipo tipo = Tipo::ZUL702;
    std::uint64_t semente = 1;
    /// The number of slips in a remittance, 1 to `maximoDeGuias`. Not allowed together with `registros`, nor for a
    /// TAV001.
    std::optional<std::uint32_t> guias = std::nullopt;
    /// The exact number of records in a remittance, `menorRemessa` to `maiorRemessa`, or of payments in a TAV001, 0 to
    /// `maximoDePagamentos`. A TAV001 has two more lines, and its trailer shows only the last six digits of their
    /// count. Without `guias` and `registros` the file is a small one.
    std::optional<std::uint32_t> registros = std::nullopt;
    /// Whether a remittance contains faults: more than a dozen different ones, in its definitions and its last slip.
    /// Even so, every line has its type and stands in its place.
    bool falhas = false;
};

/// Checks the options. Raises `Falha` 5 when they do not go together or a number is out of range.
void conferir(const Opcoes& opcoes);

/// Writes a file and returns its number of lines. Raises the failures of `conferir` before anything is written, and
/// `Falha` 57 when the stream fails.
std::uint64_t gerar(const Opcoes& opcoes, std::ostream& destino);

} // namespace quilatador::gerador
