#include "platform/Terminal.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace quilatador {
namespace {

/// Puts another file in the place of the error output while it lives.
class ErroDesviado {
  public:
    explicit ErroDesviado(int para) : anterior_(::dup(STDERR_FILENO)) { ::dup2(para, STDERR_FILENO); }
    ErroDesviado(const ErroDesviado&) = delete;
    ErroDesviado& operator=(const ErroDesviado&) = delete;
    ~ErroDesviado() {
        ::dup2(anterior_, STDERR_FILENO);
        ::close(anterior_);
    }

  private:
    int anterior_;
};

TEST(Terminal, arquivoNaoEhTerminal) {
    const int nulo = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    const ErroDesviado desvio(nulo);
    EXPECT_FALSE(ehTerminal(Fluxo::Erro));
    EXPECT_EQ(larguraDoTerminal(Fluxo::Erro), 80);
    ::close(nulo);
}

TEST(Terminal, larguraQueElaTem) {
    const int mestre = ::posix_openpt(O_RDWR | O_NOCTTY);
    if (mestre < 0 || ::grantpt(mestre) != 0 || ::unlockpt(mestre) != 0) GTEST_SKIP() << "no pseudo-terminal here";
    const int terminal = ::open(::ptsname(mestre), O_RDWR | O_NOCTTY);
    ASSERT_GE(terminal, 0); // cppcheck-suppress resourceLeak ; there is none where it stops
    {
        const ErroDesviado desvio(terminal);
        EXPECT_TRUE(ehTerminal(Fluxo::Erro));
        EXPECT_EQ(larguraDoTerminal(Fluxo::Erro), 80); // it does not tell
        const winsize tamanho{24, 123, 0, 0};
        EXPECT_EQ(::ioctl(terminal, TIOCSWINSZ, &tamanho), 0);
        EXPECT_EQ(larguraDoTerminal(Fluxo::Erro), 123);
    }
    ::close(terminal);
    ::close(mestre);
}

} // namespace
} // namespace quilatador
