#pragma once

#include "layout/CampoRemessa.h"
#include "layout/IndiceDeNomes.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace quilatador {

class ArquivoRemessa;
class Relogio;

/// One record type ("segment") of a fixed-width layout, or a record that was read from a line of that type.
///
/// An eager record comes from `lerLinha`: the values are in its fields, and `linha` is empty. A lazy record has only
/// `linha`; a field is parsed each time its value is asked for. Through a record that must not be changed nothing is
/// stored then, so that a record type can serve as the current record and keep the content that identifies it.
class RegistroRemessa {
  public:
    RegistroRemessa() = default;
    /// A record that needs no layout to read "ADDD": `relogio` gives the current year, and must outlive the record and
    /// its copies.
    explicit RegistroRemessa(const Relogio& relogio) noexcept : relogio_(&relogio) {}
    RegistroRemessa(RegistroRemessa&& outro) noexcept;
    RegistroRemessa& operator=(RegistroRemessa&& outro) noexcept;

    /// The line of a lazy record, or "" for an eager one.
    [[nodiscard]] const Texto& linha() const noexcept { return linha_; }
    void linha(VistaTexto linha) { linha_.assign(linha); }
    /// Where the record stands in its file: the number of its line, 1-based, whatever the record itself says. Only who
    /// reads a file knows it and sets it; 0 until then.
    [[nodiscard]] std::int64_t lugar() const noexcept { return lugar_; }
    void lugar(std::int64_t lugar) noexcept { lugar_ = lugar; }
    /// The fields in line order; each starts right after the one before.
    [[nodiscard]] const std::vector<std::unique_ptr<CampoRemessa>>& campos() const noexcept { return campos_; }
    /// The name of the field that identifies this record type. The `Valor` of that field is the content that the lines
    /// must have there.
    [[nodiscard]] const Texto& identificador() const noexcept { return identificador_; }
    void identificador(Texto nomeCampo) { identificador_ = std::move(nomeCampo); }
    /// The layout that owns the record, or null when it belongs to none.
    [[nodiscard]] const quilatador::ArquivoRemessa* ArquivoRemessa() const noexcept { return arquivo_; }
    void ArquivoRemessa(const quilatador::ArquivoRemessa* arquivo) noexcept { arquivo_ = arquivo; }
    /// The name of the record type, which is unique in its layout.
    [[nodiscard]] const Texto& nome() const noexcept { return nome_; }
    void nome(Texto nome) { nome_ = std::move(nome); }
    /// The sum of the widths of the fields added so far.
    [[nodiscard]] std::int16_t tamanhoAtual() const noexcept { return tamanhoAtual_; }
    void tamanhoAtual(std::int16_t tamanho) noexcept { tamanhoAtual_ = tamanho; }
    /// The length that a line must have, in characters.
    [[nodiscard]] std::int16_t Tamanho() const noexcept { return tamanho_; }
    void Tamanho(std::int16_t tamanho) noexcept { tamanho_ = tamanho; }

    /// The year that decides the decade of a one-digit year in a date field: that of the layout, or without one that of
    /// the record's own clock; 0 without either.
    [[nodiscard]] int anoCorrente() const;

    /// Appends a field after the last one and returns the stored field. Nothing compares the sum of the widths with
    /// `Tamanho`: what lies behind the end of a line reads as an empty text. Raises `Falha` 457 when there already is a
    /// field with this name (`tamanhoAtual` has grown nevertheless), 6 when a position would exceed 32767.
    CampoRemessa& add(CampoRemessa campo);
    /// Whether the line has the expected content in the identifying field. Raises `Falha` 5 when the record has no such
    /// field.
    [[nodiscard]] bool isRegistroTipo(VistaTexto linha) const;
    /// Reads all fields of a line. Raises `Falha` 1, its text beginning with "Segmento=" and the identifying content,
    /// for a line of the wrong length (then no field is read) or for the first invalid field (then the fields before it
    /// have been read).
    void lerLinha(VistaTexto linha);
    /// The texts of all fields in line order. Raises the failures of `CampoRemessa::gerarTexto`.
    [[nodiscard]] Texto gerarLinha();

