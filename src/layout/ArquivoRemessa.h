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

/// A layout, which is a list of record types, together with access to one file in that layout. First add the record
/// types (see `ArquivoRemessaBD`) and set `anoCorrente`; then either open a file and call `lerRegistro` until it
/// returns a record without name and line, or create one and call `addRegistro`. Only one file is open at a time.
class ArquivoRemessa {
  public:
    explicit ArquivoRemessa(Arquivos& arquivos);
    ArquivoRemessa(const ArquivoRemessa&) = delete;
    ArquivoRemessa& operator=(const ArquivoRemessa&) = delete;

    /// Whether `criarRegistro` and `lerRegistro` return copies of the record types, as they do by default. Without
    /// copies they return the record types themselves, so that all lines of one type are read into the same object.
    [[nodiscard]] bool criarCopias() const noexcept { return criarCopias_; }
    void criarCopias(bool copias) noexcept { criarCopias_ = copias; }
    /// A code for the file, which this class only stores.
    [[nodiscard]] const Texto& codigoArquivo() const noexcept { return codigoArquivo_; }
    void codigoArquivo(Texto codigo) { codigoArquivo_ = std::move(codigo); }
    /// The record types in the order of the layout.
    [[nodiscard]] const std::vector<std::shared_ptr<RegistroRemessa>>& tiposRegistros() const noexcept {
        return tipos_;
    }
    /// The number of records read or written so far. Opening a file does not reset it.
    [[nodiscard]] std::int64_t contador() const noexcept { return contador_; }
    void contador(std::int64_t contador) noexcept { contador_ = contador; }
    /// The year that decides the decade of a one-digit year in a date field; 0 until it is set.
    [[nodiscard]] int anoCorrente() const noexcept { return anoCorrente_; }
    void anoCorrente(int ano) noexcept { anoCorrente_ = ano; }

    /// The record type with this name, or a copy of it (see `criarCopias`). Raises `Falha` 5 for an unknown name.
    [[nodiscard]] std::shared_ptr<RegistroRemessa> criarRegistro(VistaTexto nome);
    /// Adds a record type. Raises `Falha` 457 when there already is one with this name.
    void addTipoRegistro(std::shared_ptr<RegistroRemessa> registro);

    /// Opens a file for reading and closes the one that was open; `desistir` is passed to `LeitorDeLinhas`. Raises the
    /// failures of `Arquivos::abrirEntrada`, with "Gravacao" as their source.
    void abrirArquivoEntrada(const std::filesystem::path& caminho, LeitorDeLinhas::Desistencia desistir = {});
    void fecharArquivoEntrada() noexcept { leitor_.reset(); }
    /// The state of the file that is open for reading, or nothing when no file is.
    [[nodiscard]] std::optional<VersaoDoArquivo> versaoDaEntrada() const noexcept {
        return leitor_ ? std::optional(leitor_->versao()) : std::nullopt;
    }
    /// Reads the next line and returns its record, valid until the next call. `lerCampos` parses all fields at once;
    /// otherwise each is parsed when asked for. The record has no name and no line after the end of the file or for an
    /// empty line, which is not counted. Raises `FalhaDeLeitura` for an unknown type, and `Falha` 1, with "Linha: " and
    /// the count, for an unreadable line.
    [[nodiscard]] RegistroRemessa& lerRegistro(bool lerCampos);
    /// The record that `lerRegistro` returned last. Before the first call it has no name and no line.
    [[nodiscard]] const RegistroRemessa& registroEmMaos() const noexcept { return *emMaos_; }
    /// The record type of that record, as a 0-based index into `tiposRegistros`.
    [[nodiscard]] std::size_t tipoEmMaos() const noexcept { return tipoEmMaos_; }

    /// Creates a file for writing, replaces an existing one and closes the one that was open. Raises the failures of
    /// `Arquivos::criarSaida`, with "Gravacao" as their source.
    void abrirArquivoSaida(const std::filesystem::path& caminho);
    /// Closes the file that is open for writing. Raises `Falha`, with "Gravacao" as its source, when the data could not
    /// be stored.
    void fecharArquivoSaida();
    /// Counts the record and writes its line in capitals without accents, followed by CR LF. Raises `Falha` 52 when no
    /// file is open for writing.
    void addRegistro(RegistroRemessa& registro);
    /// Writes several records in the given order, each as `addRegistro` does.
    void addRegistros(std::span<RegistroRemessa*> registros);

  private:
    /// How to recognize a record type: its lines have this text at this position (1-based). A line may end within the
    /// text.
    struct Marca {
        std::size_t posicao;
        std::size_t tamanho;
        Texto texto;
        std::size_t tipo; ///< index into `tipos_`
    };

    [[nodiscard]] std::optional<std::size_t> reconhecer(VistaTexto linha);
    void prepararMarcas();
    [[nodiscard]] FalhaDeLeitura semTipo(VistaTexto linha) const;
    RegistroRemessa& semRegistro();

    Arquivos& arquivos_;
    bool criarCopias_ = true;
    Texto codigoArquivo_;
    std::vector<std::shared_ptr<RegistroRemessa>> tipos_;
    std::int64_t contador_ = 0;
    int anoCorrente_ = 0;

    std::vector<Marca> marcas_;
    /// The first mark that can match a line, by the character at `posicaoComum_`. Used only when all marks have the
    /// same position.
    std::array<std::uint16_t, 256> primeiraMarca_{};
    std::size_t posicaoComum_ = 0;
    bool marcasDeUmCaractere_ = false; ///< then the first mark that can match does match
    bool marcasProntas_ = false;

    std::optional<LeitorDeLinhas> leitor_;
    std::unique_ptr<ArquivoSaida> saida_;
    RegistroRemessa vazio_;
    std::shared_ptr<RegistroRemessa> copiaEmMaos_;
    RegistroRemessa* emMaos_ = &vazio_;
    std::size_t tipoEmMaos_ = 0;
};

} // namespace quilatador
