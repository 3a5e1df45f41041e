#include "platform/Pastas.h"

namespace quilatador {

namespace {

bool temLeiaute(const std::filesystem::path& pasta) {
    std::error_code erro;
    return std::filesystem::exists(pasta / "Arquivo_ZUL702.xml", erro);
}

} // namespace

std::filesystem::path pastaDoPrograma() {
    return pastaDoPrograma(pastaDoExecutavel());
}

std::filesystem::path pastaDoPrograma(const std::filesystem::path& doExecutavel) {
    if (temLeiaute(doExecutavel)) return doExecutavel;
    const std::filesystem::path instalada = (doExecutavel / QUILATADOR_DATADIR).lexically_normal();
    return temLeiaute(instalada) ? instalada : doExecutavel;
}

} // namespace quilatador
