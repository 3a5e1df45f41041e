#pragma once

#include "common/Texto.h"

#include <exception>
#include <string>

namespace quilatador {

/// The failure numbers that the program raises itself or translates from the system.
namespace numeroDeFalha {
inline constexpr int geral = 1;
inline constexpr int argumentoInvalido = 5;
inline constexpr int estouro = 6;
inline constexpr int tiposIncompativeis = 13;
inline constexpr int nomeDeArquivoInvalido = 52;
inline constexpr int arquivoNaoEncontrado = 53;
inline constexpr int modoDeArquivoInvalido = 54;
inline constexpr int arquivoJaAberto = 55;
inline constexpr int erroDeDispositivo = 57;
inline constexpr int discoCheio = 61;
inline constexpr int arquivoAlterado = 65;
inline constexpr int permissaoNegada = 70;
inline constexpr int memoriaInsuficiente = 71;
inline constexpr int acessoAoCaminho = 75;
inline constexpr int usoDeNulo = 94;
inline constexpr int objetoSemPropriedade = 438;
inline constexpr int chaveDuplicada = 457;
inline constexpr int bancoDeDados = 3000;
} // namespace numeroDeFalha

/// Raised when the work cannot go on: because of a file, a layout description or a value that cannot be converted. Each
/// layer that knows more adds it with `comContexto`, and one handler at the top of a run writes the description to the
/// log. Faults in the data under check are findings (`Achado`), not failures.
class Falha : public std::exception {
  public:
    /// `numero` is one of `numeroDeFalha` or, from 3000, of the database; `fonte` is the class that raises the failure.
    Falha(int numero, VistaTexto fonte, VistaTexto descricao);

    /// The number of the failure, by which callers tell one kind from another.
    [[nodiscard]] int numero() const noexcept { return numero_; }
    /// The class that raised the failure, or "Gravacao" for a file.
    [[nodiscard]] const Texto& fonte() const noexcept { return fonte_; }
    /// What happened, in Portuguese for the user.
    [[nodiscard]] const Texto& descricao() const noexcept { return descricao_; }
    /// Whether the cause lies in files, devices or parts of the program (numbers 52 to 76, and from 3000) rather than
    /// in the data. Added context does not change the answer.
    [[nodiscard]] bool doAmbiente() const noexcept { return doAmbiente_; }
    /// The description in UTF-8, for code that only knows `std::exception`.
    [[nodiscard]] const char* what() const noexcept override { return what_.c_str(); }

    /// The same failure on behalf of `fonte`: it has the number 1, and its description begins with "`contexto` - ".
    [[nodiscard]] Falha comContexto(VistaTexto fonte, VistaTexto contexto) const;

    /// The failure for a value that cannot be converted: number 13, "Tipos incompatíveis".
    [[nodiscard]] static Falha conversao(VistaTexto fonte);

  private:
    int numero_;
    bool doAmbiente_;
    Texto fonte_;
    Texto descricao_;
    std::string what_;
};

} // namespace quilatador
