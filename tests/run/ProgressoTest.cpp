#include "run/Progresso.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using namespace std::chrono_literals;

TEST(Progresso, tempoFormatado) {
    using Caso = std::pair<Relogio::Instante, VistaTexto>;
    for (const auto& [tempo, texto] :
         {Caso{0s, "00:00:00"}, Caso{999ms, "00:00:00"}, Caso{59s, "00:00:59"}, Caso{60s, "00:01:00"},
          Caso{3599s, "00:59:59"}, Caso{3600s, "01:00:00"}, Caso{100h, "100:00:00"}, Caso{-1ms, "00:00:00"},
          Caso{-61s, "-00:01:01"}, Caso{86399999ms, "23:59:59"}})
        EXPECT_EQ(formatarTempo(tempo), texto);
}

TEST(Progresso, restanteNoMesmoPasso) {
    struct Caso {
        std::int32_t atual, total;
        Relogio::Instante restante;
    };
    for (const auto& [atual, total, restante] :
         {Caso{25, 100, 30s}, Caso{100, 100, 0s}, Caso{0, 100, 1000s}, Caso{200, 100, -5s}}) {
        const Progresso progresso{.registroAtual = atual, .totalRegistros = total, .inicio = 5s};
        EXPECT_EQ(tempoDecorrido(progresso, 15s), 10s);
        EXPECT_EQ(tempoRestante(progresso, 15s), restante) << atual;
    }
}

} // namespace
} // namespace quilatador
