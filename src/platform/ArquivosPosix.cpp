#include "platform/ArquivosDoSistema.h"

#include "platform/DiaLocal.h"
#include "platform/FalhaDeArquivo.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace quilatador {

namespace {

/// Repeats a system call as long as a signal interrupts it.
template <typename Chamada>
auto semInterrupcao(Chamada chamada) {
    auto resultado = chamada();
    while (resultado < 0 && errno == EINTR)
        resultado = chamada();
    return resultado;
}

class Descritor {
  public:
    /// Opens with `modo`, without waiting for the other end of a pipe. `Falha` as in `Arquivos`.
    Descritor(const std::filesystem::path& caminho, int modo) {
        if (!nomePossivel(caminho)) throw falhaDeArquivo(EINVAL);
        constexpr mode_t permissoes = 0666; // minus what the user's umask removes
        const int opcoes = modo | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
        numero_ = semInterrupcao([&] { return ::open(caminho.c_str(), opcoes, permissoes); });
        if (numero_ < 0) throw falhaDeArquivo(errno);
    }
    Descritor(Descritor&& outro) noexcept : numero_(std::exchange(outro.numero_, -1)) {}
    Descritor& operator=(Descritor&&) = delete;
    ~Descritor() {
        if (numero_ >= 0) ::close(numero_);
    }

    [[nodiscard]] int numero() const noexcept { return numero_; }

    [[nodiscard]] struct stat situacao() const {
        struct stat dados {};
        if (::fstat(numero_, &dados) != 0) throw falhaDeArquivo(errno);
        return dados;
    }

    void fechar() {
        const int numero = std::exchange(numero_, -1);
        const bool fechado = numero < 0 || ::close(numero) == 0 || errno == EINTR; // closed even if interrupted
        if (!fechado) throw falhaDeTransferencia(errno);
    }

  private:
    int numero_ = -1;
};

class EntradaPosix final : public ArquivoEntrada {
  public:
    explicit EntradaPosix(Descritor descritor) : descritor_(std::move(descritor)) {}

    [[nodiscard]] std::size_t ler(std::span<char> destino) override {
        std::size_t lidos = 0;
        while (lidos < destino.size()) {
            const auto resto = destino.subspan(lidos);
            const auto quantos =
                semInterrupcao([&] { return ::read(descritor_.numero(), resto.data(), resto.size()); });
            if (quantos < 0) throw falhaDeTransferencia(errno);
            if (quantos == 0) break;
            lidos += static_cast<std::size_t>(quantos);
        }
        return lidos;
    }

    [[nodiscard]] VersaoDoArquivo versao() const noexcept override {
        struct stat situacao {};
        if (::fstat(descritor_.numero(), &situacao) != 0 || !S_ISREG(situacao.st_mode)) return {};
        constexpr std::int64_t nanossegundos = 1'000'000'000;
        return {.arquivo = situacao.st_ino,
                .tamanho = static_cast<std::uint64_t>(situacao.st_size),
                .modificado = situacao.st_mtim.tv_sec * nanossegundos + situacao.st_mtim.tv_nsec};
    }

  private:
    Descritor descritor_;
};

class SaidaPosix final : public ArquivoSaida {
  public:
    explicit SaidaPosix(Descritor descritor) : descritor_(std::move(descritor)) {}

    void escrever(std::string_view bytes) override {
        while (!bytes.empty()) {
            const auto quantos =
                semInterrupcao([&] { return ::write(descritor_.numero(), bytes.data(), bytes.size()); });
            if (quantos < 0) throw falhaDeTransferencia(errno);
            bytes.remove_prefix(static_cast<std::size_t>(quantos));
        }
    }

    void fechar() override { descritor_.fechar(); }

  private:
    Descritor descritor_;
};

bool ehNulo(const struct stat& situacao) noexcept {
    struct stat nulo {};
    return S_ISCHR(situacao.st_mode) && ::stat("/dev/null", &nulo) == 0 && situacao.st_rdev == nulo.st_rdev;
}

/// Deletes an old log, because truncating a huge one takes longer. A log that the user has write-protected stays, and
/// opening it fails as it should.
void apagarAntigo(const std::filesystem::path& caminho) noexcept {
    struct stat situacao {};
    if (::lstat(caminho.c_str(), &situacao) != 0 || !S_ISREG(situacao.st_mode)) return;
    if (::faccessat(AT_FDCWD, caminho.c_str(), W_OK, AT_EACCESS) == 0) ::unlink(caminho.c_str());
}

} // namespace

ArquivosDoSistema::ArquivosDoSistema() {
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
}

std::unique_ptr<ArquivoEntrada> ArquivosDoSistema::abrirEntrada(const std::filesystem::path& caminho) {
    Descritor descritor(caminho, O_RDONLY);
    const struct stat situacao = descritor.situacao();
    if (!S_ISREG(situacao.st_mode) && !ehNulo(situacao)) throw falhaDeArquivo(EISDIR);
    ::posix_fadvise(descritor.numero(), 0, 0, POSIX_FADV_SEQUENTIAL);
    return std::make_unique<EntradaPosix>(std::move(descritor));
}

std::unique_ptr<ArquivoSaida> ArquivosDoSistema::criarSaida(const std::filesystem::path& caminho) {
    if (nomePossivel(caminho)) apagarAntigo(caminho);
    Descritor descritor(caminho, O_WRONLY | O_CREAT | O_TRUNC);
    ::fcntl(descritor.numero(), F_SETFL, 0); // opening must not wait, but writing to a full pipe must
    return std::make_unique<SaidaPosix>(std::move(descritor));
}

std::optional<Data> ArquivosDoSistema::modificadoEm(const std::filesystem::path& caminho) const {
    struct stat situacao {};
    if (!nomePossivel(caminho) || ::stat(caminho.c_str(), &situacao) != 0) return std::nullopt;
    return diaLocal(situacao.st_mtime);
}

} // namespace quilatador
