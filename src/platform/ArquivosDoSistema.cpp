#include "platform/ArquivosDoSistema.h"

#include "platform/FalhaDeArquivo.h"

namespace quilatador {

namespace {

/// More links than any system follows, so that a ring of links comes to an end.
constexpr int maisLigacoes = 64;

/// The folder that a name stands in; for a root, the root itself.
std::filesystem::path pastaDe(const std::filesystem::path& caminho) {
    const std::filesystem::path pasta = caminho.parent_path();
    return pasta.empty() ? std::filesystem::path(".") : pasta;
}

} // namespace

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

/// Follows a name as the system does when it creates a file: through links that lead to nothing, too.
Destino ArquivosDoSistema::destino(const std::filesystem::path& caminho) const {
    if (!nomePossivel(caminho)) return {.falta = caminho};
    std::filesystem::path alvo = caminho;
    std::filesystem::path falta;
    for (int ligacoes = 0; ligacoes <= maisLigacoes;) {
        if (const auto achado = versao(alvo)) return {achado->volume, achado->arquivo, comparavel(falta)};
        const std::filesystem::path pasta = pastaDe(alvo);
        std::error_code semLigacao;
        const std::filesystem::path ligada = std::filesystem::read_symlink(alvo, semLigacao);
        if (!semLigacao) {
            alvo = pasta / ligada;
            ++ligacoes;
        } else if (pasta != alvo) {
            falta = falta.empty() ? alvo.filename() : alvo.filename() / falta;
            alvo = pasta;
        } else {
            break;
        }
    }
    return {.falta = comparavel(caminho)};
}

} // namespace quilatador
