#pragma once

#include "common/Texto.h"
#include "common/Valor.h"
#include "run/FalhaDeLeitura.h"

#include <cstdint>

namespace quilatador {

class RegistroRemessa;

/// One fixed-width field of a record type: its place in the line, its type, and the value that was last read or set.
/// Set the properties, then add the field to a `RegistroRemessa`, which determines its position. A property is read and
/// written by two functions of the same name.
class CampoRemessa {
  public:
    /// Alignment of a text (`natureza` "S"): 1 aligns it to the right, any other value to the left.
    [[nodiscard]] std::uint8_t alinhamento() const noexcept { return alinhamento_; }
    void alinhamento(std::uint8_t alinhamento) noexcept { alinhamento_ = alinhamento; }
    /// The record type that owns the field. `RegistroRemessa::add` sets it; before that it is null.
    [[nodiscard]] const RegistroRemessa* registroPai() const noexcept { return registroPai_; }
    void registroPai(const RegistroRemessa* registro) noexcept { registroPai_ = registro; }
    /// The name of the field, which is unique in its record type. Error texts contain it.
    [[nodiscard]] const Texto& nome() const noexcept { return nome_; }
    void nome(Texto nome) { nome_ = std::move(nome); }
    /// The format of a date (`natureza` "D"): "AAAAMMDD", "AAMMDD", "DDMMAAAA", "DDMMAA" or "ADDD", where A stands for
    /// the year, M for the month and D for the day (DDD is the day of the year).
    [[nodiscard]] const Texto& formato() const noexcept { return formato_; }
    void formato(Texto formato) { formato_ = std::move(formato); }
    /// The first and last position in the line, 1-based and inclusive. `RegistroRemessa::add` sets them.
    [[nodiscard]] std::int16_t inicio() const noexcept { return inicio_; }
    void inicio(std::int16_t inicio) noexcept { inicio_ = inicio; }
    [[nodiscard]] std::int16_t Fim() const noexcept { return fim_; }
    void Fim(std::int16_t fim) noexcept { fim_ = fim; }
    /// The number of implied decimal places of a number: with 2, the text "150" means 1.5.
    [[nodiscard]] std::uint8_t numeroDecimais() const noexcept { return numeroDecimais_; }
    void numeroDecimais(std::uint8_t decimais) noexcept { numeroDecimais_ = decimais; }
    /// The width in characters.
    [[nodiscard]] std::int16_t Tamanho() const noexcept { return tamanho_; }
    void Tamanho(std::int16_t tamanho) noexcept { tamanho_ = tamanho; }
    /// The type of the field: "S" is a text, "N" a number, "D" a date and "R" the sequence number of the record. A
    /// field with any other code is not converted.
    [[nodiscard]] const Texto& natureza() const noexcept { return natureza_; }
    void natureza(Texto natureza);
    /// The value as it was stored, without any conversion.
    [[nodiscard]] const quilatador::Valor& Valor() const noexcept { return valor_; }
    void Valor(quilatador::Valor valor) { valor_ = std::move(valor); }

    /// Converts a text to the value that it means for this field, without changing the field. A blank or all-zero date
    /// is null, and a field of unknown `natureza` gives its stored value. The decade of "ADDD" follows from
    /// `RegistroRemessa::anoCorrente`. Raises `FalhaDeLeitura` (number 1, source "CampoRemessa", without a line) for an
    /// invalid number or date, which any "ADDD" is as long as no record with a clock owns the field.
    [[nodiscard]] quilatador::Valor interpretar(VistaTexto texto) const;
    /// Stores the result of `interpretar`. After a failure the field keeps its old value.
    void lerTexto(VistaTexto texto) { valor_ = interpretar(texto); }
    /// The value as text in `Tamanho` characters (a date in the length of its format). A number loses excess decimals
    /// and excess digits on the left. An unusable number becomes 0 and a null text "", also in the field. Raises
    /// `Falha` 5 when a sequence number is too long, 6 when a number with its decimal places is too large.
    [[nodiscard]] Texto gerarTexto();
    /// A field with the same definition and value, but without position and owner.
    [[nodiscard]] CampoRemessa copia() const;

  private:
    enum class Tipo : std::uint8_t { DeTexto, DeNumero, DeData, DeContador, SemConversao };

    [[nodiscard]] quilatador::Valor interpretarNumero(VistaTexto texto) const;
    [[nodiscard]] double comDecimais(double digitos) const noexcept;
    [[nodiscard]] quilatador::Valor interpretarData(VistaTexto texto) const;
    [[nodiscard]] FalhaDeLeitura naoLido(VistaTexto id, VistaTexto texto, VistaTexto motivo) const;
    [[nodiscard]] Texto gerarNumero();
    [[nodiscard]] Texto gerarData() const;
    [[nodiscard]] Texto gerarContador() const;
    /// The text with each character `de` replaced by `para`.
    [[nodiscard]] static Texto substituirCaractere(VistaTexto texto, char de, char para);

    Tipo tipo_ = Tipo::SemConversao; ///< the meaning of `natureza_`
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
