#pragma once

#include "common/Arquivos.h"
#include "run/Localidade.h"

#include <cstdint>
#include <filesystem>
#include <optional>

namespace quilatador {

/// The part of the About box that is not fixed: the version line.
class frmSobre {
  public:
    /// The program's date is that of "Quilatador.exe" in `pastaDoPrograma`. If there is no such file, because programs
    /// have no extension on this system or lie apart from their data, it is that of `programa`, the running program's
    /// own file.
    frmSobre(const Arquivos& arquivos, const Localidade& localidade, std::filesystem::path pastaDoPrograma,
             std::filesystem::path programa);

    /// "Versão 1.00.01 - novembro/1999": the program's version, then month and year of its date, with the month's name
    /// in the language of the system. Without a date nothing follows the dash.
    [[nodiscard]] Texto versao() const;

    /// Removes the blanks around the text and puts zeros in front of it until it has `tamanho` characters; returns it
    /// too. A text that has as many without its blanks stays as it is.
    static Texto Zeros(Texto& texto, std::int16_t tamanho);
    /// The day of the file's last change, in local time; nothing if there is no such file.
    [[nodiscard]] std::optional<Data> DataHoraDoArquivo(const std::filesystem::path& caminho) const;

  private:
    const Arquivos& arquivos_;
    const Localidade& localidade_;
    std::filesystem::path pastaDoPrograma_;
    std::filesystem::path programa_;
};

} // namespace quilatador
