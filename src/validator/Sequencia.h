#pragma once

#include "validator/LeitorDeRegistros.h"
#include "validator/Ordem.h"

#include <cstdint>

namespace quilatador {

/// The finding for a record whose "IDRegistro" is not the one that `Ordem::idRegistro` gives. `linha` is 1-based.
[[nodiscard]] Achado achadoDoIDRegistro(const RegistroRemessa& registro, char letra, std::int64_t linha,
                                        std::int64_t esperado);

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
    void verificarIDRegistro(const RegistroRemessa& registro, char letra);
    [[nodiscard]] std::int64_t linhaAtual() const noexcept { return rodada_.progresso().registroAtual; }
    [[noreturn]] void parar(const Ordem::Quebra& quebra, char letra) const;

    Rodada& rodada_;
    LeitorDeRegistros& leitor_;
    Texto convenioHeader_;
    Ordem ordem_;
};

} // namespace quilatador
