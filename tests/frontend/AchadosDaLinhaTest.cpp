#include "frontend/AchadosDaLinha.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(AchadosDaLinha, guardaOsDaLinhaComAsCausasQueAindaConhece) {
    AchadosDaLinha daLinha(7);
    auto achar = [&, n = 0](std::int64_t linha, std::int64_t causa, const Texto& mensagem = {}) mutable {
        daLinha.achado({.id = "x"_t, .linha = linha, .campo = {}, .mensagem = mensagem, .n = ++n, .causa = causa});
    };
    achar(1, 0, Texto("da definição"_t));
    achar(9, 1, Texto("da definição, na linha 9"_t));
    for (int i = 0; i < 6000; ++i)
        achar(3, 0, textoDe(i)); // numbers 3 to 6002
    for (const std::int64_t causa : {0, 1, 1025, 1026, 1907, 1908, 6002})
        achar(7, causa);
    Texto causas;
    for (const Achado& achado : daLinha.achados()) {
        const auto* const causa = daLinha.causaDe(achado);
        causas += causa ? junta(textoDe(causa->linha), " "_t, causa->mensagem, "; "_t) : Texto("-; "_t);
    }
    EXPECT_EQ(causas, "-; 1 da definição; 3 1022; -; -; 3 1905; 3 5999; "_t);
    for (int i = 0; i < 100; ++i)
        achar(7, 0);
    EXPECT_EQ(daLinha.achados().size(), AchadosDaLinha::maisAchados);
    EXPECT_EQ(daLinha.outros(), 7);
}

TEST(ReguaMarcada, cadaAchadoNosPedacosQueOSeuCampoToca) {
    std::vector<PedacoDaRegua> regua(3);
    for (int i = 0; i < 3; ++i) {
        regua[static_cast<std::size_t>(i)].inicio = 10 * i + 1;
        regua[static_cast<std::size_t>(i)].fim = 10 * i + 10;
    }
    std::vector<Achado> achados(1); // about no field
    for (const auto& [inicio, fim] : {std::pair(1, 10), {10, 11}, {12, 13}, {5, 25}, {31, 31}})
        achados.push_back({.id = "x"_t, .campo = CampoDoAchado{{}, inicio, fim, {}, {}}, .mensagem = {}, .n = inicio});
    std::vector<std::vector<std::int64_t>> marcas;
    for (const PedacoMarcado& marcado : marcar(regua, achados)) {
        marcas.emplace_back();
        for (const Achado* achado : marcado.achados)
            marcas.back().push_back(achado->n);
    }
    EXPECT_EQ(marcas, (std::vector<std::vector<std::int64_t>>{{1, 10, 5}, {10, 12, 5}, {5}}));
}

} // namespace
} // namespace quilatador
