#pragma once

#include "common/Data.h"
#include "common/LeitorDeLinhas.h"
#include "run/Ambiente.h"
#include "run/Analise.h"
#include "run/Relator.h"
#include "run/RelatorLog.h"
#include "run/TipoArquivo.h"

#include <atomic>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>

namespace quilatador {

/// What a run is to analyse.
struct PedidoDeRodada {
    TipoArquivo tipoArquivo = TipoArquivo::ZUL702;
    std::filesystem::path nomeArquivo;
    /// Takes the place of the usual log, which lies beside the file.
    std::optional<std::filesystem::path> log{};
    /// Further listeners, called behind the log. Not owned.
    std::span<Relator* const> ouvintes{};
    /// Whether the log is opened in the system's editor at the end.
    bool abrirLog = true;
};

/// One analysis of one file: its log and listeners, its counts and progress, the wish to cancel it, the test whether
/// somebody changed the file meanwhile, and each way in which it may end.
///
/// Order of use: make it, which takes back an earlier wish to cancel; then `executar`, once. While that goes on the
/// analysis and its checks write through this object. Outside of `executar` there is no log, and what is written
/// reaches the listeners alone: so a check can be asked about any record.
class Rodada {
  public:
    /// `cancelado` belongs to the caller, who sets it when the run is to stop, from another thread or a signal handler
    /// if need be; it is read at every line. Everything given must live as long as the run.
    Rodada(Ambiente& ambiente, PedidoDeRodada pedido, std::atomic<bool>& cancelado);
    Rodada(const Rodada&) = delete;
    Rodada& operator=(const Rodada&) = delete;

    /// Runs an analysis and opens its log in the system's editor, where it could be written to its end. An input that
    /// cannot be read becomes a line of the log, as does a structural finding; a log that cannot be created or
    /// written, and memory that runs out, are told in an error box. Listeners get the summary in any case.
    Resumo executar(Analise& analise);

    /// Writes a plain line.
    void escreverLog(VistaTexto texto);
    /// Writes a finding; one of gravity `Erro` is counted.
    void escreverErro(const Achado& achado);
    /// The same as `escreverLog` for whoever writes very much: a stroke of whole lines, each with its CR LF. Only
    /// while the run goes on.
    [[nodiscard]] Bloco::Caneta comecar(std::size_t bytes) { return log_->comecar(bytes); }
    void terminar(const Bloco::Caneta& caneta) {
        if (!pedido_.ouvintes.empty()) entregarLinhas(caneta.texto());
        log_->terminar(caneta);
    }
    /// The lines that say of the run that it was cancelled.
    void escreverCancelamento();

    [[nodiscard]] bool cancelada() const noexcept { return cancelado_.load(std::memory_order_relaxed); }
    /// For the reader of a file: lets events run where a line is very long, and says whether to give up.
    [[nodiscard]] LeitorDeLinhas::Desistencia desistencia();
    /// Holds the state of the open input against the first one that was given. `Falha` 65 where it is another: passes
    /// over the file would speak of different files.
    void conferirEntrada(const std::optional<VersaoDoArquivo>& agora);

    [[nodiscard]] const std::filesystem::path& nomeArquivo() const noexcept { return pedido_.nomeArquivo; }
    [[nodiscard]] const std::filesystem::path& nomeArquivoLog() const noexcept { return nomeArquivoLog_; }
    [[nodiscard]] Ambiente& ambiente() noexcept { return ambiente_; }
    [[nodiscard]] Painel& painel() noexcept { return ambiente_.painel; }
    /// The day of the run, the same from its start to its end.
    [[nodiscard]] const Data& hoje() const noexcept { return hoje_; }
    /// What was counted so far; the analysis adds what only it knows.
    [[nodiscard]] Resumo& resumo() noexcept { return resumo_; }
    [[nodiscard]] Progresso& progresso() noexcept { return progresso_; }
    /// Begins a phase of `total` records, with its time at 0, on the display too.
    void iniciarFase(std::int32_t total);

  private:
    [[nodiscard]] bool criarLog();
    void rodar(Analise& analise);
    [[nodiscard]] Desfecho percorrer(Analise& analise);
    [[nodiscard]] bool alterada(const std::optional<VersaoDoArquivo>& agora) const noexcept;
    [[nodiscard]] Desfecho naoCompletar(Desfecho desfecho, VistaTexto descricao);
    void avisar(VistaTexto texto);
    void entregarLinhas(VistaTexto linhas);

    Ambiente& ambiente_;
    PedidoDeRodada pedido_;
    std::filesystem::path nomeArquivoLog_;
    std::atomic<bool>& cancelado_;
    Data hoje_;
    std::unique_ptr<RelatorLog> log_;
    std::optional<VersaoDoArquivo> versao_;
    Resumo resumo_;
    Progresso progresso_;
};

} // namespace quilatador
