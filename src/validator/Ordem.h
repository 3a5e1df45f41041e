#pragma once

#include "common/Texto.h"

#include <array>
#include <cstdint>
#include <optional>

namespace quilatador {

/// The order in which the records of a remittance may come. It knows the letters so far and answers what the rules say
/// of the next one; what follows from the answer is the caller's affair.
///
/// Order of use: for each record behind the header ask the rules, then `anotar`.
class Ordem {
  public:
    /// A rule that the next letter breaks.
    struct Quebra {
        VistaTexto id; ///< of the finding
        VistaTexto mensagem;
        char exigida = 0; ///< the letter that would have to stand in front; 0 where the rule asks for none
    };

    /// Whether a record comes too late: its "TipoReg" sorts before the last letter of the definitions.
    [[nodiscard]] const Quebra* foraDeOrdem(VistaTexto tipo) const noexcept;
    /// What the next S says of the slip before it: that the slip lacks its installments, or else its object.
    [[nodiscard]] const Quebra* fimDaGuia() const noexcept;
    [[nodiscard]] const Quebra* semParcelas() const noexcept;
    [[nodiscard]] const Quebra* semObjeto() const noexcept;
    /// The first of the other rules that the letter breaks.
    [[nodiscard]] const Quebra* quebra(char letra) const noexcept;
    /// Whether the file may not end here, for lack of a trailer.
    [[nodiscard]] const Quebra* semTrailer() const noexcept;

    /// Adds a letter to those seen. T to Y need an open slip.
    void anotar(char letra);
    /// What "IDRegistro" of the next record with this letter has to be: 0 in A, B and D, and the ordinal within its
    /// letter in G to L, for which the record is counted. Nothing for the other letters, which may have any.
    [[nodiscard]] std::optional<std::int64_t> idRegistro(char letra) noexcept;

    /// Whether a slip has been opened.
    [[nodiscard]] bool temGuia() const noexcept { return !guia_.empty(); }
    /// Whether a letter was noted in the slip in hand, or among the definitions.
    [[nodiscard]] bool naGuia(char letra) const noexcept { return guia_.find(letra) != Texto::npos; }
    [[nodiscard]] bool naDefinicao(char letra) const noexcept { return definicao_.find(letra) != Texto::npos; }

  private:
    static constexpr int maisMensagens = 4; ///< records X of a slip that may follow each other

    void anotarNaGuia(char letra);

    Texto definicao_ = Texto("A"_t); ///< the letters of the definitions so far, as they came
    Texto guia_;                     ///< those of the slip in hand, each once, so that it does not grow with the file
    char ultimaDaGuia_ = 0;
    int mensagensSeguidas_ = 0; ///< records X in a row at the end of the slip; never less again after `maisMensagens`
    std::array<std::int64_t, 256> ordinais_{}; ///< records seen, indexed by letter
};

} // namespace quilatador
