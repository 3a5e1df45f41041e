#pragma once

#include "common/Arquivos.h"
#include "common/MemoriaAlinhada.h"
#include "common/Texto.h"

#include <functional>
#include <memory>
#include <optional>

namespace quilatador {

/// Reads a text file line by line, fetching it in large blocks. A line ends in CR LF, LF or CR, even mixed within one
/// file; the last line needs no end. A Ctrl-Z (1A hex) ends the file.
class LeitorDeLinhas {
  public:
    /// Longer lines are cut to this many characters, far more than any record has, so that memory does not grow with
    /// the input. The rest of such a line is read only when the next one is asked for.
    static constexpr std::size_t maiorLinha = 64 * 1024;

    /// Called now and then while the rest of a line that is too long is skipped. When it returns true, the file ends
    /// there, so whoever passes one must ask, at the end of the file, whether it is the true end.
    using Desistencia = std::function<bool()>;

    /// Reads from the start of an open file, which the reader takes over. Without `desistir`, a long line is skipped to
    /// its end.
    explicit LeitorDeLinhas(std::unique_ptr<ArquivoEntrada> arquivo, Desistencia desistir = {});

    /// The next line without its end mark, valid until the next call; nothing at the end of the file. Raises the
    /// failures of `ArquivoEntrada::ler`.
    [[nodiscard]] std::optional<VistaTexto> proxima();
    /// Whether the lines have ended at a Ctrl-Z.
    [[nodiscard]] bool terminouEmCtrlZ() const noexcept { return terminouEmCtrlZ_; }
    /// The state of the file at this moment; see `ArquivoEntrada::versao`.
    [[nodiscard]] VersaoDoArquivo versao() const noexcept { return arquivo_->versao(); }

  private:
    [[nodiscard]] bool comoAAnterior() const noexcept;
    [[nodiscard]] std::size_t procurarFim(std::size_t desde) const noexcept;
    bool encher();
    [[nodiscard]] std::size_t lerBloco();
    [[nodiscard]] VistaTexto cortar();
    void saltarResto();
    std::optional<VistaTexto> terminarEm(std::size_t fimDaLinha);

    std::unique_ptr<ArquivoEntrada> arquivo_;
    Desistencia desistir_;
    MemoriaAlinhada bloco_;
    std::size_t inicio_ = 0; ///< start of the bytes that have not been returned yet
    std::size_t fim_ = 0;
    std::size_t tamanhoAnterior_ = 0;
    bool terminouEmCtrlZ_ = false;
    bool acabou_ = false;   ///< the file has no more bytes to give
    bool saltarLF_ = false; ///< the last line ended in a CR, and the LF that belongs to it may still follow
    bool cortada_ = false;  ///< the last line was too long, and its rest follows
};

} // namespace quilatador
