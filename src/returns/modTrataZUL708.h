#pragma once

#include "returns/AnaliseDeRetorno.h"

namespace quilatador {

/// Explains a ZUL708, the bank's answer to a print remittance: one line for each occurrence code of each record, with
/// its text from the code tables, then the records with and without occurrences.
///
/// The log lies beside the file. A first line that names another type ends the run as a cancelled one, `Falhou` in the
/// summary. Findings: "zul708.tipoInvalido", "zul708.ocorrencia".
[[nodiscard]] ResultadoRetorno tratarRetornoZUL708(Ambiente& ambiente, const modVariaveis& globais,
                                                   const PedidoDeRetorno& pedido, const std::atomic<bool>& cancelado);

} // namespace quilatador
