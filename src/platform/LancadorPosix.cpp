#include "platform/AvisoDoLancador.h"

#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace quilatador {

namespace {

/// The conditions of a started program: no terminal, and none of the signals that are meant for this program.
class Condicoes {
  public:
    Condicoes() {
        posix_spawn_file_actions_init(&arquivos_);
        posix_spawn_file_actions_addopen(&arquivos_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&arquivos_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_adddup2(&arquivos_, STDOUT_FILENO, STDERR_FILENO);

        sigset_t sinais;
        sigemptyset(&sinais);
        sigaddset(&sinais, SIGPIPE);
        sigaddset(&sinais, SIGXFSZ);
        posix_spawnattr_init(&atributos_);
        posix_spawnattr_setsigdefault(&atributos_, &sinais);
        posix_spawnattr_setpgroup(&atributos_, 0); // so that Ctrl-C on our terminal does not reach it
        posix_spawnattr_setflags(&atributos_, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETPGROUP);
    }
    Condicoes(const Condicoes&) = delete;
    Condicoes& operator=(const Condicoes&) = delete;
    ~Condicoes() {
        posix_spawnattr_destroy(&atributos_);
        posix_spawn_file_actions_destroy(&arquivos_);
    }

    [[nodiscard]] const posix_spawn_file_actions_t* arquivos() const noexcept { return &arquivos_; }
    [[nodiscard]] const posix_spawnattr_t* atributos() const noexcept { return &atributos_; }

  private:
    posix_spawn_file_actions_t arquivos_{};
    posix_spawnattr_t atributos_{};
};

/// Whether the desktop's opener ended because it found no program for an existing file, or because that failed. It is
/// not so when the file is missing (2), or when a signal ended it.
bool naoAbriu(int fim) {
    constexpr int semFerramenta = 3;
    constexpr int acaoFalhou = 4;
    return WIFEXITED(fim) && (WEXITSTATUS(fim) == semFerramenta || WEXITSTATUS(fim) == acaoFalhou);
}

/// Passes a file to the desktop's opener as an argument, so that no shell interprets the name. Calls `avisar` when no
/// program opens it.
template <typename Avisar>
void abrir(const std::filesystem::path& caminho, Avisar avisar) {
    std::string programa = "xdg-open";
    std::error_code erro;
    std::string arquivo = std::filesystem::absolute(caminho, erro); // so that "-x.log" is not taken for an option
    if (erro) return;
    char* const argumentos[] = {programa.data(), arquivo.data(), nullptr};
    const Condicoes condicoes;
    pid_t processo = 0;
    if (posix_spawnp(&processo, programa.c_str(), condicoes.arquivos(), condicoes.atributos(), argumentos, environ) !=
        0)
        return avisar();
    // Some thread must wait for the process, or its entry stays in the process table; the caller must not wait.
    std::thread([processo, avisar] {
        int fim = 0;
        if (::waitpid(processo, &fim, 0) == processo && naoAbriu(fim)) avisar();
    }).detach();
}

} // namespace

void LancadorDoSistema::abrirTexto(const std::filesystem::path& caminho) {
    abrir(caminho, [aviso = aviso_, caminho] { aviso->dar(caminho); }); // the desktop opens a ".log" as plain text
}

void LancadorDoSistema::abrirDocumento(const std::filesystem::path& caminho) {
    abrir(caminho, [aviso = aviso_, caminho] { aviso->dar(caminho); });
}

} // namespace quilatador
