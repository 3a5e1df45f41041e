#pragma once

#include "validator/LeitorDeRegistros.h"

#include <array>
#include <cstdint>

namespace quilatador {

/// The first pass over a remittance: it proves that the file is a ZUL702 and that its records come in an allowed order.
/// The first fault is thrown as `ParadaEstrutural`. Only wrong record identifiers (`IDRegistro`) are ordinary errors,
/// after which the pass goes on.
class Sequencia {
  public:
    /// Keeps references: both must outlive this object.
    Sequencia(Rodada& rodada, LeitorDeRegistros& leitor) : rodada_(rodada), leitor_(leitor) {}

    /// Reads the file, which `leitor` has just opened, to its end. Returns false if the run was cancelled.
    [[nodiscard]] bool verificar();
    /// The number of the agreement from the header; empty until `verificar` has read it.
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
    [[nodiscard]] std::int64_t linhaAtual() const noexcept { return rodada_.progresso().registroAtual; }
    [[noreturn]] void pararNaLinha(VistaTexto id, char letra, VistaTexto mensagem) const;

    Rodada& rodada_;
    LeitorDeRegistros& leitor_;
    Texto convenioHeader_;
    /// The letters seen so far. A letter that repeats the one before is noted once, except X, which may occur four
    /// times.
    Texto historicoDefinicao_;
    Texto historicoGuia_;
    std::array<std::int64_t, 256> ordinais_{}; ///< records seen, indexed by letter
};

} // namespace quilatador
