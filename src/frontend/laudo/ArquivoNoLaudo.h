#pragma once

#include "frontend/Laudo.h"
#include "frontend/laudo/PecasDoLaudo.h"

#include <string>

namespace quilatador::laudo {

/// The sections of a report about the file as a whole, in their order but for the list of findings between the first
/// and the second: the verdict with its numbers, what was checked by whom, and the file with the options.
[[nodiscard]] std::string parteDoVeredito(const DadosDoLaudo& dados, const NumerosDoLaudo& numeros);
[[nodiscard]] std::string parteDoConferido(const DadosDoLaudo& dados, const NumerosDoLaudo& numeros);
[[nodiscard]] std::string parteDoArquivo(const DadosDoLaudo& dados, const NumerosDoLaudo& numeros,
                                         const Ambiente& ambiente);
/// The day of the report.
[[nodiscard]] std::string diaDoLaudo(const Ambiente& ambiente);

} // namespace quilatador::laudo
