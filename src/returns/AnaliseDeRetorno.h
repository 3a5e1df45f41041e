#pragma once

#include "common/LeitorDeLinhas.h"
#include "run/Ambiente.h"
#include "run/modVariaveis.h"
#include "run/Relator.h"
#include "run/RelatorLog.h"
#include "tables/ConsultasDaRodada.h"

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>

namespace quilatador {

/// What is asked of a return analysis.
struct PedidoDeRetorno {
    std::filesystem::path nomeArquivo;
    /// Takes the place of the usual log, which lies beside the file.
    std::optional<std::filesystem::path> log{};
    /// Further listeners, called behind the log. Not owned.
    std::span<Relator* const> ouvintes{};
};

struct ResultadoRetorno {
    Resumo resumo;

    /// Whether the end of the file was reached and the summary written.
    [[nodiscard]] bool concluida() const noexcept { return resumo.desfecho == Desfecho::Concluida; }
};

/// What the analyses of the two return files share: opening file and log, the walk through the lines with its
/// progress, and the ways a run may end. The derived class knows what a line says.
///
/// An input that cannot be opened and a log that cannot be created or written are told in an error box. A failed
/// look-up, or read, becomes the last line of the log. The log is opened in the system's editor whenever it could be
/// written to its end.
class AnaliseDeRetorno {
  public:
    AnaliseDeRetorno(Ambiente& ambiente, const modVariaveis& globais, const PedidoDeRetorno& pedido);
    AnaliseDeRetorno(const AnaliseDeRetorno&) = delete;
    AnaliseDeRetorno& operator=(const AnaliseDeRetorno&) = delete;
    virtual ~AnaliseDeRetorno() = default;

    /// Runs once. `cancelado` may be set from a signal handler; it is read before every line. Listeners get the
    /// summary in any case.
    [[nodiscard]] ResultadoRetorno executar(const std::atomic<bool>& cancelado);

  protected:
    /// Takes the first line for a header: the finding that says why it is none, or none after telling of it.
    [[nodiscard]] virtual std::optional<Achado> tratarHeader(VistaTexto linha) = 0;
    /// Tells of a line, the first one included.
    virtual void tratarLinha(VistaTexto linha) = 0;
    /// Called at the end of the file.
    virtual void escreverTotais() {}

    [[nodiscard]] const Localidade& localidade() const noexcept { return ambiente_.localidade; }
    [[nodiscard]] ConsultasDaRodada& consultas() noexcept { return consultas_; }
    /// Number (1-based) of the line in hand; at the end, lines read.
    [[nodiscard]] std::int32_t linhaAtual() const noexcept { return resumo_.totalRegistros; }
    /// Counts the line in hand as one with a finding.
    void contarErro() noexcept { ++resumo_.totalErros; }

    void escrever(VistaTexto linha);
    void escrever(const Achado& achado);
    /// The same for whoever writes very much: a stroke of whole lines, each with its CR LF.
    [[nodiscard]] Bloco::Caneta comecar(std::size_t bytes) { return log_->comecar(bytes); }
    void terminar(const Bloco::Caneta& caneta) {
        if (!pedido_.ouvintes.empty()) entregarLinhas(caneta.texto());
        log_->terminar(caneta);
    }
    /// Shows a text in a label, and lets the window handle its events.
    void mostrar(Rotulo rotulo, VistaTexto texto);

  private:
    void entregarLinhas(VistaTexto linhas);
    void rodar(const std::atomic<bool>& cancelado);
    [[nodiscard]] std::optional<LeitorDeLinhas> abrirEntrada(const std::atomic<bool>& cancelado);
    void analisar(LeitorDeLinhas& leitor, const std::atomic<bool>& cancelado);
    [[nodiscard]] Desfecho percorrer(LeitorDeLinhas& leitor, Progresso& progresso, const std::atomic<bool>& cancelado);
    void naoCompletar(const Falha& falha);

    Ambiente& ambiente_;
    const PedidoDeRetorno& pedido_;
    std::filesystem::path nomeArquivoLog_;
    std::unique_ptr<RelatorLog> log_;
    ConsultasDaRodada consultas_;
    Resumo resumo_;
};

} // namespace quilatador
