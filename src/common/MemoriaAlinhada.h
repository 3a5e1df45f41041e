#pragma once

#include <cstddef>
#include <memory>
#include <new>

namespace quilatador {

/// Where a page of memory begins. The system copies between a file and memory faster where both begin a page.
inline constexpr std::size_t tamanhoDaPagina = 4096;

struct SoltarMemoria {
    void operator()(char* bytes) const noexcept { ::operator delete[](bytes, std::align_val_t{tamanhoDaPagina}); }
};

/// Bytes that begin a page.
using MemoriaAlinhada = std::unique_ptr<char[], SoltarMemoria>;

/// Reserves bytes that are not set to anything: what is never used costs nothing.
[[nodiscard]] inline MemoriaAlinhada reservarMemoria(std::size_t bytes) {
    return MemoriaAlinhada(static_cast<char*>(::operator new[](bytes, std::align_val_t{tamanhoDaPagina})));
}

} // namespace quilatador
