#include "platform/RelogioDoSistema.h"

#include "platform/DiaLocal.h"
#include "support/VariavelDeAmbiente.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(RelogioDoSistema, diaDoFusoDoUsuario) {
    constexpr std::time_t umaDaManha = 1709254800; // 2024-03-01 01:00 UTC
    for (const auto& [fuso, data] : {std::pair("UTC0", fazData(2024, 3, 1)), std::pair("BRT3", fazData(2024, 2, 29))}) {
        const testes::VariavelDeAmbiente variavel("TZ", fuso);
        ::tzset();
        EXPECT_EQ(diaLocal(umaDaManha), data) << fuso;
    }
    ::tzset();
}

TEST(RelogioDoSistema, hoje) {
    const Data antes = diaLocal(std::time(nullptr));
    const Data hoje = RelogioDoSistema().hoje();
    EXPECT_TRUE(hoje == antes || hoje == diaLocal(std::time(nullptr))); // midnight may come in between
}

} // namespace
} // namespace quilatador
