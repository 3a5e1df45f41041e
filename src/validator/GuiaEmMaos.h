#pragma once

#include "layout/ArquivoRemessa.h"

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace quilatador {

/// The records S to Y of one slip, gathered line by line: `iniciar` with its S, then `guardar` with each line behind
/// it. A record that the slip lacks has an empty line.
class GuiaEmMaos {
  public:
    /// A slip without records, and without record types: no check can be asked about it.
    GuiaEmMaos() = default;
    /// The same with the record types of a layout, which must live as long. `Falha` 5 where it lacks one.
    explicit GuiaEmMaos(ArquivoRemessa& leiaute);

    /// Forgets the slip in hand and begins the next.
    void iniciar(const RegistroRemessa& registroS);
    /// Whether a slip was begun.
    [[nodiscard]] bool iniciada() const noexcept { return !registroS_.linha().empty(); }
    /// Keeps a record T, U, V or W, in place of an earlier one of the slip.
    void guardar(char letra, const RegistroRemessa& registro);
    /// Keeps a message line; false for one beyond the fourth, which is not kept.
    [[nodiscard]] bool guardarMensagem(const RegistroRemessa& registro);
    /// Keeps an installment; false for one beyond `previstas`, which is not kept.
    [[nodiscard]] bool guardarParcela(const RegistroRemessa& registro, std::size_t previstas);

    [[nodiscard]] const RegistroRemessa& registroS() const noexcept { return registroS_; }
    [[nodiscard]] const RegistroRemessa& registroT() const noexcept { return registroT_; }
    [[nodiscard]] const RegistroRemessa& registroU() const noexcept { return registroU_; }
    [[nodiscard]] const RegistroRemessa& registroV() const noexcept { return registroV_; }
    [[nodiscard]] const RegistroRemessa& registroW() const noexcept { return registroW_; }
    /// Four, those beyond the slip's own without a line.
    [[nodiscard]] std::span<const RegistroRemessa> mensagensX() const noexcept { return mensagensX_; }
    [[nodiscard]] std::span<const RegistroRemessa> parcelasY() const noexcept;

  private:
    [[nodiscard]] RegistroRemessa vazio(VistaTexto nome) const;

    ArquivoRemessa* leiaute_ = nullptr;
    RegistroRemessa registroS_, registroT_, registroU_, registroV_, registroW_;
    std::array<RegistroRemessa, 4> mensagensX_;
    std::vector<RegistroRemessa> parcelasY_; ///< room is made as they come, and used again
    std::size_t contagemX_ = 0;              ///< lines met, kept or not
    std::size_t contagemY_ = 0;
};

} // namespace quilatador
