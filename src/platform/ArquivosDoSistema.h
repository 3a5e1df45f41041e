#pragma once

#include "common/Arquivos.h"

namespace quilatador {

/// The files of the machine. There is no buffer here: the callers read and write whole blocks.
///
/// An input must be a regular file or the null device. A pipe may never deliver a byte and a device may never end, so
/// both are refused without waiting (`Falha` 75). An output may also be a device, or a pipe that somebody reads.
class ArquivosDoSistema final : public Arquivos {
  public:
    /// From now on a file that outgrows the user's limit (`Falha` 61) and a pipe that nobody reads any more (57) make a
    /// write fail, even on systems that would otherwise end the process.
    ArquivosDoSistema();

    [[nodiscard]] std::unique_ptr<ArquivoEntrada> abrirEntrada(const std::filesystem::path& caminho) override;
    /// Writes through a link or a device of this name. An existing regular file keeps its permissions, owner and links,
    /// and loses its content only when this object alone may write to it (`Falha` 55 if another one still does). A
    /// write-protected file stays as it is: `Falha` 70.
    [[nodiscard]] std::unique_ptr<ArquivoSaida> criarSaida(const std::filesystem::path& caminho) override;
    /// The new file has the permissions of the one that it replaces, and its owner and group where the user may give
    /// them; other hard links still lead to the old one. A write-protected file stays as it is: `Falha` 70.
    [[nodiscard]] std::unique_ptr<ArquivoProvisorio> criarProvisorio(const std::filesystem::path& caminho) override;
    [[nodiscard]] std::unique_ptr<SomaDoArquivo> somar(const std::filesystem::path& caminho) override;
    [[nodiscard]] bool existe(const std::filesystem::path& caminho) const override;
    [[nodiscard]] bool ehPasta(const std::filesystem::path& caminho) const override;
    [[nodiscard]] std::uint64_t tamanho(const std::filesystem::path& caminho) const override;
    [[nodiscard]] std::optional<VersaoDoArquivo> versao(const std::filesystem::path& caminho) const override;
    [[nodiscard]] Destino destino(const std::filesystem::path& caminho) const override;
    [[nodiscard]] std::optional<Data> modificadoEm(const std::filesystem::path& caminho) const override;

  private:
    /// The name as this system compares it with another.
    [[nodiscard]] static std::filesystem::path comparavel(const std::filesystem::path& nome);
    /// `criarProvisorio` for a regular file, or one that does not exist yet, whose name is no link.
    [[nodiscard]] static std::unique_ptr<ArquivoProvisorio> criarAoLado(const std::filesystem::path& alvo);
    /// A name that nothing has, in the folder of `alvo` and so in the same file system.
    [[nodiscard]] static std::filesystem::path nomeAoLado(const std::filesystem::path& alvo);
};

} // namespace quilatador
