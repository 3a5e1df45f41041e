#pragma once

namespace quilatador {

/// One of the program's two outputs.
enum class Fluxo { Padrao, Erro };

/// Whether a person reads it, rather than a file or another program.
[[nodiscard]] bool ehTerminal(Fluxo fluxo);

/// Characters of a line on that terminal; 80 where it is none, or does not tell.
[[nodiscard]] int larguraDoTerminal(Fluxo fluxo);

} // namespace quilatador
