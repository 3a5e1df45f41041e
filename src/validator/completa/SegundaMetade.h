#pragma once

#include "layout/ArquivoRemessa.h"
#include "run/Ambiente.h"
#include "run/ResumoCompleto.h"
#include "validator/completa/ConferenciaCompleta.h"
#include "validator/DataNaBarra.h"

#include <atomic>
#include <cstddef>
#include <functional>
#include <future>
#include <optional>

namespace quilatador {

/// What the complete check of the later slips of a file has counted, where it found nothing to tell.
struct MetadeLimpa {
    ContagemDeGuias guias;
    DataNaBarra datas;
    std::int64_t registros; ///< lines of the whole file
    std::size_t definicoes; ///< definitions that its slips were checked against
};

/// Checks the later half of the slips of a large remittance in a second thread, while the check itself goes through the
/// first half. Findings have to come in their order, so that this half is only a scout: at the first thing to tell it
/// gives up, and the check goes through the rest as well.
class SegundaMetade {
  public:
    /// Starts at once, unless the file is too small to be worth a thread, or the system has none to give. Everything
    /// passed here must outlive this object, and the layout must not change meanwhile.
    SegundaMetade(const Ambiente& ambiente, const ArquivoRemessa& leiaute, const PedidoCompleto& pedido);
    SegundaMetade(const SegundaMetade&) = delete;
    SegundaMetade& operator=(const SegundaMetade&) = delete;
    /// Stops what is still going on.
    ~SegundaMetade();

    /// Whether the slip that begins in this line (1-based) is the first one of this half, or would be.
    [[nodiscard]] bool comecaEm(std::int64_t linha) const noexcept { return resultado_.valid() && linha >= meio_; }
    /// Waits for the result, and asks now and then whether to give up. Nothing if there is something to tell. To be
    /// called once.
    [[nodiscard]] std::optional<MetadeLimpa> esperar(const std::function<bool()>& desistir);

  private:
    std::int64_t meio_ = 0; ///< the half begins with the first slip from this line on
    std::atomic<bool> parar_ = false;
    std::future<std::optional<MetadeLimpa>> resultado_;
};

} // namespace quilatador
