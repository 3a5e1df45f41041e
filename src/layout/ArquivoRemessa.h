#pragma once

#include "common/Arquivos.h"
#include "common/LeitorDeLinhas.h"
#include "layout/RegistroRemessa.h"
#include "run/Relogio.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

namespace quilatador {

/// A layout, which is a list of record types, together with access to one file in that layout. First add the record
/// types (see `ArquivoRemessaBD`); then either open a file and call `lerRegistro` until it returns a record without
/// name and line, or create one and call `addRegistro`. Only one file is open at a time, and opening or closing any
/// closes it.
class ArquivoRemessa {
  public:
    /// Keeps references: both must outlive this object, and this object must outlive its records.
    ArquivoRemessa(Arquivos& arquivos, const Relogio& relogio);
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
    /// The year that decides the decade of a one-digit year in a date field. It is that of the clock until one is set,
    /// which lets a run read all its records alike even when a new year begins.
    [[nodiscard]] int anoCorrente() const { return anoFixado_ ? *anoFixado_ : anoDe(relogio_.hoje()); }
    void anoCorrente(int ano) noexcept { anoFixado_ = ano; }

    /// The record type with this name, or a copy of it (see `criarCopias`). Raises `Falha` 5 for an unknown name.
    [[nodiscard]] std::shared_ptr<RegistroRemessa> criarRegistro(VistaTexto nome);
    /// Adds a record type. Raises `Falha` 457 when there already is one with this name.
    void addTipoRegistro(std::shared_ptr<RegistroRemessa> registro);

    /// Opens a file for reading; `desistir` is passed to `LeitorDeLinhas`. Raises the failures of
    /// `Arquivos::abrirEntrada` with "Gravacao" as their source and, for 52 to 55, a text of their own; before it those
    /// of `fecharArquivoEntrada`.
    void abrirArquivoEntrada(const std::filesystem::path& caminho, LeitorDeLinhas::Desistencia desistir = {});
    /// Closes the file that is open, whether for reading or for writing. Raises `Falha`, with "Gravacao" as its source,
    /// when what was written could not be stored.
    void fecharArquivoEntrada();
    /// The state of the file that is open for reading, or nothing when no file is.
    [[nodiscard]] std::optional<VersaoDoArquivo> versaoDaEntrada() const noexcept {
        return leitor_ ? std::optional(leitor_->versao()) : std::nullopt;
    }
    /// Reads the next line and returns its record, which no later call changes unless `criarCopias` is false.
    /// `lerCampos` parses all fields at once; otherwise each is parsed when asked for. The record has no name and no
    /// line after the end of the file or for an empty line, which is not counted. Raises `Falha` 52 when no file is
    /// open for reading, `FalhaDeLeitura` for an unknown type and 1, with "Linha: " and the count, for an unreadable
    /// line.
    [[nodiscard]] std::shared_ptr<RegistroRemessa> lerRegistro(bool lerCampos);
    /// The same for a caller that does not keep the record, which is valid until the next call: counting the owners of
    /// every record shows in a large file.
    const RegistroRemessa& avancar(bool lerCampos);
    /// The lazy record of a line that the caller has read by itself, or null if the line is of no known type. It is one
    /// of the record types, valid until the next call, whatever `criarCopias` says, and gets `lugar` as its place in
    /// the file. Nothing is counted.
    [[nodiscard]] const RegistroRemessa* adotarLinha(VistaTexto linha, std::int64_t lugar = 0);
    /// The record that was read last. Before the first call it has no name and no line.
    [[nodiscard]] const RegistroRemessa& registroEmMaos() const noexcept { return *emMaos_; }
    /// The record type of that record, as a 0-based index into `tiposRegistros`.
    [[nodiscard]] std::size_t tipoEmMaos() const noexcept { return tipoEmMaos_; }

    /// Creates a file for writing and replaces an existing one. Raises the failures of `Arquivos::criarSaida`, changed
    /// as those of `abrirArquivoEntrada` are.
    void abrirArquivoSaida(const std::filesystem::path& caminho);
    /// The same as `fecharArquivoEntrada`.
    void fecharArquivoSaida() { fecharArquivoEntrada(); }
    /// Counts the record and writes its line in capitals without accents, followed by CR LF. Raises `Falha` 52 when no
    /// file is open for writing, and the failures of `ArquivoSaida::escrever` with "Gravacao" as their source and, for
    /// 57 and 61, a text of their own.
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

    Arquivos& arquivos_;
    const Relogio& relogio_;
    bool criarCopias_ = true;
    Texto codigoArquivo_;
    std::vector<std::shared_ptr<RegistroRemessa>> tipos_;
    std::int64_t contador_ = 0;
    std::optional<int> anoFixado_;

    std::vector<Marca> marcas_;
    /// The first mark that can match a line, by the character at `posicaoComum_`. Used only when all marks have the
    /// same position.
    std::array<std::uint16_t, 256> primeiraMarca_{};
    std::size_t posicaoComum_ = 0;
    bool marcasDeUmCaractere_ = false; ///< then the first mark that can match does match
    bool marcasProntas_ = false;

    std::optional<LeitorDeLinhas> leitor_;
    std::unique_ptr<ArquivoSaida> saida_;
    std::shared_ptr<RegistroRemessa> foraDosTipos_ =
        std::make_shared<RegistroRemessa>(); ///< the last copy, or no record
    RegistroRemessa* emMaos_ = foraDosTipos_.get();
    std::size_t tipoEmMaos_ = 0;
};

} // namespace quilatador
