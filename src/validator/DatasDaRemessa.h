#pragma once

#include "layout/ArquivoRemessa.h"
#include "run/Ambiente.h"
#include "validator/DataNaBarra.h"

#include <atomic>
#include <cstdint>
#include <filesystem>
#include <optional>

namespace quilatador {

/// What a remittance tells about the due date in its barcodes.
struct DatasDaRemessa {
    DataNaBarra datas;                     ///< of the installments whose due date can be read
    std::optional<Texto> codigoDoConvenio; ///< "FormatoData" of the last segment C; nothing without a segment C
    std::int64_t linhaDoConvenio = 0;      ///< line of that segment, 1-based; 0 without one

    /// The format that segment C names; "" if it names none.
    [[nodiscard]] VistaTexto formatoDoConvenio() const noexcept {
        return codigoDoConvenio ? formatoDoCodigo(*codigoDoConvenio).value_or(VistaTexto()) : VistaTexto();
    }
};

/// Reads all installments (segments Y) of a file. Lines of no known type or of another length are passed over, and
/// nothing else matters. Nothing if the user cancels; `cancelado` is that of `Rodada`. Raises the failures of
/// `PercursoDeLinhas`, and `Falha` 5 if the layout lacks a field that is read.
[[nodiscard]] std::optional<DatasDaRemessa> lerDatas(const Ambiente& ambiente, ArquivoRemessa& leiaute,
                                                     const std::filesystem::path& arquivo,
                                                     const std::atomic<bool>& cancelado);

} // namespace quilatador
