#pragma once

#include "common/Arquivos.h"

namespace quilatador {

/// The files of the machine. Nothing is buffered here: the callers read and write whole blocks.
///
/// Input must be a regular file, or the null device: a pipe may never have a byte and a device may never end, so both
/// are refused (`Falha` 75) without waiting for them. Output may be a device, or a pipe that somebody reads.
class ArquivosDoSistema final : public Arquivos {
  public:
    /// From here on a file that outgrows the user's limit (61) and a pipe that nobody reads any more (57) are failed
    /// writes, also where the system would end the process for them.
    ArquivosDoSistema();

    [[nodiscard]] std::unique_ptr<ArquivoEntrada> abrirEntrada(const std::filesystem::path& caminho) override;
    /// A link or a device of this name is written through. What an old regular file held is gone, be it cut to nothing
    /// or deleted first, whichever the system does faster; one that may not be written stays.
    [[nodiscard]] std::unique_ptr<ArquivoSaida> criarSaida(const std::filesystem::path& caminho) override;
    [[nodiscard]] bool existe(const std::filesystem::path& caminho) const override;
    [[nodiscard]] std::uint64_t tamanho(const std::filesystem::path& caminho) const override;
    [[nodiscard]] bool mesmoArquivo(const std::filesystem::path& a, const std::filesystem::path& b) const override;
    [[nodiscard]] std::optional<Data> modificadoEm(const std::filesystem::path& caminho) const override;
};

} // namespace quilatador
