#pragma once

#include "common/Arquivos.h"
#include "common/Texto.h"

#include <filesystem>
#include <optional>

namespace quilatador {

/// What the program's help says of the rules: its tables have a row for each id. The help is read as it is at run time,
/// so that whoever translates or extends it need not touch the program.
class AjudaDasRegras {
  public:
    /// Plain texts, without markup.
    struct Explicacao {
        Texto sentido; ///< what a finding of the rule means
        Texto remedio; ///< how to mend the file
    };

    /// Reads the help. Never fails: one that is missing or cannot be read explains no rule.
    AjudaDasRegras(Arquivos& arquivos, const std::filesystem::path& ajuda);

    /// What the help says of the rule with this id; nothing if it has no such row.
    [[nodiscard]] std::optional<Explicacao> de(VistaTexto id) const;

  private:
    Texto texto_;
};

} // namespace quilatador