    /// The value of a field, which the field of a lazy record then keeps if the record may be changed. Raises `Falha` 5
    /// when the record has no field with this name, `FalhaDeLeitura` with the place of the record when the field cannot
    /// be read. Upper and lower case do not matter in field names, here and in the functions below.
    [[nodiscard]] Valor getValorCampo(VistaTexto nomeCampo);
    [[nodiscard]] Valor getValorCampo(VistaTexto nomeCampo) const;
    /// The text of a field as it is in the line, with its blanks and without any check. In an eager record it is the
    /// text generated from the value.
    [[nodiscard]] Texto getValorCampoString(VistaTexto nomeCampo) const;
    /// Stores the value of a field, or returns the field itself, with the value that it has by then. Raises `Falha` 5
    /// when the record has no such field.
    void setValorCampo(VistaTexto nomeCampo, Valor valor);
    [[nodiscard]] CampoRemessa& obterCampo(VistaTexto nomeCampo) { return campo(nomeCampo); }
    [[nodiscard]] const CampoRemessa& obterCampo(VistaTexto nomeCampo) const { return campo(nomeCampo); }
    /// Always 0, because the operation was never completed; nothing may depend on it. Kept on purpose.
    [[nodiscard]] std::int16_t obterPosicaoCampo(VistaTexto nomeCampo) const noexcept;

    /// The 0-based index of a field in `campos`, or nothing when the record has no such field. It lets code that runs
    /// for every line look a field up only once.
    [[nodiscard]] std::optional<std::size_t> indiceDoCampo(VistaTexto nomeCampo) const noexcept;
    /// The field with this name, or null when the record has no such field.
    [[nodiscard]] const CampoRemessa* procurarCampo(VistaTexto nomeCampo) const noexcept { return procurar(nomeCampo); }
    /// The value and the text of a field that was looked up before; otherwise like the functions that take a name.
    [[nodiscard]] Valor getValorCampo(const CampoRemessa& campo) const;
    /// The text of a field in the line of a lazy record.
    [[nodiscard]] VistaTexto textoNaLinha(const CampoRemessa& campo) const noexcept {
        return textoDoCampo(linha_, campo);
    }

    /// Where a lazy record stands: the number of its line (1-based) as its sequence number says, 0 when that cannot be
    /// read; and its letter, NUL when the identifying field is not exactly one character.
    [[nodiscard]] std::int64_t numeroDaLinha() const;
    [[nodiscard]] char letra() const noexcept;

    /// A copy that shares nothing with this record.
    [[nodiscard]] RegistroRemessa copia() const;
    /// Copies the content to `destino`: the line of a lazy record and its place, or all values of an eager one. Raises
    /// `Falha` 5 when the destination lacks a field.
    void copiar(RegistroRemessa& destino) const;

  private:
    [[nodiscard]] static VistaTexto textoDoCampo(VistaTexto linha, const CampoRemessa& campo) noexcept {
        const int tamanho = campo.Fim() - campo.inicio() + 1;
        if (campo.inicio() < 1 || tamanho < 1) return {};
        return trecho(linha, static_cast<std::size_t>(campo.inicio()), static_cast<std::size_t>(tamanho));
    }
    [[nodiscard]] CampoRemessa* procurar(VistaTexto nomeCampo) const noexcept;
    [[nodiscard]] CampoRemessa* procurarSemCaixa(VistaTexto nomeCampo) const noexcept;
    [[nodiscard]] CampoRemessa& campo(VistaTexto nomeCampo) const;
    void adotarCampos() noexcept;

    Texto linha_;
    std::int64_t lugar_ = 0;
    std::vector<std::unique_ptr<CampoRemessa>> campos_;
    IndiceDeNomes nomes_; ///< of the fields
    Texto identificador_;
    const Relogio* relogio_ = nullptr;
    const quilatador::ArquivoRemessa* arquivo_ = nullptr;
    Texto nome_;
    std::int16_t tamanhoAtual_ = 0;
    std::int16_t tamanho_ = 0;
};

} // namespace quilatador
