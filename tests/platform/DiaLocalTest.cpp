#include "platform/DiaLocal.h"

#include "support/VariavelDeAmbiente.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(DiaLocal, eODoFusoDoUsuario) {
    constexpr std::time_t umaDaManha = 1709254800; // 2024-03-01 01:00 UTC
    for (const auto& [fuso, data] : {std::pair("UTC0", fazData(2024, 3, 1)), std::pair("BRT3", fazData(2024, 2, 29))}) {
        const testes::VariavelDeAmbiente variavel("TZ", fuso);
        ::tzset();
        EXPECT_EQ(diaLocal(umaDaManha), data) << fuso;
    }
    ::tzset();
}

} // namespace
} // namespace quilatador
