#include "platform/ArquivosDoSistema.h"

#include "platform/FalhaDeArquivo.h"
#include "platform/SomaDoSistema.h"

#include <cerrno>
#include <random>
#include <utility>

namespace quilatador {

namespace {

/// More links than any system follows, so that a ring of links comes to an end.
constexpr int maisLigacoes = 64;

/// The folder that a name stands in; for a root, the root itself.
std::filesystem::path pastaDe(const std::filesystem::path& caminho) {
    const std::filesystem::path pasta = caminho.parent_path();
    return pasta.empty() ? std::filesystem::path(".") : pasta;
}

/// The name that a name leads to, be there a file or not. Raises `Falha` 75 for a ring of links.
std::filesystem::path semLigacoes(std::filesystem::path caminho) {
    for (int ligacoes = 0; ligacoes <= maisLigacoes; ++ligacoes) {
        std::error_code semLigacao;
        const std::filesystem::path ligada = std::filesystem::read_symlink(caminho, semLigacao);
        if (semLigacao) return caminho;
        caminho = pastaDe(caminho) / ligada;
    }
    throw falhaDeArquivo(ELOOP);
}

/// What cannot be replaced, and is only written.
class SemProvisorio final : public ArquivoProvisorio {
  public:
    explicit SemProvisorio(std::unique_ptr<ArquivoSaida> saida) : saida_(std::move(saida)) {}

    void escrever(std::string_view bytes) override { saida_->escrever(bytes); }
    void confirmar() override { saida_->fechar(); }

  private:
    std::unique_ptr<ArquivoSaida> saida_;
};

} // namespace

/// Some links, as /dev/stdout on Linux, lead where their text does not: what they lead to has no name to be replaced
/// by.
std::unique_ptr<ArquivoProvisorio> ArquivosDoSistema::criarProvisorio(const std::filesystem::path& caminho) {
    if (!nomePossivel(caminho)) throw falhaDeArquivo(EINVAL);
    const std::filesystem::path alvo = semLigacoes(caminho);
    const auto existente = versao(caminho);
    std::error_code erro;
    const bool trocavel = !existente || (existente == versao(alvo) && std::filesystem::is_regular_file(alvo, erro));
    if (trocavel) return criarAoLado(alvo);
    return std::make_unique<SemProvisorio>(criarSaida(caminho));
}

std::filesystem::path ArquivosDoSistema::nomeAoLado(const std::filesystem::path& alvo) {
    std::random_device sorteio;
    return alvo.parent_path() / (".quilatador-" + std::to_string(sorteio()) + std::to_string(sorteio()) + ".tmp");
}

std::unique_ptr<SomaDoArquivo> ArquivosDoSistema::somar(const std::filesystem::path& caminho) {
    return std::make_unique<SomaDoSistema>(*this, caminho);
}

bool ArquivosDoSistema::existe(const std::filesystem::path& caminho) const {
    std::error_code erro;
    return nomePossivel(caminho) && std::filesystem::exists(caminho, erro);
}

bool ArquivosDoSistema::ehPasta(const std::filesystem::path& caminho) const {
    std::error_code erro;
    return nomePossivel(caminho) && std::filesystem::is_directory(caminho, erro);
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
