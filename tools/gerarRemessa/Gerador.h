#pragma once

#include <cstdint>
#include <optional>
#include <ostream>

/// Makes files of the bank's collection service for samples, tests and benchmarks. The same options give the same
/// bytes on every platform.
namespace quilatador::gerador {

enum class Tipo {
    ZUL702, ///< remittance
    ZUL708, ///< its answer: the records of the ZUL702 of the same options, with occurrence codes in every tenth
    TAV001, ///< settlement return, version 03
};

inline constexpr std::uint32_t menorRemessa = 16;      ///< records of the shortest remittance, one slip and all
inline constexpr std::uint32_t maiorRemessa = 999'999; ///< what the six digits of the sequence number can count
inline constexpr std::uint32_t maximoDeGuias = 83'331; ///< so many slips of any size fit in the longest remittance
inline constexpr std::uint32_t maximoDePagamentos = 99'999'999; ///< what a payment's eight-digit number can count

struct Opcoes {
    Tipo tipo = Tipo::ZUL702;
    std::uint64_t semente = 1;
    /// Slips of a remittance, 1 to `maximoDeGuias`; not together with `registros`, not for a TAV001.
    std::optional<std::uint32_t> guias = std::nullopt;
    /// Records of a remittance, `menorRemessa` to `maiorRemessa`, exactly; payments of a TAV001, which has two lines
    /// more, 0 to `maximoDePagamentos`; its trailer keeps the last six digits of a greater count of lines. Without
    /// either number the file is a small one.
    std::optional<std::uint32_t> registros = std::nullopt;
    /// Whether a remittance has faults: a dozen and more different ones, spread over its definitions and its last
    /// slip. Every line stays a record of its type, in its place.
    bool falhas = false;
};

/// `Falha` 5 for options that do not go together or a number out of range.
void conferir(const Opcoes& opcoes);

/// Writes a file and gives back how many lines it has. `Falha` as `conferir`, before anything is written; 57 where the
/// stream fails.
std::uint64_t gerar(const Opcoes& opcoes, std::ostream& destino);

} // namespace quilatador::gerador
