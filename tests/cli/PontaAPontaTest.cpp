#include "support/Remessas.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
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

using testes::lerTexto;
using testes::lerTudo;
using testes::remessa;

#if defined(__SANITIZE_ADDRESS__)
constexpr long memoriaMaxima = 1 << 20; // in KiB; the sanitizer has most of it
#else
constexpr long memoriaMaxima = 32 * 1024;
#endif

constexpr VistaTexto fim = "Depuração terminada!\r\n"_t;
constexpr VistaTexto cancelada = "\r\n\r\nDEPURACAO CANCELADA!\r\nDepuração terminada!\r\n"_t;

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

/// The real program at work in a temporary folder, without a network.
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
        if (saida < 0) saida = ::open(saidaPadrao.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
        ::dup2(saida, STDOUT_FILENO);
        ::dup2(::open(erros.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
        proibirRede();
        if (noFilho) noFilho();
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
std::string semTituloNemTempo(const std::string& log) {
    return log.substr(log.find('\n'), log.find("Tempo Decorrido") - log.find('\n'));
}

TEST_F(PontaAPonta, remessaComErros) {
    const std::filesystem::path exemplo = std::filesystem::path(QUILATADOR_SAMPLES) / "remessa-com-erros";
    const auto entrada = pasta.escrever("-a'\" $(x);`y`.rem", lerTudo(exemplo / "remessa.rem"));
    EXPECT_EQ(rodar(entrada, {"--com-data", "--formato", "AAAAMMDD"}).situacao, 1);
    EXPECT_EQ(semTituloNemTempo(lerTudo(log())), semTituloNemTempo(lerTudo(exemplo / "remessa.log")));
    EXPECT_EQ(rodar(pasta.escrever("boa.rem", bytesDoTexto(remessa()))).situacao, 0);
}

TEST_F(PontaAPonta, aEntradaFicaComoEstava) {
    const auto entrada = pasta.escrever("remessa.rem", bytesDoTexto(remessa({.falhas = true})));
    std::filesystem::permissions(entrada, std::filesystem::perms::owner_read);
    const auto modificada = std::filesystem::last_write_time(entrada);
    EXPECT_EQ(rodar(entrada).situacao, 1);
    EXPECT_EQ(lerTexto(entrada), remessa({.falhas = true}));
    EXPECT_EQ(std::filesystem::last_write_time(entrada), modificada);
    EXPECT_EQ(std::filesystem::status(entrada).permissions(), std::filesystem::perms::owner_read);
}

TEST_F(PontaAPonta, arquivosEnormesEmPoucaMemoria) {
    const auto zeros = pasta.escrever("zeros", "");
    std::filesystem::resize_file(zeros, 100'000'000);
    const auto umaLinha = pasta.escrever("linha", std::string(10'000'000, 'A'));
    const auto grande = pasta.escrever("grande", bytesDoTexto(remessa({.registros = 100'000})));
    const auto guardada = pasta.escrever("guardada", bytesDoTexto(testes::comRepetidos(remessa(), "LY"_t, 20'000)));
    for (const auto& [entrada, situacao] : {std::pair{zeros, 1}, {umaLinha, 1}, {grande, 0}, {guardada, 1}}) {
        const Fim resultado = rodar(entrada);
        EXPECT_EQ(resultado.situacao, situacao);
        EXPECT_LT(resultado.memoria, memoriaMaxima) << entrada;
        EXPECT_TRUE(lerTexto(log()).ends_with(fim));
    }
}

/// A large remittance is checked by two threads, whatever they meet and wherever.
TEST_F(PontaAPonta, arquivoGrandeConferidoPorDois) {
    const Texto certa = remessa({.registros = 30'000});
    const std::size_t primeira = testes::letrasDe(certa).find('T') + 1;
    const std::size_t ultima = testes::letrasDe(certa).rfind('T') + 1;
    const gerador::Campo nome{'T', "Nome", 29, 50};
    const std::tuple<const char*, Texto, const char*> casos[] = {
        {"certa", certa, "sem erros; 2.725 guias: 2.725 certas\n"},
        {"primeira", testes::comCampo(certa, primeira, nome, {}),
         "1 causa (1 erro); 2.725 guias: 2.724 certas, 1 com erro\n"},
        {"ultima", testes::comCampo(certa, ultima, nome, {}),
         "1 causa (1 erro); 2.725 guias: 2.724 certas, 1 com erro\n"},
        {"perdida", Texto(certa).erase(primeira * testes::bytesDaLinha, testes::bytesDaLinha),
         "1 causa (3 erros); 2.725 guias: 2.724 certas, 1 com erro\n"}};
    for (const auto& [caso, arquivo, fimEsperado] : casos) {
        const auto entrada = pasta.escrever("grande.rem", bytesDoTexto(arquivo));
        iniciar({"--completa", "--log", log().string(), entrada.string()});
        const std::string saida = esperar().saida;
        EXPECT_NE(saida.find(std::string("Conferência completa: ") + fimEsperado), std::string::npos) << caso << saida;
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
    const auto entrada = pasta.escrever("remessa.rem", bytesDoTexto(remessaRuim(20'000)));
    EXPECT_EQ(rodar(entrada).situacao, 1);
    const std::string inteiro = lerTudo(log());
    constexpr std::size_t limite = 64 * 1024;
    noFilho = [] {
        const rlimit tamanho{limite, limite};
        ::setrlimit(RLIMIT_FSIZE, &tamanho);
        ::setenv("LLVM_PROFILE_FILE", "/dev/null", 1); // which a build that measures coverage could not write either
    };
    const Fim resultado = rodar(entrada);
    EXPECT_EQ(resultado.situacao, 2);
    EXPECT_EQ(resultado.erros, entrada.string() + ": não foi possível analisar: Erro na gravação do arquivo de log: " +
                                   log().string() + " (Disco cheio)\n");
    EXPECT_EQ(lerTudo(log()), inteiro.substr(0, limite)); // nothing of it claims success
}

TEST_F(PontaAPonta, saidaFechadaOuCheiaAcabaSemBarulho) {
    const auto entrada = pasta.escrever("remessa.rem", bytesDoTexto(remessa())).string();
    std::array<int, 2> cano{};
    ASSERT_EQ(::pipe(cano.data()), 0);
    ::close(cano[0]);
    const int cheio = ::open("/dev/full", O_WRONLY);
    for (const int saida : {cano[1], cheio}) {
        for (const char* opcao : {"--com-data", "--json", "--ajuda", "--versao"}) {
            std::filesystem::remove(log());
            iniciar({opcao, "--formato", "AAAAMMDD", "--log", log().string(), entrada}, saida);
            const Fim resultado = esperar();
            EXPECT_EQ(resultado.situacao, 2) << opcao;
            EXPECT_EQ(resultado.erros, "");
            // The analysis, where one was asked for, was whole all the same.
            EXPECT_EQ(lerTexto(log()).ends_with(fim), opcao[2] != 'a' && opcao[2] != 'v') << opcao;
        }
        ::close(saida);
    }
}

TEST_F(PontaAPonta, canalFechadoNaoDaLugarAoLog) {
    const auto entrada = pasta.escrever("remessa.rem", bytesDoTexto(remessa({.falhas = true})));
    ASSERT_EQ(rodar(entrada).situacao, 1);
    const std::string inteiro = semTituloNemTempo(lerTudo(log()));
    static unsigned primeiro; // of the channels that are closed
    noFilho = [] { ::close_range(primeiro, STDERR_FILENO, 0); };
    for (primeiro = STDIN_FILENO; primeiro <= STDERR_FILENO; ++primeiro) {
        EXPECT_EQ(rodar(entrada, {"--json"}).situacao, primeiro == STDERR_FILENO ? 1 : 2);
        EXPECT_EQ(semTituloNemTempo(lerTudo(log())), inteiro);
    }
}

/// Waits for the program to write into a pipe.
bool chegouAlgo(int cano) {
    struct pollfd espera {
        cano, POLLIN, 0
    };
    return ::poll(&espera, 1, 60'000) == 1;
}

Texto lerAteOFim(int cano) {
    ::fcntl(cano, F_SETFL, 0); // a reading waits from here on
    Texto lido;
    std::array<char, 65536> bloco{};
    for (ssize_t bytes = 0; (bytes = ::read(cano, bloco.data(), bloco.size())) > 0;)
        lido.append(bloco.data(), static_cast<std::size_t>(bytes));
    return lido;
}

/// The log is a pipe that holds less than the run has to write: the signal comes in the middle for certain.
TEST_F(PontaAPonta, sinalNoMeioDaExecucao) {
    const auto entrada = pasta.escrever("remessa.rem", bytesDoTexto(remessaRuim(20'000))).string();
    ::mkfifo(log().c_str(), 0600);
    for (const auto& [sinal, vezes] : {std::pair{SIGINT, 1}, {SIGTERM, 1}, {SIGINT, 2}}) {
        noFilho = [&sinal = sinal] { std::signal(sinal, SIG_DFL); }; // else ignored where these tests are
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
