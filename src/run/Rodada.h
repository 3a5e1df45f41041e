#pragma once

#include "common/Data.h"
#include "common/LeitorDeLinhas.h"
#include "run/Ambiente.h"
#include "run/Analise.h"
#include "run/ParadaEstrutural.h"
#include "run/Relator.h"
#include "run/RelatorLog.h"
#include "run/TipoArquivo.h"

#include <atomic>
#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <span>

namespace quilatador {

/// What a run is to analyse.
struct PedidoDeRodada {
    TipoArquivo tipoArquivo = TipoArquivo::ZUL702;
    std::filesystem::path nomeArquivo;
    /// The path of the log. Without it, the log gets its usual name beside the file (see `caminhoDoLog`).
    std::optional<std::filesystem::path> log{};
    /// Further files that the log must not fall on, such as those that are analysed afterwards; null for none. The
    /// caller owns them.
    const std::set<Destino>* intocaveis = nullptr;
    /// Further listeners, which are called after the log. The caller owns them.
    std::span<Relator* const> ouvintes{};
    /// Whether the log is opened in the system's editor at the end.
    bool abrirLog = true;
};

/// One analysis of one file. It owns the log, the counts and the progress, passes everything to the listeners, notices
/// when the run is cancelled or the file is changed by somebody else, and handles every way in which a run can end.
///
/// Order of use: create it, which resets `cancelado`, and call `executar` once. During that call the analysis and its
/// checks write through this object. Outside that call there is no log, and what is written reaches only the
/// listeners; so a check can be run on any single record.
class Rodada {
  public:
    /// `cancelado` belongs to the caller, who sets it to stop the run, even from another thread or a signal handler. It
    /// is read at every line. Everything passed here must outlive this object.
    Rodada(Ambiente& ambiente, PedidoDeRodada pedido, std::atomic<bool>& cancelado);
    Rodada(const Rodada&) = delete;
    Rodada& operator=(const Rodada&) = delete;

    /// Runs an analysis, and opens its log in the editor of the system if the log could be completed. An unreadable
    /// input and a structural finding become lines of the log. Where the log cannot be created, the display may offer
    /// another place. A log that cannot be written, and a lack of memory, are shown in a message box. The listeners
    /// always get the summary.
    Resumo executar(Analise& analise);

    /// Writes a plain line.
    void escreverLog(VistaTexto texto);
    /// Writes a finding. One of gravity `Erro` is counted; one that is `Estrutural` gives its line to the summary.
    void escreverErro(const Achado& achado);
    /// A fast way to write very many lines: reserve room with `comecar`, append whole lines with their CR LF, and call
    /// `terminar`. Allowed only while `executar` is running.
    [[nodiscard]] Bloco::Caneta comecar(std::size_t bytes) { return log_->comecar(bytes); }
    void terminar(const Bloco::Caneta& caneta) {
        if (!pedido_.ouvintes.empty()) entregarLinhas(caneta.texto());
        log_->terminar(caneta);
    }
    /// Writes the lines that say that the run was cancelled.
    void escreverCancelamento();

    /// Whether the caller wants the run to stop.
    [[nodiscard]] bool cancelada() const noexcept { return cancelado_.load(std::memory_order_relaxed); }
    /// Lets the display handle its waiting events, so that the user can cancel, and tells whether the run is to stop.
    /// For loops over data of the file that take long between two lines.
    [[nodiscard]] bool canceladaAgora();
    /// The same question for `LeitorDeLinhas`, which asks it while a very long line is skipped.
    [[nodiscard]] LeitorDeLinhas::Desistencia desistencia();
    /// To be called with the state of the input each time it is opened. Raises `Falha` 65 when it is not the state of
    /// the first opening, because the passes over the file would then describe different files.
    void entradaAberta(const VersaoDoArquivo& aberta);
    /// To be called before the analysis says anything of the whole file. Raises `Falha` 65 when the path of the input
    /// no longer leads to the file that was opened, in the state in which it was opened.
    void conferirEntrada() const;

    [[nodiscard]] const std::filesystem::path& nomeArquivo() const noexcept { return pedido_.nomeArquivo; }
    /// The path of the log: the one that the user chose if the first could not be written.
    [[nodiscard]] const std::filesystem::path& nomeArquivoLog() const noexcept { return nomeArquivoLog_; }
    /// Whether `executar` has written the whole log.
    [[nodiscard]] bool logGravado() const noexcept { return logGravado_; }
    /// The state of the input when it was opened first; nothing if it never was.
    [[nodiscard]] const std::optional<VersaoDoArquivo>& versaoDaEntrada() const noexcept { return versao_; }
    [[nodiscard]] Ambiente& ambiente() noexcept { return ambiente_; }
    [[nodiscard]] Painel& painel() noexcept { return ambiente_.painel; }
    /// The date of the run, which stays the same even when the run goes past midnight.
    [[nodiscard]] const Data& hoje() const noexcept { return hoje_; }
    /// The counts so far. The analysis adds those that only it knows.
    [[nodiscard]] Resumo& resumo() noexcept { return resumo_; }
    [[nodiscard]] Progresso& progresso() noexcept { return progresso_; }
    /// Starts a phase with `total` expected records: its time begins at 0, its bar at the start, and the display is
    /// told.
    void iniciarFase(std::int64_t total);

  private:
    [[nodiscard]] bool criarLog();
    [[nodiscard]] std::optional<Texto> tentarCriarLog();
    [[nodiscard]] VistaTexto proibicaoDoLog() const;
    void rodar(Analise& analise);
    [[nodiscard]] Desfecho percorrer(Analise& analise);
    [[nodiscard]] bool entradaAlterada() const;
    [[nodiscard]] Desfecho parar(const ParadaEstrutural& parada);
    [[nodiscard]] Desfecho naoCompletar(Desfecho desfecho, VistaTexto descricao);
    [[nodiscard]] Mensagem fim(VistaTexto motivo) const;
    void naoRodar(VistaTexto motivo);
    void entregarLinhas(VistaTexto linhas);

    Ambiente& ambiente_;
    PedidoDeRodada pedido_;
    std::filesystem::path nomeArquivoLog_;
    std::atomic<bool>& cancelado_;
    Data hoje_;
    std::unique_ptr<RelatorLog> log_;
    bool logGravado_ = false;
    std::optional<VersaoDoArquivo> versao_; ///< of the input at its first opening
    Resumo resumo_;
    Progresso progresso_;
};

} // namespace quilatador
