#include "platform/ArquivosDoSistema.h"

#include "platform/FalhaDeArquivo.h"

namespace quilatador {

bool ArquivosDoSistema::existe(const std::filesystem::path& caminho) const {
    std::error_code erro;
    return nomePossivel(caminho) && std::filesystem::exists(caminho, erro);
}

std::uint64_t ArquivosDoSistema::tamanho(const std::filesystem::path& caminho) const {
    if (!nomePossivel(caminho)) return 0;
    std::error_code erro;
    const std::uintmax_t bytes = std::filesystem::file_size(caminho, erro);
    return erro ? 0 : bytes;
}

bool ArquivosDoSistema::mesmoArquivo(const std::filesystem::path& a, const std::filesystem::path& b) const {
    std::error_code erro;
    return nomePossivel(a) && nomePossivel(b) && std::filesystem::equivalent(a, b, erro) && !erro;
}

} // namespace quilatador
