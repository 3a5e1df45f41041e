#pragma once

#include <memory>
#include <span>
#include <string>

namespace quilatador {

/// A SHA-256 in the making, by the library that the system has for it. All of it raises `Falha` 1 when that library
/// fails.
class Sha256 {
  public:
    Sha256();
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;
    ~Sha256();

    /// Goes on with the next bytes.
    void juntar(std::span<const char> bytes);
    /// The sum of all the bytes, as 64 lower-case hexadecimal digits. Nothing may be added afterwards.
    [[nodiscard]] std::string terminar();

  private:
    struct Estado;

    std::unique_ptr<Estado> estado_;
};

} // namespace quilatador
