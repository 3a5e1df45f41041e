#include "support/Remessas.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace quilatador {
namespace {

using testes::lerTudo;
using testes::remessa;

#if defined(__SANITIZE_ADDRESS__)
constexpr long memoriaMaxima = 1 << 20; // in KiB; the sanitizer has most of it
#else
constexpr long memoriaMaxima = 32 * 1024;
#endif

constexpr VistaTexto fim = "Depuração terminada!\r\n"_t;
constexpr VistaTexto cancelada = "\r\n\r\nDEPURACAO CANCELADA!\r\nDepuração terminada!\r\n"_t;

/// The real program at work in a temporary folder.
class PontaAPonta : public testing::Test {
  protected:
    struct Fim {
        int situacao = -1;
        std::string saida;
        std::string erros;
        long memoria = 0; ///< peak, in KiB
    };

    void iniciar(std::vector<std::string> argumentos, int saida = -1) {
        argumentos.insert(argumentos.begin(), QUILATADOR_CLI);
        std::vector<char*> ponteiros;
        for (std::string& argumento : argumentos)
            ponteiros.push_back(argumento.data());
        ponteiros.push_back(nullptr);
        const std::string saidaPadrao = (pasta / "saida").string();
        const std::string erros = (pasta / "erros").string();
        filho_ = ::fork();
        if (filho_ != 0) return;
        if (noFilho) noFilho();
        if (saida < 0) saida = ::open(saidaPadrao.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        ::dup2(saida, STDOUT_FILENO);
        ::dup2(::open(erros.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
        ::execv(QUILATADOR_CLI, ponteiros.data());
        ::_exit(99);
    }

    void sinalizar(int sinal) const { ::kill(filho_, sinal); }

    Fim esperar() {
        int estado = 0;
        struct rusage uso {};
        ::wait4(filho_, &estado, 0, &uso);
        return {WIFEXITED(estado) ? WEXITSTATUS(estado) : -1, lerTudo(pasta / "saida"), lerTudo(pasta / "erros"),
                uso.ru_maxrss};
    }

    /// Runs it on a file, with its log in the folder.
    Fim rodar(const std::filesystem::path& entrada, std::vector<std::string> opcoes = {}) {
        opcoes.insert(opcoes.end(), {"--log", log().string(), "--", entrada.string()});
        iniciar(std::move(opcoes));
        return esperar();
    }

    [[nodiscard]] std::filesystem::path log() const { return pasta / "log"; }

    testes::PastaTemporaria pasta;
    std::function<void()> noFilho; ///< done in the new process before the program starts

  private:
    pid_t filho_ = -1;
};

/// The lines of a log that are the same on each day and machine.
Texto semTituloNemTempo(const Texto& log) {
    return log.substr(log.find('\n'), log.find("Tempo Decorrido") - log.find('\n'));
}

TEST_F(PontaAPonta, remessaComErros) {
    const std::filesystem::path exemplo = std::filesystem::path(QUILATADOR_SAMPLES) / "remessa-com-erros";
    const auto entrada = pasta.escrever("a'\" .rem", lerTudo(exemplo / "remessa.rem"));
    EXPECT_EQ(rodar(entrada, {"--com-data", "--formato", "AAAAMMDD"}).situacao, 1);
    EXPECT_EQ(semTituloNemTempo(lerTudo(log())), semTituloNemTempo(lerTudo(exemplo / "remessa.log")));
    EXPECT_EQ(rodar(pasta.escrever("boa.rem", remessa())).situacao, 0);
}

TEST_F(PontaAPonta, aEntradaFicaComoEstava) {
    const auto entrada = pasta.escrever("remessa.rem", remessa({.falhas = true}));
    std::filesystem::permissions(entrada, std::filesystem::perms::owner_read);
    struct stat antes {};
    struct stat depois {};
    ASSERT_EQ(::stat(entrada.c_str(), &antes), 0);
    EXPECT_EQ(rodar(entrada).situacao, 1);
    ASSERT_EQ(::stat(entrada.c_str(), &depois), 0);
    EXPECT_EQ(lerTudo(entrada), remessa({.falhas = true}));
    EXPECT_TRUE(antes.st_mtim.tv_sec == depois.st_mtim.tv_sec && antes.st_mtim.tv_nsec == depois.st_mtim.tv_nsec);
    EXPECT_TRUE(antes.st_ino == depois.st_ino && antes.st_mode == depois.st_mode);
}

/// From here on the process ends at its first socket.
void proibirRede() {
    std::array<sock_filter, 4> regras{{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                                       BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_socket, 0, 1),
                                       BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_KILL_PROCESS),
                                       BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)}};
    const sock_fprog programa{regras.size(), regras.data()};
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &programa);
}

