#pragma once

#include "common/Arquivos.h"
#include "common/LeitorDeLinhas.h"
#include "layout/RegistroRemessa.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

namespace quilatador {

/// A layout (its record types) and, with it, sequential access to one file: line by line, each line recognised as its
/// record type. One file is open at a time, for reading or for writing.
class ArquivoRemessa {
  public:
    explicit ArquivoRemessa(Arquivos& arquivos);
    ArquivoRemessa(const ArquivoRemessa&) = delete;
    ArquivoRemessa& operator=(const ArquivoRemessa&) = delete;

    /// Whether `criarRegistro` and `lerRegistro` hand out copies of the record types (the default) or the record types
    /// themselves, in which case every line of one type is read into the same object.
    [[nodiscard]] bool criarCopias() const noexcept { return criarCopias_; }
    void criarCopias(bool copias) noexcept { criarCopias_ = copias; }
    /// A code of the file, kept for whoever wants it.
    [[nodiscard]] const Texto& codigoArquivo() const noexcept { return codigoArquivo_; }
    void codigoArquivo(Texto codigo) { codigoArquivo_ = std::move(codigo); }
    /// The record types in layout order.
    [[nodiscard]] const std::vector<std::shared_ptr<RegistroRemessa>>& tiposRegistros() const noexcept {
        return tipos_;
    }
    /// Records read or written so far. Opening a file does not reset it.
    [[nodiscard]] std::int32_t contador() const noexcept { return contador_; }
    void contador(std::int32_t contador) noexcept { contador_ = contador; }
    /// The year that decides the decade of a one-digit year; 0 until it is set.
    [[nodiscard]] int anoCorrente() const noexcept { return anoCorrente_; }
    void anoCorrente(int ano) noexcept { anoCorrente_ = ano; }

    /// The record type of that name, or a copy of it (`criarCopias`). `Falha` 5 for an unknown name.
    [[nodiscard]] std::shared_ptr<RegistroRemessa> criarRegistro(VistaTexto nome);
    /// Adds a record type. `Falha` 457 where one of that name is there already.
    void addTipoRegistro(std::shared_ptr<RegistroRemessa> registro);

    /// Opens a file to read, `desistir` as for `LeitorDeLinhas`. `Falha` ("Gravacao") with the number of the
    /// file-system condition.
    void abrirArquivoEntrada(const std::filesystem::path& caminho, LeitorDeLinhas::Desistencia desistir = {});
    void fecharArquivoEntrada() noexcept { leitor_.reset(); }
    /// The state of the file that is open to read; none where none is.
    [[nodiscard]] std::optional<VersaoDoArquivo> versaoDaEntrada() const noexcept {
        return leitor_ ? std::optional(leitor_->versao()) : std::nullopt;
    }
    /// The record of the next line, valid until the next call: eager with `lerCampos`, else lazy. A record without
    /// name and line where the line is empty (it is not counted) or the file has ended. `Falha` 1: "Tipo de registro
    /// não identificado!", or with "Linha: " and the count in front for a line that cannot be read.
    [[nodiscard]] RegistroRemessa& lerRegistro(bool lerCampos);
    /// That record again; before the first call one without name and line.
    [[nodiscard]] const RegistroRemessa& registroEmMaos() const noexcept { return *emMaos_; }
    /// The record type, as its place in `tiposRegistros` (0-based), of the record that `lerRegistro` gave last.
    [[nodiscard]] std::size_t tipoEmMaos() const noexcept { return tipoEmMaos_; }

    /// Opens a file to write, replacing what was there. Same failures as for reading.
    void abrirArquivoSaida(const std::filesystem::path& caminho);
    /// Closes it. `Falha` ("Gravacao") where what was written could not be kept.
    void fecharArquivoSaida();
    /// Counts a record and writes its line, in capitals without accents, with CR LF.
    void addRegistro(RegistroRemessa& registro);
    void addRegistros(std::span<RegistroRemessa*> registros);

  private:
    /// What tells a record type: the text that its lines have at one position (1-based), cut where the line ends.
    struct Marca {
        std::size_t posicao;
        std::size_t tamanho;
        Texto texto;
        std::size_t tipo; ///< place in `tipos_`
    };

    [[nodiscard]] std::optional<std::size_t> reconhecer(VistaTexto linha);
    void prepararMarcas();
    RegistroRemessa& semRegistro();

    Arquivos& arquivos_;
    bool criarCopias_ = true;
    Texto codigoArquivo_;
    std::vector<std::shared_ptr<RegistroRemessa>> tipos_;
    std::int32_t contador_ = 0;
    int anoCorrente_ = 0;

    std::vector<Marca> marcas_;
    /// First mark that can match a line, by the character at `posicaoComum_`; only where all marks share a position.
    std::array<std::uint16_t, 256> primeiraMarca_{};
    std::size_t posicaoComum_ = 0;
    bool marcasDeUmCaractere_ = false; ///< so that the first mark that can match does
    bool marcasProntas_ = false;

    std::optional<LeitorDeLinhas> leitor_;
    std::unique_ptr<ArquivoSaida> saida_;
    RegistroRemessa vazio_;
    std::shared_ptr<RegistroRemessa> copiaEmMaos_;
    RegistroRemessa* emMaos_ = &vazio_;
    std::size_t tipoEmMaos_ = 0;
};

} // namespace quilatador
