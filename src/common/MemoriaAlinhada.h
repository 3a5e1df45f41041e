#pragma once

#include <cstddef>
#include <memory>
#include <new>

namespace quilatador {

/// Size of a memory page in bytes. The system copies faster between a file and memory that starts at a page boundary.
inline constexpr std::size_t tamanhoDaPagina = 4096;

/// Releases memory that `reservarMemoria` has reserved.
struct SoltarMemoria {
    void operator()(char* bytes) const noexcept { ::operator delete[](bytes, std::align_val_t{tamanhoDaPagina}); }
};

/// A block of bytes that starts at a page boundary.
using MemoriaAlinhada = std::unique_ptr<char[], SoltarMemoria>;

/// Reserves bytes without initializing them, so that memory that is never used costs nothing.
[[nodiscard]] inline MemoriaAlinhada reservarMemoria(std::size_t bytes) {
    return MemoriaAlinhada(static_cast<char*>(::operator new[](bytes, std::align_val_t{tamanhoDaPagina})));
}

} // namespace quilatador
