#include "platform/Terminal.h"

#include "support/VariavelDeAmbiente.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace quilatador {
namespace {

/// Whether the error output is a terminal while it goes to a file, and how wide.
std::pair<bool, int> erroDesviadoPara(int arquivo) {
    const int anterior = ::dup(STDERR_FILENO);
    ::dup2(arquivo, STDERR_FILENO);
    const std::pair visto(redesenha(Fluxo::Erro), larguraDoTerminal(Fluxo::Erro));
    ::dup2(anterior, STDERR_FILENO);
    ::close(anterior);
    return visto;
}

TEST(Terminal, aLarguraQueElaDizOu80) {
    const testes::VariavelDeAmbiente comum("TERM", "xterm");
    const int nulo = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    EXPECT_EQ(erroDesviadoPara(nulo), std::pair(false, 80));
    ::close(nulo);
    const int mestre = ::posix_openpt(O_RDWR | O_NOCTTY);
    if (mestre < 0 || ::grantpt(mestre) != 0 || ::unlockpt(mestre) != 0) GTEST_SKIP() << "no pseudo-terminal here";
    const int terminal = ::open(::ptsname(mestre), O_RDWR | O_NOCTTY);
    ASSERT_GE(terminal, 0); // cppcheck-suppress resourceLeak ; there is none where it stops
    EXPECT_EQ(erroDesviadoPara(terminal), std::pair(true, 80)); // it does not tell
    const winsize tamanho{24, 123, 0, 0};
    EXPECT_EQ(::ioctl(terminal, TIOCSWINSZ, &tamanho), 0);
    EXPECT_EQ(erroDesviadoPara(terminal), std::pair(true, 123));
    for (const char* tipo : {"dumb", ""}) {
        const testes::VariavelDeAmbiente outro("TERM", tipo);
        EXPECT_FALSE(erroDesviadoPara(terminal).first) << tipo;
    }
    ::close(terminal);
    ::close(mestre);
}

} // namespace
} // namespace quilatador
