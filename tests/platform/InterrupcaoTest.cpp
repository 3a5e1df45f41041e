#include "platform/Interrupcao.h"

#include <gtest/gtest.h>

#include <csignal>

namespace quilatador {
namespace {

TEST(Interrupcao, primeiroSinalSoLevantaABandeira) {
    for (const int sinal : {SIGINT, SIGTERM}) {
        const auto antes = std::signal(sinal, SIG_IGN);
        {
            const Interrupcao interrupcao;
            EXPECT_FALSE(interrupcao.pedida());
            std::raise(sinal);
            EXPECT_TRUE(interrupcao.pedida());
        }
        EXPECT_EQ(std::signal(sinal, antes), SIG_IGN); // as it was before
        EXPECT_FALSE(Interrupcao().pedida());
    }
}

} // namespace
} // namespace quilatador
