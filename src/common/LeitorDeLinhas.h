#pragma once

#include "common/Arquivos.h"
#include "common/MemoriaAlinhada.h"
#include "common/Texto.h"

#include <functional>
#include <memory>
#include <optional>

namespace quilatador {

/// The lines of a text file, read in large blocks. A line ends in CR LF, LF or CR, also mixed; the last one needs no
/// end. A Ctrl-Z (1A hex) ends the file.
class LeitorDeLinhas {
  public:
    /// A longer line comes cut to this length, more than any record can have: memory does not depend on the input.
    static constexpr std::size_t maiorLinha = 64 * 1024;

    /// Asked now and then while the rest of a line that is too long is dropped; true ends the reading there.
    using Desistencia = std::function<bool()>;

    explicit LeitorDeLinhas(std::unique_ptr<ArquivoEntrada> arquivo, Desistencia desistir = {});

    /// The next line without its end, valid until the next call; none at the end of the file. `Falha` of
    /// `ArquivoEntrada::ler`.
    [[nodiscard]] std::optional<VistaTexto> proxima();
    [[nodiscard]] VersaoDoArquivo versao() const noexcept { return arquivo_->versao(); }

  private:
    [[nodiscard]] bool comoAAnterior() const noexcept;
    [[nodiscard]] std::size_t procurarFim(std::size_t desde) const noexcept;
    bool encher();
    [[nodiscard]] std::size_t lerBloco();
    void saltarResto();
    std::optional<VistaTexto> terminarEm(std::size_t fimDaLinha);

    std::unique_ptr<ArquivoEntrada> arquivo_;
    Desistencia desistir_;
    MemoriaAlinhada bloco_;
    std::size_t inicio_ = 0; ///< of the bytes not yet given out
    std::size_t fim_ = 0;
    std::size_t tamanhoAnterior_ = 0;
    bool acabou_ = false;   ///< nothing more comes from the file
    bool saltarLF_ = false; ///< the last line ended in a CR, whose LF may still come
};

} // namespace quilatador
