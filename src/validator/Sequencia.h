#pragma once

#include "validator/LeitorDeRegistros.h"

#include <array>
#include <cstdint>

namespace quilatador {

/// The first pass over a remittance: proves that it is a ZUL702 file and that its records come in an allowed order.
/// Its first fault is raised as `ParadaEstrutural`; only record identifiers are errors behind which it goes on.
class Sequencia {
  public:
    /// Both must live as long.
    Sequencia(Rodada& rodada, LeitorDeRegistros& leitor) : rodada_(rodada), leitor_(leitor) {}

    /// Walks through the file, which the reader has just opened. False where the run was cancelled on the way.
    [[nodiscard]] bool verificar();
    /// The agreement's number in the header, once that was read.
    [[nodiscard]] const Texto& convenioHeader() const noexcept { return convenioHeader_; }

  private:
    [[nodiscard]] const RegistroRemessa& lerHeader();
    void verificarHeader();
    void verificarTamanho(const RegistroRemessa& registro) const;
    void verificarOrdem(const RegistroRemessa& registro);
    void verificarRegrasDaLetra(char letra) const;
    void verificarFimDaGuia() const;
    void verificarIDRegistro(const RegistroRemessa& registro, char letra);
    void anotarLetra(char letra);
    [[nodiscard]] std::int32_t linhaAtual() const noexcept { return rodada_.progresso().registroAtual; }
    [[noreturn]] void pararNaLinha(VistaTexto id, char letra, VistaTexto mensagem) const;

    Rodada& rodada_;
    LeitorDeRegistros& leitor_;
    Texto convenioHeader_;
    /// Letters met so far, a letter repeated at the end only once: no rule asks how often.
    Texto historicoDefinicao_;
    Texto historicoGuia_;
    std::array<std::int32_t, 256> ordinais_{}; ///< records met, by letter
};

} // namespace quilatador
