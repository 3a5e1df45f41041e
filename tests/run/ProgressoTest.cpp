#include "run/Progresso.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using namespace std::chrono_literals;

TEST(Progresso, tempoFormatado) {
    using Caso = std::pair<Relogio::Instante, VistaTexto>;
    for (const auto& [tempo, texto] : {Caso{59999ms, "00:00:59"_t}, Caso{60s, "00:01:00"_t}, Caso{3599s, "00:59:59"_t},
                                       Caso{100h, "100:00:00"_t}, Caso{-61s, "-00:01:01"_t}, Caso{-1ms, "00:00:00"_t}})
        EXPECT_EQ(formatarTempo(tempo), texto);
}

TEST(Progresso, restanteNoMesmoPasso) {
    using Caso = std::tuple<std::int32_t, Relogio::Instante>;
    for (const auto& [atual, restante] : {Caso{25, 30s}, Caso{0, 1000s}, Caso{200, -5s}}) {
        const Progresso progresso{.registroAtual = atual, .totalRegistros = 100, .inicio = 5s};
        EXPECT_EQ(tempoDecorrido(progresso, 15s), 10s);
        EXPECT_EQ(tempoRestante(progresso, 15s), restante);
    }
}

} // namespace
} // namespace quilatador
