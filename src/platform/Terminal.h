#pragma once

namespace quilatador {

/// One of the program's two outputs.
enum class Fluxo { Padrao, Erro };

/// Whether it is a terminal, which a person reads, and not a file or another program.
[[nodiscard]] bool ehTerminal(Fluxo fluxo);

/// The width of that terminal in characters; 80 if it is no terminal or does not tell.
[[nodiscard]] int larguraDoTerminal(Fluxo fluxo);

} // namespace quilatador