TEST_F(PontaAPonta, nenhumaRede) {
    noFilho = [] {
        proibirRede();
        ::close(::socket(AF_INET, SOCK_STREAM, 0));
    };
    if (rodar(pasta.escrever("boa.rem", remessa())).situacao != -1) GTEST_SKIP() << "sockets cannot be forbidden here";
    noFilho = proibirRede;
    EXPECT_EQ(rodar(pasta / "boa.rem").situacao, 0);
    EXPECT_EQ(rodar(pasta.escrever("ruim.rem", remessa({.falhas = true})), {"--json"}).situacao, 1);
    EXPECT_EQ(rodar(pasta.escrever("impressao.ret", remessa({.tipo = gerador::Tipo::ZUL708, .guias = 5}))).situacao, 1);
    EXPECT_EQ(rodar(pasta.escrever("liquidacao", remessa({.tipo = gerador::Tipo::TAV001, .registros = 3}))).situacao,
              0);
}

TEST_F(PontaAPonta, entradasQueNaoSeLeem) {
    std::filesystem::create_directory(pasta / "pasta");
    ::mkfifo((pasta / "fila").c_str(), 0600);
    std::filesystem::create_symlink(pasta / "nada", pasta / "solto");
    std::filesystem::permissions(pasta.escrever("fechado", remessa()), std::filesystem::perms::none);
    const std::pair<const char*, std::string> casos[] = {
        {"nada", "Arquivo não encontrado!"},
        {"solto", "Arquivo não encontrado!"},
        {"pasta", "Erro de acesso ao caminho/arquivo"},
        {"fila", "Erro de acesso ao caminho/arquivo"},
        {"/dev/zero", "Erro de acesso ao caminho/arquivo"},
        {"fechado", "Permissão negada"},
    };
    for (const auto& [nome, motivo] : casos) {
        if (::geteuid() == 0 && nome == VistaTexto("fechado")) continue; // nothing is closed to root
        const Fim resultado = rodar(pasta / nome);
        EXPECT_EQ(resultado.situacao, 2) << nome;
        EXPECT_EQ(resultado.erros, "");
        EXPECT_EQ(resultado.saida, (pasta / nome).string() + ": não foi possível analisar: " + motivo +
                                       "\n  log: " + log().string() + "\n");
        EXPECT_TRUE(lerTudo(log()).ends_with(junta("\r\n\r\n", textoDeUtf8(motivo), "\r\n", fim))) << nome;
    }
}

