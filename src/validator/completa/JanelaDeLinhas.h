#pragma once

#include "run/PercursoDeLinhas.h"

#include <array>
#include <cstddef>

namespace quilatador {

/// A line as it stands in the file.
struct LinhaDoArquivo {
    Texto texto;
    std::int64_t lugar = 0; ///< its number, 1-based
};

/// The line in hand and a few that follow, so that what is wrong with one can be told from what comes behind it.
class JanelaDeLinhas {
  public:
    /// How far ahead one can look.
    static constexpr std::size_t alcance = 16;

    /// `percurso` must outlive this object.
    explicit JanelaDeLinhas(PercursoDeLinhas& percurso) noexcept : percurso_(percurso) {}

    /// A line by its distance from the one in hand (0, below `alcance`); null behind the end of the file. Valid until
    /// the window moves. Raises the failures of `PercursoDeLinhas::proxima`.
    [[nodiscard]] const LinhaDoArquivo* olhar(std::size_t adiante = 0);
    /// Whether the lines have ended at a Ctrl-Z (1A hex).
    [[nodiscard]] bool terminouEmCtrlZ() const noexcept { return percurso_.terminouEmCtrlZ(); }
    /// Moves past so many lines, which have been looked at.
    void avancar(std::size_t quantas = 1) noexcept;
    /// Exchanges the line in hand with the next one, which has been looked at. Each keeps its place in the file.
    void trocar() noexcept;

  private:
    [[nodiscard]] LinhaDoArquivo& na(std::size_t adiante) noexcept { return linhas_[(primeira_ + adiante) % alcance]; }

    PercursoDeLinhas& percurso_;
    std::array<LinhaDoArquivo, alcance> linhas_;
    std::size_t primeira_ = 0;
    std::size_t quantas_ = 0;
};

} // namespace quilatador
