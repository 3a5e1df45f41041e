#pragma once

#include "frontend/Pedido.h"
#include "run/modVariaveis.h"
#include "run/Rodada.h"
#include "tables/BancoDeDados.h"
#include "validator/Depurador.h"

#include <atomic>
#include <memory>
#include <vector>

namespace quilatador {

/// The job that the window and the command line share: opens what the analyses need and hands each request to the
/// analysis of its type.
///
/// Order of use: `iniciar` once; then for each request `recusa`, `comecar` and `analisar`. Between the last two a
/// program shows that something is going on; a wish to cancel counts from `comecar` on.
class Trabalho {
  public:
    /// All that is given must live as long; `cancelado` is the caller's, as `Rodada` has it.
    Trabalho(Ambiente& ambiente, modVariaveis& globais, std::atomic<bool>& cancelado);
    Trabalho(const Trabalho&) = delete;
    Trabalho& operator=(const Trabalho&) = delete;
    ~Trabalho();

    /// Further listeners of the analyses to come. Not owned.
    void adicionarRelator(Relator& relator) { ouvintes_.push_back(&relator); }

    /// Opens the code tables, which stay open while this lives. False, after an error box, where they cannot be
    /// opened: the program is to end, whatever it was to do.
    [[nodiscard]] bool iniciar();
    /// Why a request is not to be analysed at all; none where it is.
    [[nodiscard]] static std::optional<Texto> recusa(const Pedido& pedido);
    /// The run of a request.
    [[nodiscard]] Rodada comecar(const Pedido& pedido);
    /// Analyses the file of that run.
    Resumo analisar(Rodada& rodada, const Pedido& pedido);

  private:
    Resumo depurar(Rodada& rodada, const Pedido& pedido);

    Ambiente& ambiente_;
    modVariaveis& globais_;
    std::atomic<bool>& cancelado_;
    std::unique_ptr<BancoDeDados> banco_;
    std::unique_ptr<Depurador> depurador_; ///< made when the first remittance comes, since it says what is wrong then
    std::vector<Relator*> ouvintes_;
};

} // namespace quilatador
