#pragma once

#include "layout/ArquivoRemessa.h"
#include "run/modVariaveis.h"
#include "run/Rodada.h"
#include "validator/Definicao.h"
#include "validator/GuiaEmMaos.h"

#include <atomic>
#include <filesystem>
#include <memory>
#include <optional>

namespace quilatador {

/// Validates ZUL702 remittances: first the order and sequence of the records, then the content of every segment. Each
/// finding is a line of the log beside the file; whoever else listens gets it with all that is known about it.
///
/// One `Depurador` serves for many runs. Nothing of one run shows in the next, whatever became of it, but `moeda`,
/// which stays until the next segment C.
class Depurador {
  public:
    /// Loads the layout description from the program's folder. Where that fails a message box says why, and each run
    /// writes "Leiaute não carregado!". All that is given must live as long; `cancelado` is the caller's, as `Rodada`
    /// has it.
    Depurador(Ambiente& ambiente, modVariaveis& globais, std::atomic<bool>& cancelado);
    Depurador(const Depurador&) = delete;
    Depurador& operator=(const Depurador&) = delete;

    /// The caller's wish to stop: set by whoever has it, read at every line, cleared when a run starts.
    std::atomic<bool>& Cancelado;
    /// Position (1-based) of the due date in the barcode; 0 for none.
    std::int16_t PosicaoDataBarra = 0;
    /// Format of that date, as `Diversos::String2Data` has them; segment C replaces it with the agreement's own.
    Texto FormatoDataBarra;

    /// Validates a file and opens its log. `log` takes the place of the usual path.
    Resumo DepurarArquivo(const std::filesystem::path& nomeArquivo, std::optional<std::filesystem::path> log = {});
    /// The same for a run that was made before, with listeners of its own, of a ZUL702.
    Resumo depurar(Rodada& rodada);

    // The slip that the last run had in hand, and single records of it, against the definitions of that run. During a
    // run the findings go to its log; afterwards only the answer is left: true where nothing was found. `Falha` 5
    // before the first run.
    [[nodiscard]] bool VerificarGuia();
    [[nodiscard]] bool VerificarIdentificacaoGuia(const RegistroRemessa& registro);
    [[nodiscard]] bool VerificarObjeto(const RegistroRemessa& registro);

  private:
    template <typename Pergunta>
    [[nodiscard]] bool perguntar(Pergunta pergunta);

    Ambiente& ambiente_;
    modVariaveis& globais_;
    std::unique_ptr<ArquivoRemessa> arquivoRemessa_; ///< null where the layout could not be loaded
    Rodada* rodada_ = nullptr;                       ///< the run that goes on
    Definicao definicao_;
    GuiaEmMaos guia_;
};

} // namespace quilatador
