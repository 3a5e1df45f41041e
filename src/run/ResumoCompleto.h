#pragma once

#include "common/Texto.h"
#include "run/Relator.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quilatador {

/// The slips of a remittance by what a complete check says of them.
struct ContagemDeGuias {
    std::int64_t lidas = 0;         ///< all of them; the others add up to this
    std::int64_t certas = 0;        ///< checked, and without an error
    std::int64_t comErro = 0;       ///< with at least one error
    std::int64_t emParte = 0;       ///< without an error so far, but not all of it could be checked
    std::int64_t naoConferidas = 0; ///< left out, because only the first slips were asked for

    bool operator==(const ContagemDeGuias&) const = default;
};

/// A format and a position at which barcodes have the due date of their installments.
struct LugarDaData {
    VistaTexto formato;
    int posicao = 0;          ///< 1-based
    std::int64_t acertos = 0; ///< installments that agree
};

/// The result of a complete check in numbers. Errors are findings that make the file wrong, see `contaComoErro`.
struct ResumoCompleto {
    /// Completed, cancelled, `NaoRodou` if the file failed or has changed, or `Falhou` if it is no return of its type.
    Desfecho desfecho = Desfecho::Concluida;
    Texto descricao;            ///< why it did not run to its end; "" where it did or was cancelled
    std::int64_t registros = 0; ///< lines that were looked at
    std::int64_t causas = 0;    ///< errors that follow from no other
    std::int64_t erros = 0;     ///< all errors, consequences among them
    std::int64_t avisos = 0;
    std::int64_t discutidos = 0;
    std::int64_t ocorrencias = 0; ///< only of a print return
    ContagemDeGuias guias;
    std::int64_t parcelas = 0;      ///< installments whose due date could be compared with their barcode
    std::vector<LugarDaData> datas; ///< where most of them have it; empty if none has it anywhere
    std::string sha256;             ///< of the file, in lower-case hexadecimal; "" if it was not made

    /// Whether the check ended before the file did.
    [[nodiscard]] bool parcial() const noexcept { return desfecho != Desfecho::Concluida; }
};

} // namespace quilatador
