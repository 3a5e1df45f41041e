#pragma once

#include "common/Data.h"

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

namespace quilatador {

/// What tells one state of a file from another: two are equal as long as nobody changes or replaces the file.
struct VersaoDoArquivo {
    std::uint64_t arquivo = 0;   ///< which one, whatever its name is now
    std::uint64_t tamanho = 0;   ///< bytes
    std::int64_t modificado = 0; ///< when it was last changed, as finely as the system tells

    bool operator==(const VersaoDoArquivo&) const = default;
};

/// An open file to read from its start to its end; closed when destroyed.
class ArquivoEntrada {
  public:
    virtual ~ArquivoEntrada() = default;
    /// The state in which the file is now; always the same for what cannot change.
    [[nodiscard]] virtual VersaoDoArquivo versao() const noexcept { return {}; }
    /// Reads as many bytes as fit, or as are left: 0 at the end of the file. `Falha` 57 where the device fails.
    [[nodiscard]] virtual std::size_t ler(std::span<char> destino) = 0;
};

/// An open file to write.
class ArquivoSaida {
  public:
    virtual ~ArquivoSaida() = default;
    /// Writes all of it, bytes of whatever encoding. `Falha` 61 where the disk is full, 57 for any other fault.
    virtual void escrever(std::string_view bytes) = 0;
    /// Closes the file; what is destroyed without it is closed without report. Fails as `escrever` does.
    virtual void fechar() = 0;
};

/// The files of the system: everything that a run reads or writes goes through here.
class Arquivos {
  public:
    virtual ~Arquivos() = default;
    /// `Falha` 53 where the file is missing, 70 where it may not be read, 75 where it is a folder, 52 for a name
    /// that no file can have.
    [[nodiscard]] virtual std::unique_ptr<ArquivoEntrada> abrirEntrada(const std::filesystem::path& caminho) = 0;
    /// Replaces what was there. Same failures, and 61 where the disk is full.
    [[nodiscard]] virtual std::unique_ptr<ArquivoSaida> criarSaida(const std::filesystem::path& caminho) = 0;
    /// Whether something of this name exists.
    [[nodiscard]] virtual bool existe(const std::filesystem::path& caminho) const = 0;
    /// Bytes of the file, 0 where it has no length (a device) or is missing.
    [[nodiscard]] virtual std::uint64_t tamanho(const std::filesystem::path& caminho) const = 0;
    /// Whether both names lead to one existing file, links followed.
    [[nodiscard]] virtual bool mesmoArquivo(const std::filesystem::path& a, const std::filesystem::path& b) const = 0;
    /// Day of the last change, in local time; none where the file is missing.
    [[nodiscard]] virtual std::optional<Data> modificadoEm(const std::filesystem::path& caminho) const = 0;
};

} // namespace quilatador
