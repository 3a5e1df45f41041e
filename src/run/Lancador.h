#pragma once

#include <filesystem>

namespace quilatador {

/// Starts other programs, without waiting for them. Nothing is reported when one cannot be started.
class Lancador {
  public:
    virtual ~Lancador() = default;
    /// Opens a log in the system's plain text editor, in a normal window.
    virtual void abrirTexto(const std::filesystem::path& caminho) = 0;
    /// Opens a document with the program that the system has for it.
    virtual void abrirDocumento(const std::filesystem::path& caminho) = 0;
};

} // namespace quilatador
