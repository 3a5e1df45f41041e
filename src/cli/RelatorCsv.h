#pragma once

#include "common/Arquivos.h"
#include "common/Falha.h"
#include "run/Relator.h"

#include <filesystem>
#include <optional>
#include <string>

namespace quilatador {

/// Writes the findings of all files of a call as one table (CSV) that a spreadsheet opens as it is: UTF-8 with a mark
/// in front, semicolons, CR LF, and no cell that it could take for a formula. docs/csv.md describes it. Rows are
/// written as the findings come, in large blocks.
///
/// Order of use: for each file `arquivo`, then the check with this as a listener; `terminar` at the end.
class RelatorCsv : public Relator {
  public:
    /// The caller confirms the file after `terminar`.
    explicit RelatorCsv(ArquivoProvisorio& saida);

    /// Starts the rows of a file. The k-th row of a file is its finding number k, which the column `causa` refers to.
    void arquivo(const std::filesystem::path& caminho);
    /// A write that fails does not disturb the check: the rest is discarded, and `terminar` tells.
    void achado(const Achado& achado) override;
    /// Writes what is still waiting. Raises the first failure of the whole table, as `ArquivoProvisorio::escrever`.
    void terminar();

  private:
    void celula(VistaTexto texto);
    void celulaDoNumero(std::int64_t numero);
    void gravar();

    ArquivoProvisorio& saida_;
    std::string pendente_;
    std::string celulaDoArquivo_;
    std::optional<Falha> falha_; ///< the first one; nothing is written after it
};

} // namespace quilatador
