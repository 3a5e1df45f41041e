#pragma once

#include "layout/CampoRemessa.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace quilatador {

class ArquivoRemessa;

/// One record type ("segment") of a fixed-width layout, or a record read from one line of that type.
///
/// A record that was read eagerly (`lerLinha`) has its values in the fields and no `linha`. A lazy one has only
/// `linha`, and a field is parsed when it is asked for; what is parsed is not stored, so that a template which also
/// serves as the record in hand keeps the content that identifies it.
class RegistroRemessa {
  public:
    RegistroRemessa() = default;
    RegistroRemessa(RegistroRemessa&& outro) noexcept;
    RegistroRemessa& operator=(RegistroRemessa&& outro) noexcept;

    /// The line of a lazy record; "" in an eager one.
    [[nodiscard]] const Texto& linha() const noexcept { return linha_; }
    void linha(VistaTexto linha) { linha_.assign(linha); }
    /// The fields in line order: each starts right behind the one before.
    [[nodiscard]] const std::vector<std::unique_ptr<CampoRemessa>>& campos() const noexcept { return campos_; }
    /// Name of the field whose content tells this record type; that field's `Valor` is the content expected.
    [[nodiscard]] const Texto& identificador() const noexcept { return identificador_; }
    void identificador(Texto nomeCampo) { identificador_ = std::move(nomeCampo); }
    /// The layout that owns the record; null for one on its own.
    [[nodiscard]] const quilatador::ArquivoRemessa* ArquivoRemessa() const noexcept { return arquivo_; }
    void ArquivoRemessa(const quilatador::ArquivoRemessa* arquivo) noexcept { arquivo_ = arquivo; }
    [[nodiscard]] const Texto& nome() const noexcept { return nome_; }
    void nome(Texto nome) { nome_ = std::move(nome); }
    /// Sum of the widths of the fields added so far.
    [[nodiscard]] std::int16_t tamanhoAtual() const noexcept { return tamanhoAtual_; }
    void tamanhoAtual(std::int16_t tamanho) noexcept { tamanhoAtual_ = tamanho; }
    /// Length that a line must have, in characters.
    [[nodiscard]] std::int16_t Tamanho() const noexcept { return tamanho_; }
    void Tamanho(std::int16_t tamanho) noexcept { tamanho_ = tamanho; }

    /// Appends a field right behind the last one and gives back the one stored. `Falha` 457 where a field of that
    /// name is there already (`tamanhoAtual` has grown all the same), 6 where the line would pass 32767 characters.
    CampoRemessa& add(CampoRemessa campo);
    /// Whether a line has the content expected in the identifying field. `Falha` 5 where that field is missing.
    [[nodiscard]] bool isRegistroTipo(VistaTexto linha) const;
    /// Reads all fields of a line. `Falha` 1 ("RegistroRemessa") with "Segmento=" and the identifying content in
    /// front: for a line of another length ("Tamanho de linha incompatível!", no field is read) and for the first
    /// field that is wrong (those before it are read).
    void lerLinha(VistaTexto linha);
    /// The texts of all fields, one behind the other.
    [[nodiscard]] Texto gerarLinha();

    /// A field's value. `Falha` 5 for a name that the record lacks, 1 for a field that cannot be read. Names ignore
    /// letter case here and below.
    [[nodiscard]] Valor getValorCampo(VistaTexto nomeCampo) const;
    /// A field's raw text in the line, untrimmed and unchecked; in an eager record the text of its value.
    [[nodiscard]] Texto getValorCampoString(VistaTexto nomeCampo) const;
    void setValorCampo(VistaTexto nomeCampo, Valor valor);
    [[nodiscard]] const CampoRemessa& obterCampo(VistaTexto nomeCampo) const;
    /// Always 0: the operation was never completed, and nothing may depend on it. Kept on purpose.
    [[nodiscard]] std::int16_t obterPosicaoCampo(VistaTexto nomeCampo) const noexcept;

    /// Where a field stands among `campos` (0-based), none where the record lacks it: look-ups that are made for
    /// every line are made once this way.
    [[nodiscard]] std::optional<std::size_t> indiceDoCampo(VistaTexto nomeCampo) const noexcept;
    /// The same as by name, for a field found before.
    [[nodiscard]] Valor getValorCampo(const CampoRemessa& campo) const;
    /// Raw text of a field in the line of a lazy record.
    [[nodiscard]] VistaTexto textoNaLinha(const CampoRemessa& campo) const noexcept {
        return textoDoCampo(linha_, campo);
    }

    /// A deep copy.
    [[nodiscard]] RegistroRemessa copia() const;
    /// Gives this record's content to `destino`: only the line of a lazy one, all values of an eager one (`Falha` 5
    /// where the destination lacks a field).
    void copiar(RegistroRemessa& destino) const;

  private:
    [[nodiscard]] static VistaTexto textoDoCampo(VistaTexto linha, const CampoRemessa& campo) noexcept {
        const int tamanho = campo.Fim() - campo.inicio() + 1;
        if (campo.inicio() < 1 || tamanho < 1) return {};
        return trecho(linha, static_cast<std::size_t>(campo.inicio()), static_cast<std::size_t>(tamanho));
    }
    [[nodiscard]] CampoRemessa& campo(VistaTexto nomeCampo) const;
    [[nodiscard]] int anoCorrente() const noexcept;
    void adotarCampos() noexcept;

    Texto linha_;
    std::vector<std::unique_ptr<CampoRemessa>> campos_;
    Texto identificador_;
    const quilatador::ArquivoRemessa* arquivo_ = nullptr;
    Texto nome_;
    std::int16_t tamanhoAtual_ = 0;
    std::int16_t tamanho_ = 0;
};

} // namespace quilatador
