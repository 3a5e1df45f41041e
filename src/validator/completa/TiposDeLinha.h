#pragma once

#include "layout/ArquivoRemessa.h"

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace quilatador {

/// One record type of a layout, with the fields that are needed of every line looked up once.
struct TipoDeLinha {
    const RegistroRemessa* registro; ///< holds the line that was recognised last
    char letra;                      ///< NUL if its identifying content is not one character
    const CampoRemessa* sequencial;  ///< null where the type lacks the field, as the next two
    const CampoRemessa* convenio;
    const CampoRemessa* idRegistro;
    std::vector<const CampoRemessa*> julianas; ///< dates in the format "ADDD"

    [[nodiscard]] bool temTamanho(VistaTexto linha) const noexcept {
        return linha.size() == static_cast<std::size_t>(registro->Tamanho());
    }
};

/// Recognises the lines of a remittance.
class TiposDeLinha {
  public:
    /// `leiaute` must outlive this object.
    explicit TiposDeLinha(ArquivoRemessa& leiaute);

    /// The type of a line, whose record then holds the line and its place (1-based); null if it is of no known one.
    [[nodiscard]] const TipoDeLinha* reconhecer(VistaTexto linha, std::int64_t lugar = 0);
    /// The type of a line in front of which up to three bytes are too many; null if that makes none of the right
    /// length.
    [[nodiscard]] const TipoDeLinha* reconhecerDeslocada(VistaTexto linha, std::int64_t lugar);
    /// What the sequence number of a line says; nothing if the line is of no known type, has another length, or has no
    /// number there.
    [[nodiscard]] std::optional<std::int64_t> sequencialDe(VistaTexto linha);
    /// The length that most lines must have.
    [[nodiscard]] std::size_t tamanhoUsual() const noexcept { return tamanhoUsual_; }

  private:
    ArquivoRemessa& leiaute_;
    std::vector<TipoDeLinha> tipos_;                 ///< in the order of the layout
    std::array<const TipoDeLinha*, 256> provavel_{}; ///< by the first character of a line: the type met last with it
    std::size_t tamanhoUsual_ = 0;
};

/// The sequence number of a record; nothing if it has none or cannot be read.
[[nodiscard]] std::optional<std::int64_t> sequencialDo(const TipoDeLinha& tipo);

} // namespace quilatador
