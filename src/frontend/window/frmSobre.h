#pragma once

#include "common/Arquivos.h"
#include "run/Localidade.h"

#include <cstdint>
#include <filesystem>
#include <optional>

namespace quilatador {

/// What the About box says that is not fixed: the version line.
class frmSobre {
  public:
    /// The program's date is that of "Quilatador.exe" in its folder; where no such file is, as on systems whose
    /// programs have no extension or lie apart from their data, that of `programa`, the running program's own file.
    frmSobre(const Arquivos& arquivos, const Localidade& localidade, std::filesystem::path pastaDoPrograma,
             std::filesystem::path programa);

    /// "Versão 1.00.01 - novembro/1999": the program's version, and the month of its date as the system writes it.
    /// Without a date nothing follows the dash.
    [[nodiscard]] Texto versao() const;

    /// Puts zeros in front of the text, its blanks around it taken off, up to `tamanho` characters, and gives it back.
    /// A text that is as long without its blanks stays as it is.
    static Texto Zeros(Texto& texto, std::int16_t tamanho);
    /// Day of the file's last change; none where there is no such file.
    [[nodiscard]] std::optional<Data> DataHoraDoArquivo(const std::filesystem::path& caminho) const;

  private:
    const Arquivos& arquivos_;
    const Localidade& localidade_;
    std::filesystem::path pastaDoPrograma_;
    std::filesystem::path programa_;
};

} // namespace quilatador
