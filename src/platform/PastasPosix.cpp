#include "platform/Pastas.h"

namespace quilatador {

std::filesystem::path pastaDoExecutavel() {
    std::error_code erro;
    return std::filesystem::read_symlink("/proc/self/exe", erro).parent_path();
}

} // namespace quilatador
