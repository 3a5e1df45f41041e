#pragma once

namespace quilatador {

/// One of the program's two outputs.
enum class Fluxo { Padrao, Erro };

/// Whether it is a terminal, which a person reads, on which a line can be drawn again: one that understands the escape
/// sequences for that. From now on it does so on systems where it has to be asked first.
[[nodiscard]] bool redesenha(Fluxo fluxo);

/// Whether a text may be coloured there: on such a terminal, unless the user has put something into NO_COLOR.
[[nodiscard]] bool temCores(Fluxo fluxo);

/// The width of that terminal in characters; 80 if it is no terminal or does not tell.
[[nodiscard]] int larguraDoTerminal(Fluxo fluxo);

} // namespace quilatador
