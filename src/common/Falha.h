#pragma once

#include "common/Texto.h"

#include <exception>
#include <string>

namespace quilatador {

/// Numbers of the failures that the system raises or translates.
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

/// The work cannot go on: a file, a layout description or a value that does not convert. Each layer that has more
/// to say puts it in front with `comContexto`; one handler at the top of a run turns the description into a line of
/// the log. Faults in the data checked are no `Falha`: they are findings.
class Falha : public std::exception {
  public:
    Falha(int numero, VistaTexto fonte, VistaTexto descricao);

    [[nodiscard]] int numero() const noexcept { return numero_; }
    /// The class that raised it, or "Gravacao" for files.
    [[nodiscard]] const Texto& fonte() const noexcept { return fonte_; }
    /// What happened, in the user's language.
    [[nodiscard]] const Texto& descricao() const noexcept { return descricao_; }
    /// Whether files, devices or program parts are at fault (numbers 52 to 76 and from 3000), not the data; context
    /// put in front keeps it.
    [[nodiscard]] bool doAmbiente() const noexcept { return doAmbiente_; }
    /// The description in UTF-8, for tools that know only `std::exception`.
    [[nodiscard]] const char* what() const noexcept override { return what_.c_str(); }

    /// The same failure as raised by `fonte`, its number 1 and its description after "`contexto` - ".
    [[nodiscard]] Falha comContexto(VistaTexto fonte, VistaTexto contexto) const;

    /// 13, "Tipos incompatíveis": a value that cannot be converted.
    [[nodiscard]] static Falha conversao(VistaTexto fonte);

  private:
    int numero_;
    bool doAmbiente_;
    Texto fonte_;
    Texto descricao_;
    std::string what_;
};

} // namespace quilatador
