#pragma once

#include <filesystem>

namespace quilatador {

/// Starts other programs without waiting for them. Raises nothing if none can be started.
class Lancador {
  public:
    virtual ~Lancador() = default;
    /// Opens a log in the plain text editor of the system, in a normal window.
    virtual void abrirTexto(const std::filesystem::path& caminho) = 0;
    /// Opens a document with the program that the system has assigned to it.
    virtual void abrirDocumento(const std::filesystem::path& caminho) = 0;
};

} // namespace quilatador