TEST_F(PontaAPonta, arquivosEnormesEmPoucaMemoria) {
    const auto zeros = pasta.escrever("zeros", "");
    std::filesystem::resize_file(zeros, 100'000'000);
    const auto umaLinha = pasta.escrever("linha", Texto(10'000'000, 'A'));
    const auto grande = pasta.escrever("grande", remessa({.registros = 100'000}));
    for (const auto& [entrada, situacao] : {std::pair{zeros, 1}, {umaLinha, 1}, {grande, 0}}) {
        const Fim resultado = rodar(entrada);
        EXPECT_EQ(resultado.situacao, situacao);
        EXPECT_LT(resultado.memoria, memoriaMaxima) << entrada;
        EXPECT_TRUE(lerTudo(log()).ends_with(fim));
    }
}

TEST_F(PontaAPonta, logNuncaCaiSobreAEntrada) {
    const auto entrada = pasta.escrever("remessa.rem", remessa());
    for (const bool simbolico : {true, false}) {
        std::filesystem::remove(log());
        if (simbolico)
            std::filesystem::create_symlink(entrada, log());
        else
            std::filesystem::create_hard_link(entrada, log());
        const Fim resultado = rodar(entrada);
        EXPECT_EQ(resultado.situacao, 2);
        EXPECT_EQ(resultado.erros, "O arquivo de log seria o próprio arquivo analisado: " + log().string() + "\n");
        EXPECT_EQ(lerTudo(entrada), remessa());
    }
}

TEST_F(PontaAPonta, discoCheioNuncaSeCala) {
    const auto entrada = pasta.escrever("remessa.rem", remessa()).string();
    iniciar({"-q", "--log", "/dev/full", entrada});
    const Fim doLog = esperar();
    EXPECT_EQ(doLog.situacao, 2);
    EXPECT_EQ(doLog.erros, "Erro na gravação do arquivo de log: /dev/full (Disco cheio)\n");
    const int cheio = ::open("/dev/full", O_WRONLY);
    for (const char* opcao : {"--json", "--ajuda", "--versao"}) {
        iniciar({opcao, "--log", log().string(), entrada}, cheio);
        EXPECT_EQ(esperar().situacao, 2) << opcao;
    }
}

/// A remittance with a finding in each record, so that its log is long.
Texto remessaRuim(std::uint32_t registros) {
    Texto arquivo = remessa({.registros = registros});
    for (std::size_t i = 220; i < arquivo.size(); i += testes::bytesDaLinha)
        arquivo[i] = "ç"_t[0];
    return arquivo;
}

TEST_F(PontaAPonta, limiteDeTamanhoNuncaSeCala) {
    const auto entrada = pasta.escrever("remessa.rem", remessaRuim(20'000));
    EXPECT_EQ(rodar(entrada).situacao, 1);
    const Texto inteiro = lerTudo(log());
    constexpr std::size_t limite = 64 * 1024;
    noFilho = [] {
        const rlimit tamanho{limite, limite};
        ::setrlimit(RLIMIT_FSIZE, &tamanho);
        ::setenv("LLVM_PROFILE_FILE", "/dev/null", 1); // which a build that measures coverage could not write either
    };
    const Fim resultado = rodar(entrada);
    EXPECT_EQ(resultado.situacao, 2);
    EXPECT_EQ(resultado.erros, "Erro na gravação do arquivo de log: " + log().string() + " (Disco cheio)\n");
    EXPECT_EQ(lerTudo(log()), inteiro.substr(0, limite)); // nothing of it claims success
}

/// A disk of its own for the program, where the system lets one be made.
TEST_F(PontaAPonta, discoPequenoOuSoDeLeitura) {
    const auto entrada = pasta.escrever("remessa.rem", remessaRuim(20'000)).string();
    const auto disco = pasta / "disco";
    std::filesystem::create_directory(disco);
    const std::string relatorio = (disco / "log").string();
    constexpr int semDisco = 77;
    const std::pair<unsigned long, std::string> casos[] = {
        {0, "Erro na gravação do arquivo de log: " + relatorio + " (Disco cheio)\n"},
        {MS_RDONLY, "Erro na criacao do arquivo de log: " + relatorio + "\n"}};
    for (const auto& [modo, erro] : casos) {
        noFilho = [&, &opcoes = modo] {
            const bool feito = ::unshare(::geteuid() == 0 ? CLONE_NEWNS : CLONE_NEWNS | CLONE_NEWUSER) == 0 &&
                               ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                               ::mount("none", disco.c_str(), "tmpfs", opcoes, "size=64k") == 0;
            if (!feito) ::_exit(semDisco);
        };
        iniciar({"-q", "--log", relatorio, entrada});
        const Fim resultado = esperar();
        if (resultado.situacao == semDisco) GTEST_SKIP() << "no disk can be made here";
        EXPECT_EQ(resultado.situacao, 2);
        EXPECT_EQ(resultado.erros, erro);
    }
}

TEST_F(PontaAPonta, nomesDificeis) {
    const std::pair<std::string, std::string> casos[] = {{"a\nb.rem", "a\\x0Ab.rem"},
                                                         {"'\"$(x);`y`.rem", "'\"$(x);`y`.rem"},
                                                         {"-q", "-q"},
                                                         {"\x1B[2J\x7F", "\\x1B[2J\\x7F"},
                                                         {std::string(250, 'n'), std::string(250, 'n')}};
    for (const auto& [nome, mostrado] : casos) {
        const Fim resultado = rodar(pasta.escrever(nome, remessa()));
        EXPECT_EQ(resultado.situacao, 0) << nome;
        EXPECT_EQ(resultado.saida,
                  (pasta / mostrado).string() + ": 0 erros; 1 guia lida\n  log: " + log().string() + "\n");
        EXPECT_TRUE(lerTudo(log()).starts_with(junta("LOG DE DEPURAÇÃO DO ARQUIVO "_t, (pasta / nome).string(), " ")));
    }
    for (const std::size_t tamanho : {256u, 4096u, 100'000u}) {
        const Fim resultado = rodar(pasta / std::string(tamanho, 'n'));
        EXPECT_EQ(resultado.situacao, 2);
        EXPECT_TRUE(resultado.saida.find("não foi possível analisar: Nome de arquivo inválido") != std::string::npos);
        EXPECT_TRUE(lerTudo(log()).ends_with(fim));
    }
}

TEST_F(PontaAPonta, logNuncaCaiSobreOPrograma) {
    const auto entrada = pasta.escrever("remessa.rem", remessa());
    const auto programa = pasta / "programa";
    std::filesystem::create_directory(programa);
    const char* const arquivos[] = {"Arquivo_ZUL702.xml", "TabelaErrosZUL.mdb"};
    for (const char* nome : arquivos)
        std::filesystem::copy_file(std::filesystem::path(QUILATADOR_CLI).parent_path() / nome, programa / nome);
    for (const char* nome : arquivos) {
        const Texto antes = lerTudo(programa / nome);
        for (const bool simbolico : {true, false}) {
            std::filesystem::remove(log());
            if (simbolico)
                std::filesystem::create_symlink(programa / nome, log());
            else
                std::filesystem::create_hard_link(programa / nome, log());
            const Fim resultado = rodar(entrada, {"--pasta", programa.string()});
            EXPECT_EQ(resultado.situacao, 2) << nome;
            EXPECT_EQ(resultado.erros,
                      "O arquivo de log seria um arquivo do próprio programa: " + log().string() + "\n");
            EXPECT_TRUE(lerTudo(programa / nome) == antes) << nome;
        }
    }
}

TEST_F(PontaAPonta, canoFechadoAcabaSemBarulho) {
    const auto entrada = pasta.escrever("remessa.rem", remessa()).string();
    std::array<int, 2> cano{};
    ASSERT_EQ(::pipe(cano.data()), 0);
    ::close(cano[0]);
    for (const char* opcao : {"--json", "--ajuda"}) {
        iniciar({opcao, "--log", log().string(), entrada}, cano[1]);
        const Fim resultado = esperar();
        EXPECT_EQ(resultado.situacao, 2) << opcao;
        EXPECT_EQ(resultado.erros, "");
    }
    ::close(cano[1]);
    EXPECT_TRUE(lerTudo(log()).ends_with(fim)); // the analysis was whole all the same
}

/// Waits for the program to write into a pipe.
bool chegouAlgo(int cano) {
    struct pollfd espera {
        cano, POLLIN, 0
    };
    return ::poll(&espera, 1, 60'000) == 1;
}

Texto lerAteOFim(int cano) {
    Texto lido;
    std::array<char, 65536> bloco{};
    for (ssize_t bytes = 1; bytes != 0;) {
        bytes = ::read(cano, bloco.data(), bloco.size());
        if (bytes > 0) lido.append(bloco.data(), static_cast<std::size_t>(bytes));
        if (bytes < 0) chegouAlgo(cano);
    }
    return lido;
}

/// As below, the program stands still at its log while the file is changed.
TEST_F(PontaAPonta, entradaAlteradaNoMeioDaExecucao) {
    const Texto original = remessaRuim(20'000);
    ::mkfifo(log().c_str(), 0600);
    for (const std::size_t tamanho : {original.size() * 2, original.size() / 2, std::size_t{0}}) {
        const auto entrada = pasta.escrever("remessa.rem", original);
        const int leitura = ::open(log().c_str(), O_RDONLY | O_NONBLOCK);
        iniciar({"--log", log().string(), entrada.string()});
        ASSERT_TRUE(chegouAlgo(leitura));
        std::filesystem::resize_file(entrada, tamanho);
        const Texto lido = lerAteOFim(leitura);
        const Fim resultado = esperar();
        ::close(leitura);
        EXPECT_EQ(resultado.situacao, 2) << tamanho;
        EXPECT_TRUE(lido.ends_with(junta("O arquivo foi alterado durante a análise!\r\n"_t, fim))) << tamanho;
        EXPECT_EQ(lido.find("Erros encontrados"), Texto::npos) << tamanho;
    }
}

/// The log is a pipe that holds less than the run has to write: the signal comes in the middle for certain.
TEST_F(PontaAPonta, sinalNoMeioDaExecucao) {
    const auto entrada = pasta.escrever("remessa.rem", remessaRuim(20'000)).string();
    ::mkfifo(log().c_str(), 0600);
    for (const auto& [sinal, vezes] : {std::pair{SIGINT, 1}, {SIGTERM, 1}, {SIGINT, 2}}) {
        const int leitura = ::open(log().c_str(), O_RDONLY | O_NONBLOCK);
        iniciar({"--log", log().string(), entrada});
        ASSERT_TRUE(chegouAlgo(leitura));
        for (int vez = 0; vez < vezes; ++vez) {
            sinalizar(sinal);
            std::this_thread::sleep_for(std::chrono::milliseconds(50)); // two at once would count as one
        }
        const Texto lido = vezes == 1 ? lerAteOFim(leitura) : Texto();
        const Fim resultado = esperar();
        ::close(leitura);
        EXPECT_EQ(resultado.situacao, 130);
        EXPECT_EQ(lido.ends_with(cancelada), vezes == 1);
        EXPECT_EQ(resultado.saida.find("análise cancelada") != std::string::npos, vezes == 1); // else at once
    }
}

} // namespace
} // namespace quilatador
