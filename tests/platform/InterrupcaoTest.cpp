#include "platform/Interrupcao.h"

#include <gtest/gtest.h>

#include <csignal>

namespace quilatador {
namespace {

TEST(Interrupcao, primeiroSinalSoLevantaABandeiraEOIgnoradoNemIsso) {
    for (const int sinal : {SIGINT, SIGTERM}) {
        const auto antes = std::signal(sinal, SIG_DFL);
        {
            const Interrupcao interrupcao;
            EXPECT_FALSE(interrupcao.pedida());
            std::raise(sinal);
            EXPECT_TRUE(interrupcao.pedida());
        }
        EXPECT_EQ(std::signal(sinal, SIG_IGN), SIG_DFL); // as it was before
        const Interrupcao emSegundoPlano;
        std::raise(sinal);
        EXPECT_FALSE(emSegundoPlano.pedida());
        EXPECT_EQ(std::signal(sinal, antes), SIG_IGN);
    }
}

} // namespace
} // namespace quilatador
