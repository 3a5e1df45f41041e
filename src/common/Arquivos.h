#pragma once

#include "common/Data.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quilatador {

/// Identifies one state of a file. Two versions are equal as long as nobody changes or replaces the file between them.
/// What is no regular file, as a folder or a device, has an identity only.
struct VersaoDoArquivo {
    std::uint64_t volume = 0;    ///< with `arquivo` the identity of the file, which stays when it is renamed
    std::uint64_t arquivo = 0;   ///< see `volume`
    std::uint64_t tamanho = 0;   ///< size in bytes
    std::int64_t modificado = 0; ///< time of the last writing, in the finest unit that the system offers
    std::int64_t alterado = 0;   ///< time of the last change of any kind, which no program can put back

    bool operator==(const VersaoDoArquivo&) const = default;
};

/// Where a name leads when all links are followed, whether or not there is a file. Two names with equal destinations
/// are the same file, or will be as soon as one of them is created.
struct Destino {
    std::uint64_t volume = 0;    ///< with `arquivo` the identity of the file, or of the innermost folder that exists
    std::uint64_t arquivo = 0;   ///< see `volume`
    std::filesystem::path falta; ///< what does not exist yet below that folder; empty if the file exists

    // clang-tidy takes the 0 that the compiler compares with for a null pointer.
    auto operator<=>(const Destino&) const = default; // NOLINT(modernize-use-nullptr)
};

/// A file that is open for reading, from its start to its end. The destructor closes it.
class ArquivoEntrada {
  public:
    virtual ~ArquivoEntrada() = default;
    /// The state of the file at this moment. A source that cannot change always gives the same value.
    [[nodiscard]] virtual VersaoDoArquivo versao() const noexcept { return {}; }
    /// Reads as many bytes as fit into `destino`, or as many as are left, and returns their number: 0 at the end of the
    /// file. Raises `Falha` 57 when the device fails.
    [[nodiscard]] virtual std::size_t ler(std::span<char> destino) = 0;
};

/// A file that is open for writing. Write with `escrever`, then call `fechar` to learn whether everything was stored.
class ArquivoSaida {
  public:
    virtual ~ArquivoSaida() = default;
    /// Writes all the bytes, in whatever encoding they are. Raises `Falha` 61 when the disk is full, 57 for any other
    /// fault.
    virtual void escrever(std::string_view bytes) = 0;
    /// Closes the file, with the same failures as `escrever`. The destructor also closes it, but cannot report a
    /// failure.
    virtual void fechar() = 0;
};

/// A file that comes into being as a whole: what is written waits under another name in the folder of its destination
/// until `confirmar` puts it in place of what was there. Before that, or where it fails, the destination stays as it
/// was, and the destructor removes what was written. A device or a pipe cannot be replaced, and is written at once.
class ArquivoProvisorio {
  public:
    virtual ~ArquivoProvisorio() = default;
    /// Writes all the bytes, in whatever encoding they are. Raises the failures of `ArquivoSaida::escrever`.
    virtual void escrever(std::string_view bytes) = 0;
    /// Stores what was written and puts it in its place, for readers in a single step. To be called once, as the last
    /// operation. Raises `Falha` 61 when the disk is full, 57 when the device fails, and those of
    /// `Arquivos::criarSaida` when the place can no longer be taken.
    virtual void confirmar() = 0;
};

/// The SHA-256 of a file, which is made beside everything else from the moment on that this object exists. The
/// destructor gives it up.
class SomaDoArquivo {
  public:
    virtual ~SomaDoArquivo() = default;
    /// Waits for the sum and returns it as 64 lower-case hexadecimal digits; "" when the file cannot be read or is
    /// changed meanwhile. While it waits it asks `desistencia`, if there is one, several times a second whether to stop
    /// waiting, and then returns "".
    [[nodiscard]] virtual std::string hexadecimal(const std::function<bool()>& desistencia) = 0;
};

/// The file system. Everything that a run reads or writes goes through this interface.
class Arquivos {
  public:
    virtual ~Arquivos() = default;
    /// Opens a file for reading. Raises `Falha` 53 when it does not exist, 70 when the user may not read it, 75 when it
    /// is a folder and 52 when the name is impossible for a file.
    [[nodiscard]] virtual std::unique_ptr<ArquivoEntrada> abrirEntrada(const std::filesystem::path& caminho) = 0;
    /// Creates a file for writing, or empties an existing one. Raises the same failures, 55 when somebody else is
    /// writing to it (it then stays as it is), and 61 when the disk is full.
    [[nodiscard]] virtual std::unique_ptr<ArquivoSaida> criarSaida(const std::filesystem::path& caminho) = 0;
    /// Starts a file that is to replace another, or to be new, only once it is complete. Through a link it replaces the
    /// file that the link leads to. Raises the failures of `criarSaida`; 70 also where the folder takes no new file.
    [[nodiscard]] virtual std::unique_ptr<ArquivoProvisorio> criarProvisorio(const std::filesystem::path& caminho) = 0;
    /// Starts to sum a file, which it opens for itself. Never fails: see `SomaDoArquivo`. This object must outlive the
    /// sum.
    [[nodiscard]] virtual std::unique_ptr<SomaDoArquivo> somar(const std::filesystem::path& caminho) = 0;
    /// Whether a file or folder with this name exists.
    [[nodiscard]] virtual bool existe(const std::filesystem::path& caminho) const = 0;
    /// Whether this is the name of an existing folder.
    [[nodiscard]] virtual bool ehPasta(const std::filesystem::path& caminho) const = 0;
    /// Size in bytes; 0 when the file does not exist or has no length, as a device.
    [[nodiscard]] virtual std::uint64_t tamanho(const std::filesystem::path& caminho) const = 0;
    /// The state of the file that the name leads to at this moment; nothing if there is none. It equals that of an open
    /// file as long as the name leads to it.
    [[nodiscard]] virtual std::optional<VersaoDoArquivo> versao(const std::filesystem::path& caminho) const = 0;
    /// Where the name leads. Never fails; an impossible name leads to itself.
    [[nodiscard]] virtual Destino destino(const std::filesystem::path& caminho) const = 0;
    /// The day of the last change in local time, or nothing when the file does not exist.
    [[nodiscard]] virtual std::optional<Data> modificadoEm(const std::filesystem::path& caminho) const = 0;
};

} // namespace quilatador
