#pragma once

#include "common/Texto.h"
#include "common/Valor.h"

#include <cstdint>

namespace quilatador {

class RegistroRemessa;

/// One fixed-width field of a record type: where it lies in the line, how wide it is, what it holds, and the value
/// last read or given. Properties have a reader and a writer of the same name.
class CampoRemessa {
  public:
    /// 1 aligns a text to the right (padding on the left); any other value to the left. Only for `natureza` "S".
    [[nodiscard]] std::uint8_t alinhamento() const noexcept { return alinhamento_; }
    void alinhamento(std::uint8_t alinhamento) noexcept { alinhamento_ = alinhamento; }
    /// The record type that owns the field; set by `RegistroRemessa::add`, null before.
    [[nodiscard]] const RegistroRemessa* registroPai() const noexcept { return registroPai_; }
    void registroPai(const RegistroRemessa* registro) noexcept { registroPai_ = registro; }
    /// Key of the field in its record type; stands in error texts.
    [[nodiscard]] const Texto& nome() const noexcept { return nome_; }
    void nome(Texto nome) { nome_ = std::move(nome); }
    /// Date format ("AAAAMMDD", "AAMMDD", "DDMMAAAA", "DDMMAA", "ADDD"; A year, M month, D day), only for "D".
    [[nodiscard]] const Texto& formato() const noexcept { return formato_; }
    void formato(Texto formato) { formato_ = std::move(formato); }
    /// First and last position in the line, 1-based, inclusive; kept by `RegistroRemessa::add`.
    [[nodiscard]] std::int16_t inicio() const noexcept { return inicio_; }
    void inicio(std::int16_t inicio) noexcept { inicio_ = inicio; }
    [[nodiscard]] std::int16_t Fim() const noexcept { return fim_; }
    void Fim(std::int16_t fim) noexcept { fim_ = fim; }
    /// Implied decimal places of a number.
    [[nodiscard]] std::uint8_t numeroDecimais() const noexcept { return numeroDecimais_; }
    void numeroDecimais(std::uint8_t decimais) noexcept { numeroDecimais_ = decimais; }
    /// Width in characters.
    [[nodiscard]] std::int16_t Tamanho() const noexcept { return tamanho_; }
    void Tamanho(std::int16_t tamanho) noexcept { tamanho_ = tamanho; }
    /// "S" text, "N" number, "D" date, "R" sequence number of the record; any other code is not converted.
    [[nodiscard]] const Texto& natureza() const noexcept { return natureza_; }
    void natureza(Texto natureza);
    /// The value as stored, never coerced.
    [[nodiscard]] const quilatador::Valor& Valor() const noexcept { return valor_; }
    void Valor(quilatador::Valor valor) { valor_ = std::move(valor); }

    /// The value that the field's text stands for; the field itself does not change. A blank or all-zero date is null;
    /// a field of an unknown `natureza` gives its stored value. `anoCorrente` decides the decade of "ADDD".
    /// `Falha` 1 ("CampoRemessa") for a number or date that is none.
    [[nodiscard]] quilatador::Valor interpretar(VistaTexto texto, int anoCorrente) const;
    /// Stores what `interpretar` gives; after a failure the field keeps its value.
    void lerTexto(VistaTexto texto, int anoCorrente) { valor_ = interpretar(texto, anoCorrente); }
    /// The value in exactly `Tamanho` characters. A number is floored, and loses its high digits where it is too long.
    /// An unusable number becomes 0 and a null text "" in the field too. `Falha` 5 where a sequence number is longer
    /// than the field, 6 where a number with its decimal places is past all limits.
    [[nodiscard]] Texto gerarTexto();
    /// A field of the same definition and value, without positions and owner.
    [[nodiscard]] CampoRemessa copia() const;

  private:
    enum class Tipo : std::uint8_t { DeTexto, DeNumero, DeData, DeContador, SemConversao };

    [[nodiscard]] quilatador::Valor interpretarNumero(VistaTexto texto) const;
    [[nodiscard]] quilatador::Valor interpretarData(VistaTexto texto, int anoCorrente) const;
    [[nodiscard]] Texto gerarNumero();
    [[nodiscard]] Texto gerarData() const;
    [[nodiscard]] Texto gerarContador() const;
    /// The text with every character `de` replaced by `para`.
    [[nodiscard]] static Texto substituirCaractere(VistaTexto texto, char de, char para);

    Tipo tipo_ = Tipo::SemConversao; ///< what `natureza_` means
    std::uint8_t alinhamento_ = 0;
    std::uint8_t numeroDecimais_ = 0;
    std::int16_t inicio_ = 0;
    std::int16_t fim_ = 0;
    std::int16_t tamanho_ = 0;
    const RegistroRemessa* registroPai_ = nullptr;
    Texto nome_;
    Texto formato_;
    Texto natureza_;
    quilatador::Valor valor_;
};

} // namespace quilatador
