#pragma once

#include "frontend/Pedido.h"
#include "run/modVariaveis.h"
#include "run/ResumoCompleto.h"
#include "run/Rodada.h"
#include "tables/BancoDeDados.h"
#include "validator/Depurador.h"

#include <atomic>
#include <memory>
#include <span>
#include <vector>

namespace quilatador {

/// The job that the window and the command line share: it opens what the analyses need and passes each request to the
/// analysis of its type.
///
/// Order of use: `iniciar` once; then, for each request, `recusa`, `comecar` and `analisar`. Between `comecar` and
/// `analisar` a program shows that an analysis is starting. A request to cancel counts from `comecar` on.
class Trabalho {
  public:
    /// The arguments must outlive this object; `cancelado` belongs to the caller, as in `Rodada`.
    Trabalho(Ambiente& ambiente, modVariaveis& globais, std::atomic<bool>& cancelado);
    Trabalho(const Trabalho&) = delete;
    Trabalho& operator=(const Trabalho&) = delete;
    ~Trabalho();

    /// Adds a listener to all later analyses. It is not owned and must outlive them.
    void adicionarRelator(Relator& relator) { ouvintes_.push_back(&relator); }

    /// Opens the code tables, which stay open as long as this object lives. Returns false, after an error box, if they
    /// cannot be opened; the program must then end.
    [[nodiscard]] bool iniciar();
    /// The reason why a request cannot be analysed: the due date of a remittance does not fit into the barcode. Nothing
    /// if it can be analysed.
    [[nodiscard]] static std::optional<Texto> recusa(const Pedido& pedido);
    /// Creates the run of a request, which clears an earlier request to cancel.
    [[nodiscard]] Rodada comecar(const Pedido& pedido);
    /// Analyses the file of that run and returns its summary.
    Resumo analisar(Rodada& rodada, const Pedido& pedido);
    /// Checks the file of a run that has ended once more, this time completely: every slip and every fault, each with
    /// its place and its cause. Nothing is written but what `ouvintes` make of the findings, which come in the order of
    /// their numbers. Cancelling works as in the run.
    [[nodiscard]] ResumoCompleto conferirTudo(const Rodada& rodada, const Pedido& pedido,
                                              std::span<Relator* const> ouvintes);

  private:
    [[nodiscard]] ResumoCompleto conferir(const Rodada& rodada, const Pedido& pedido,
                                          std::span<Relator* const> ouvintes);
    void prepararDepurador(const Pedido& pedido);

    Ambiente& ambiente_;
    modVariaveis& globais_;
    std::atomic<bool>& cancelado_;
    std::unique_ptr<BancoDeDados> banco_;
    std::unique_ptr<SomaDoArquivo> soma_;  ///< of the file of the run in hand, if a complete check will follow
    std::unique_ptr<Depurador> depurador_; ///< created for the first remittance, since it reports a faulty layout
    std::vector<Relator*> ouvintes_;
};

} // namespace quilatador
