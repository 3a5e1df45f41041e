#pragma once

#include "layout/ArquivoRemessa.h"
#include "validator/RegistrosGuardados.h"

#include <array>
#include <cstddef>
#include <span>

namespace quilatador {

/// The records S to Y of one slip, collected line by line. A record that the slip lacks has an empty line, and the
/// place where the slip begins.
///
/// Order of use: `iniciar` with the record S, then one of the `guardar` functions for each line that follows.
class GuiaEmMaos {
  public:
    /// A slip without record types: its records have no fields, so that `verificarGuia` raises `Falha` 5 for it.
    GuiaEmMaos() = default;
    /// An empty slip with the record types of a layout, which must outlive this object. `Falha` 5 if the layout lacks
    /// one of S to X.
    explicit GuiaEmMaos(ArquivoRemessa& leiaute);

    /// Discards the current slip and starts the next one.
    void iniciar(const RegistroRemessa& registroS);
    /// The same for a slip whose record S is missing: it begins in this line (1-based).
    void iniciarSemS(std::int64_t linha);
    /// Whether a slip has been started.
    [[nodiscard]] bool iniciada() const noexcept { return !registroS_.linha().empty(); }
    /// Keeps a record T, U, V or W in place of an earlier one of this slip. Any other letter is ignored.
    void guardar(char letra, const RegistroRemessa& registro);
    /// Keeps a message (segment X). Returns false from the fifth one on, which is not kept.
    [[nodiscard]] bool guardarMensagem(const RegistroRemessa& registro);
    /// Keeps an installment (segment Y). Returns false beyond `previstas` installments, which are not kept. `Falha` 5
    /// if the layout lacks Y.
    [[nodiscard]] bool guardarParcela(const RegistroRemessa& registro, std::size_t previstas);

    [[nodiscard]] const RegistroRemessa& registroS() const noexcept { return registroS_; }
    [[nodiscard]] const RegistroRemessa& registroT() const noexcept { return registroT_; }
    [[nodiscard]] const RegistroRemessa& registroU() const noexcept { return registroU_; }
    [[nodiscard]] const RegistroRemessa& registroV() const noexcept { return registroV_; }
    [[nodiscard]] const RegistroRemessa& registroW() const noexcept { return registroW_; }
    /// Always four records; those that the slip lacks have an empty line.
    [[nodiscard]] std::span<const RegistroRemessa> mensagensX() const noexcept { return mensagensX_; }
    /// The installments that were kept, in the order of the file.
    [[nodiscard]] const RegistrosGuardados& parcelasY() const noexcept { return parcelasY_; }

  private:
    [[nodiscard]] RegistroRemessa vazio(VistaTexto nome) const;
    void esvaziar(std::int64_t linha);

    ArquivoRemessa* leiaute_ = nullptr;
    RegistroRemessa registroS_, registroT_, registroU_, registroV_, registroW_;
    std::array<RegistroRemessa, 4> mensagensX_;
    RegistrosGuardados parcelasY_;
    std::size_t contagemX_ = 0; ///< lines of this slip, kept or not
    std::size_t contagemY_ = 0;
};

} // namespace quilatador
