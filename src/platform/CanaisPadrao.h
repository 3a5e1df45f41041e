#pragma once

namespace quilatador {

/// Occupies the standard input, output and error that the caller of the program has closed. Otherwise the next file
/// that is opened, such as a log, would take the place of one of them and receive what is meant for it. Using an
/// occupied one fails as if it were still closed. Call it before anything else opens a file.
void ocuparCanaisFechados() noexcept;

} // namespace quilatador
