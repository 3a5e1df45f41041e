#include "platform/ArquivosDoSistema.h"

#include "platform/DiaLocal.h"
#include "platform/FalhaDeArquivo.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
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

constexpr mode_t permissoesUsuais = 0666; // minus what the user's umask removes

class Descritor {
  public:
    /// Opens with `modo`, without waiting for the other end of a pipe; a file that this creates gets `permissoes`.
    /// `Falha` as in `Arquivos`.
    Descritor(const std::filesystem::path& caminho, int modo, mode_t permissoes = permissoesUsuais) {
        if (!nomePossivel(caminho)) throw falhaDeArquivo(EINVAL);
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

    /// Keeps other runs from writing to the file. A file system without locks keeps nobody apart, and is not refused
    /// for that.
    void trancar() const {
        const bool livre = semInterrupcao([&] { return ::flock(numero_, LOCK_EX | LOCK_NB); }) == 0;
        if (!livre && errno == EWOULDBLOCK) throw falhaDeArquivo(errno);
    }

    /// Writes as many bytes as the system takes at once, and returns their number.
    [[nodiscard]] std::size_t escrever(std::string_view bytes) const {
        const auto quantos = semInterrupcao([&] { return ::write(numero_, bytes.data(), bytes.size()); });
        if (quantos < 0) throw falhaDeTransferencia(errno);
        return static_cast<std::size_t>(quantos);
    }

    void fechar() {
        const int numero = std::exchange(numero_, -1);
        const bool fechado = numero < 0 || ::close(numero) == 0 || errno == EINTR; // closed even if interrupted
        if (!fechado) throw falhaDeTransferencia(errno);
    }

  private:
    int numero_ = -1;
};

VersaoDoArquivo versaoDe(const struct stat& situacao) noexcept {
    const auto emNanossegundos = [](const timespec& instante) {
        constexpr std::int64_t nanossegundos = 1'000'000'000;
        return instante.tv_sec * nanossegundos + instante.tv_nsec;
    };
    VersaoDoArquivo versao{.volume = situacao.st_dev, .arquivo = situacao.st_ino};
    if (!S_ISREG(situacao.st_mode)) return versao;
    versao.tamanho = static_cast<std::uint64_t>(situacao.st_size);
    versao.modificado = emNanossegundos(situacao.st_mtim);
    versao.alterado = emNanossegundos(situacao.st_ctim);
    return versao;
}

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
        return ::fstat(descritor_.numero(), &situacao) == 0 ? versaoDe(situacao) : VersaoDoArquivo();
    }

  private:
    Descritor descritor_;
};

/// Opens a file that is to be overwritten. It is created only if there is none, because some systems refuse to create
/// what already is there and belongs to somebody else.
Descritor abrirParaGravar(const std::filesystem::path& caminho) {
    try {
        return {caminho, O_WRONLY};
    } catch (const Falha& falha) {
        if (falha.numero() != numeroDeFalha::arquivoNaoEncontrado) throw;
    }
    return {caminho, O_WRONLY | O_CREAT};
}

class SaidaPosix final : public ArquivoSaida {
  public:
    /// A regular file is locked before its old content is lost, so that two runs never write the same one.
    explicit SaidaPosix(Descritor descritor) : descritor_(std::move(descritor)) {
        const struct stat situacao = descritor_.situacao();
        ::fcntl(descritor_.numero(), F_SETFL, 0); // opening must not wait, but writing to a full pipe must
        if (!S_ISREG(situacao.st_mode)) return;
        descritor_.trancar();
        if (situacao.st_size > bytesDaSobra) cortar(bytesDaSobra);
        sobra_ = situacao.st_size > 0;
    }
    SaidaPosix(const SaidaPosix&) = delete;
    SaidaPosix& operator=(const SaidaPosix&) = delete;
    ~SaidaPosix() override {
        if (sobra_) static_cast<void>(::ftruncate(descritor_.numero(), 0) == 0);
    }

    void escrever(std::string_view bytes) override {
        while (!bytes.empty()) {
            const std::size_t quantos = descritor_.escrever(bytes);
            if (quantos > 0) sobra_ = false;
            bytes.remove_prefix(quantos);
        }
    }

    void fechar() override {
        if (std::exchange(sobra_, false)) cortar(0);
        descritor_.fechar();
    }

  private:
    /// What stays of the old content until the first write replaces it. A file that is cut to nothing would be written
    /// to the disk before it is closed, since file systems take it for one that is being replaced; for a huge log that
    /// takes longer than the analysis.
    static constexpr off_t bytesDaSobra = 1;

