#pragma once

#include "common/LeitorDeLinhas.h"
#include "run/Ambiente.h"

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace quilatador {

/// Goes through all lines of a remittance, empty ones among them, whatever is wrong with the file as a whole. The
/// display is told as in the phase of a run. This is for questions that are answered without a run and its log.
///
/// Order of use: `proxima` until it returns nothing or the answer is known, then `terminar`.
class PercursoDeLinhas {
  public:
    /// Opens the file. `cancelado` belongs to the caller, as in `Rodada`. The surroundings and `cancelado` must outlive
    /// this object. Raises the failures of `Arquivos::abrirEntrada`.
    PercursoDeLinhas(const Ambiente& ambiente, std::filesystem::path arquivo, const std::atomic<bool>& cancelado);
    PercursoDeLinhas(const PercursoDeLinhas&) = delete;
    PercursoDeLinhas& operator=(const PercursoDeLinhas&) = delete;

    /// The next line, valid until the next call; nothing at the end of the file and once the user has cancelled. Raises
    /// the failures of `ArquivoEntrada::ler`.
    [[nodiscard]] std::optional<VistaTexto> proxima();
    /// The state of the file when it was opened.
    [[nodiscard]] const VersaoDoArquivo& versao() const noexcept { return versao_; }
    /// Whether the lines ended at a Ctrl-Z (1A hex), behind which nothing is read.
    [[nodiscard]] bool terminouEmCtrlZ() const noexcept { return leitor_.terminouEmCtrlZ(); }
    /// How many lines have been read: the number of the last one, 1-based.
    [[nodiscard]] std::int64_t lidas() const noexcept { return progresso_.registroAtual; }
    /// Ends the phase. Returns false if the user has cancelled, so that what was read is not all. Raises `Falha` 65
    /// when the file was changed meanwhile.
    [[nodiscard]] bool terminar();

  private:
    [[nodiscard]] bool cancelado() const noexcept { return cancelado_.load(std::memory_order_relaxed); }

    const Ambiente& ambiente_;
    std::filesystem::path arquivo_;
    const std::atomic<bool>& cancelado_;
    LeitorDeLinhas leitor_;
    VersaoDoArquivo versao_;
    Progresso progresso_;
};

} // namespace quilatador
