#pragma once

#include "layout/ArquivoRemessa.h"
#include "run/Ambiente.h"
#include "run/ResumoCompleto.h"
#include "validator/Definicao.h"

#include <atomic>
#include <filesystem>
#include <optional>
#include <span>

namespace quilatador {

/// What a complete check of a remittance is to look at, and how.
struct PedidoCompleto {
    std::filesystem::path arquivo;
    std::optional<VersaoDoArquivo> versao{}; ///< the state of the file that the log is about; nothing for any
    std::int16_t PosicaoDataBarra = 0;       ///< as in `Depurador`
    Texto FormatoDataBarra{};
    std::optional<double> primeiras{}; ///< number of slips whose content is checked; nothing for all
};

/// What is known before the first record: what was asked for.
[[nodiscard]] Definicao definicaoInicial(const PedidoCompleto& pedido);

/// Checks a remittance completely: every slip, and every fault of the structure, each finding with its place and its
/// cause. The findings go to `ouvintes` in the order of their numbers; nothing is written. `cancelado` is that of
/// `Rodada`. It never fails: a file that cannot be read, or that is no longer the one of the log, is told in the
/// summary.
[[nodiscard]] ResumoCompleto conferirRemessa(const Ambiente& ambiente, ArquivoRemessa& leiaute,
                                             const PedidoCompleto& pedido, std::span<Relator* const> ouvintes,
                                             const std::atomic<bool>& cancelado);

} // namespace quilatador
