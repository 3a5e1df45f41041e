#pragma once

#include "layout/ArquivoRemessa.h"
#include "run/modVariaveis.h"
#include "run/Rodada.h"
#include "validator/completa/ConferenciaCompleta.h"
#include "validator/Definicao.h"
#include "validator/GuiaEmMaos.h"

#include <atomic>
#include <filesystem>
#include <memory>
#include <optional>

namespace quilatador {

/// Validates ZUL702 remittances: first the sequence of the records, then the content of every segment. Each finding
/// becomes a line of the log beside the file; other listeners also get its id, line, segment and field.
///
/// Order of use: create it; for each file set `PosicaoDataBarra` and `FormatoDataBarra`, then call `DepurarArquivo` or
/// `depurar`. No run affects the next one, however it ended, except that `moeda` stays until the next segment C.
class Depurador {
  public:
    /// Loads the layout description from the program's folder. If that fails, a message box says why, and every run
    /// writes "Leiaute não carregado!" and ends as `NaoRodou`. The arguments must outlive this object; `cancelado`
    /// belongs to the caller, as in `Rodada`.
    Depurador(Ambiente& ambiente, modVariaveis& globais, std::atomic<bool>& cancelado);
    Depurador(const Depurador&) = delete;
    Depurador& operator=(const Depurador&) = delete;

    /// The caller's request to stop. Anyone may set it; it is read at every line and cleared when a run begins.
    std::atomic<bool>& Cancelado;
    /// 1-based position of the due date in the barcode; 0 if the barcode carries none.
    std::int16_t PosicaoDataBarra = 0;
    /// Format of that date, one of those of `Diversos::String2Data`. Segment C replaces it with the agreement's own
    /// format.
    Texto FormatoDataBarra;

    /// Validates a file and opens its log in the system's text editor. `log` replaces the usual path beside the file.
    /// The summary tells how the run ended.
    Resumo DepurarArquivo(const std::filesystem::path& nomeArquivo, std::optional<std::filesystem::path> log = {});
    /// The same for a ZUL702 run that the caller has created, for example with listeners of its own.
    Resumo depurar(Rodada& rodada);

    /// Checks a file completely; see `conferirRemessa`. `PosicaoDataBarra` and `FormatoDataBarra` are taken from here,
    /// and `pedido` need not have them. `NaoRodou` if the layout could not be loaded.
    [[nodiscard]] ResumoCompleto conferirTudo(PedidoCompleto pedido, std::span<Relator* const> ouvintes);

    // These check the slip that the last run was working on, or single records of it, against the definitions of that
    // run. During a run the findings go to its log; afterwards there is only the result: true if nothing was found.
    // `Falha` 5 before the first run.
    [[nodiscard]] bool VerificarGuia();
    [[nodiscard]] bool VerificarIdentificacaoGuia(const RegistroRemessa& registro);
    [[nodiscard]] bool VerificarObjeto(const RegistroRemessa& registro);

  private:
    template <typename Pergunta>
    [[nodiscard]] bool perguntar(Pergunta pergunta);

    Ambiente& ambiente_;
    modVariaveis& globais_;
    std::unique_ptr<ArquivoRemessa> arquivoRemessa_; ///< null if the layout could not be loaded
    Rodada* rodada_ = nullptr;                       ///< the run in progress; null if there is none
    Definicao definicao_;
    GuiaEmMaos guia_;
};

} // namespace quilatador
