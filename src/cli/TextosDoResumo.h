#pragma once

#include "run/Relator.h"
#include "run/TipoArquivo.h"

#include <cstddef>
#include <cstdint>

namespace quilatador {

/// What the summary says of one file: what was found and what was checked, or how far the analysis came and why.
/// `completa` tells whether a complete check follows; without it, the user is told how to get one.
[[nodiscard]] Texto textoDoResumo(TipoArquivo tipo, const Resumo& resumo, bool completa);

/// Counts the files of one command line by the ways in which their analyses ended.
class Totais {
  public:
    /// Adds a file.
    void somar(TipoArquivo tipo, const Resumo& resumo) noexcept;
    /// The line of the totals. Of `arquivos` files, those that were not added are counted as not analysed. With a
    /// complete check it says that the totals are those of the logs.
    [[nodiscard]] Texto texto(std::size_t arquivos, bool completa) const;

  private:
    std::size_t semAchados_ = 0;
    std::size_t comAchados_ = 0;
    std::size_t comParada_ = 0;
    std::size_t cancelados_ = 0;
    std::int64_t erros_ = 0;
    std::int64_t ocorrencias_ = 0;
};

} // namespace quilatador