    void cortar(off_t bytes) const {
        if (semInterrupcao([&] { return ::ftruncate(descritor_.numero(), bytes); }) != 0)
            throw falhaDeTransferencia(errno);
    }

    Descritor descritor_;
    bool sobra_ = false; ///< whether `bytesDaSobra` still stand there
};

/// The file that is replaced stays open and locked, so that no other run writes to what is about to go.
class ProvisorioPosix final : public ArquivoProvisorio {
  public:
    ProvisorioPosix(std::filesystem::path alvo, std::filesystem::path provisorio)
        : alvo_(std::move(alvo)), provisorio_(std::move(provisorio)), anterior_(abrirAnterior(alvo_)) {
        constexpr mode_t soDoDono = 0600; // until it has those of the one before
        const auto situacao = anterior_ ? std::optional(anterior_->situacao()) : std::nullopt;
        descritor_.emplace(provisorio_, O_WRONLY | O_CREAT | O_EXCL, situacao ? soDoDono : permissoesUsuais);
        if (situacao) herdar(*situacao);
    }
    ProvisorioPosix(const ProvisorioPosix&) = delete;
    ProvisorioPosix& operator=(const ProvisorioPosix&) = delete;
    ~ProvisorioPosix() override {
        if (!provisorio_.empty()) ::unlink(provisorio_.c_str());
    }

    void escrever(std::string_view bytes) override {
        while (!bytes.empty())
            bytes.remove_prefix(descritor_->escrever(bytes));
    }

    /// Without `fsync` the name could reach the disk before the bytes do.
    void confirmar() override {
        const bool guardado = semInterrupcao([&] { return ::fsync(descritor_->numero()); }) == 0;
        if (!guardado && errno != EINVAL) throw falhaDeTransferencia(errno);
        descritor_->fechar();
        if (::rename(provisorio_.c_str(), alvo_.c_str()) != 0) throw falhaDeArquivo(errno);
        provisorio_.clear();
    }

  private:
    /// Finds what would keep the file from its place before anything is written.
    static std::optional<Descritor> abrirAnterior(const std::filesystem::path& alvo) {
        struct stat situacao {};
        if (::stat(alvo.c_str(), &situacao) != 0) {
            if (errno != ENOENT) throw falhaDeArquivo(errno);
            return std::nullopt;
        }
        Descritor anterior(alvo, O_WRONLY);
        anterior.trancar();
        return anterior;
    }

    /// Rights that were given to a group are not given to another one.
    void herdar(const struct stat& anterior) const {
        constexpr auto oMesmoDono = static_cast<uid_t>(-1);
        constexpr mode_t permissoesDeTodos = 0777;
        constexpr mode_t permissoesSemGrupo = 0707;
        const int numero = descritor_->numero();
        const bool noGrupo = ::fchown(numero, anterior.st_uid, anterior.st_gid) == 0 ||
                             ::fchown(numero, oMesmoDono, anterior.st_gid) == 0;
        ::fchmod(numero, anterior.st_mode & (noGrupo ? permissoesDeTodos : permissoesSemGrupo));
    }

    std::filesystem::path alvo_;
    std::filesystem::path provisorio_; ///< empty as soon as the file is in its place
    std::optional<Descritor> anterior_;
    std::optional<Descritor> descritor_;
};

bool ehNulo(const struct stat& situacao) noexcept {
    struct stat nulo {};
    return S_ISCHR(situacao.st_mode) && ::stat("/dev/null", &nulo) == 0 && situacao.st_rdev == nulo.st_rdev;
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
    return std::make_unique<SaidaPosix>(abrirParaGravar(caminho));
}

std::unique_ptr<ArquivoProvisorio> ArquivosDoSistema::criarAoLado(const std::filesystem::path& alvo) {
    return std::make_unique<ProvisorioPosix>(alvo, nomeAoLado(alvo));
}

std::optional<VersaoDoArquivo> ArquivosDoSistema::versao(const std::filesystem::path& caminho) const {
    struct stat situacao {};
    if (!nomePossivel(caminho) || ::stat(caminho.c_str(), &situacao) != 0) return std::nullopt;
    return versaoDe(situacao);
}

std::filesystem::path ArquivosDoSistema::comparavel(const std::filesystem::path& nome) {
    return nome;
}

std::optional<Data> ArquivosDoSistema::modificadoEm(const std::filesystem::path& caminho) const {
    struct stat situacao {};
    if (!nomePossivel(caminho) || ::stat(caminho.c_str(), &situacao) != 0) return std::nullopt;
    return diaLocal(situacao.st_mtime);
}

} // namespace quilatador
