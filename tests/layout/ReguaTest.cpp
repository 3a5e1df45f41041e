#include "layout/Regua.h"

#include "layout/Leiautes.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

/// A piece as "name first-last [text] value state".
Texto escrita(const std::vector<PedacoDaRegua>& pedacos) {
    constexpr VistaTexto estados[] = {"lido"_t, "emBranco"_t, "ilegivel"_t, "cortado"_t, "sobra"_t};
    Texto texto;
    for (const PedacoDaRegua& p : pedacos)
        texto += junta(p.campo, " "_t, textoDe(p.inicio), "-"_t, textoDe(p.fim), " ["_t, p.texto, "] "_t, p.valor,
                       " "_t, estados[static_cast<std::size_t>(p.estado)], "; "_t);
    return texto;
}

TEST(Regua, cortaALinhaPeloLeiaute) {
    RegistroRemessa tipo;
    tipo.add(testes::campo("T"_t, {.natureza = "S"_t, .tamanho = 3}));
    tipo.add(testes::campo("Nada"_t, {.natureza = "S"_t}));
    tipo.add(testes::campo("V"_t, {.natureza = "N"_t, .tamanho = 4, .decimais = 2}));
    tipo.add(testes::campo("D"_t, {.natureza = "D"_t, .tamanho = 6, .formato = "DDMMAA"_t}));
    const std::pair<VistaTexto, VistaTexto> casos[] = {
        {"B  0150311225"_t, "T 1-3 [B  ] B lido; V 4-7 [0150] 1,50 lido; D 8-13 [311225] 31/12/2025 lido; "_t},
        {"    100000000  "_t, "T 1-3 [   ]  emBranco; V 4-7 [ 100] 1,00 lido; D 8-13 [000000]  emBranco; "
                              " 14-15 [  ]  sobra; "_t},
        {"B 1    321399"_t, "T 1-3 [B 1] B 1 lido; V 4-7 [    ]  ilegivel; D 8-13 [321399]  ilegivel; "_t},
        {"B 11234    31"_t, "T 1-3 [B 1] B 1 lido; V 4-7 [1234] 12,34 lido; D 8-13 [    31]  ilegivel; "_t},
        {"B 11.254"_t, "T 1-3 [B 1] B 1 lido; V 4-7 [1.25] 0,0125 lido; D 8-13 [4]  cortado; "_t},
        {"B"_t, "T 1-3 [B]  cortado; V 4-7 []  cortado; D 8-13 []  cortado; "_t},
    };
    for (const auto& [linha, esperada] : casos) {
        tipo.linha(linha);
        EXPECT_EQ(escrita(regua(tipo)), esperada);
    }
    EXPECT_EQ(escrita(regua("? x"_t)), " 1-3 [? x]  sobra; "_t);
}

} // namespace
} // namespace quilatador
