#include "support/Completa.h"
#include "support/Remessas.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <span>
#include <string_view>

namespace quilatador::testes {
namespace {

const Texto& leiaute() {
    static const Texto lido = lerTexto(QUILATADOR_LEIAUTE);
    return lido;
}

/// Remittances with slips of all kinds, each with some faults of content.
TEST(Completa, concordaComOLogSobreCadaGuia) {
    const Estragador estragar(leiaute());
    for (std::uint32_t semente = 1; semente <= 600; ++semente) {
        std::mt19937 sorteio(semente);
        Texto arquivo = remessa({.semente = semente % 7 + 1, .guias = semente % 4 + 1});
        std::vector<Texto> linhas = linhasDe(arquivo);
        for (std::size_t faltas = sorteio() % 5; faltas > 0; --faltas)
            estragar(linhas[sorteio() % linhas.size()], sorteio, true);
        const auto posicao = static_cast<std::int16_t>(semente % 3 == 0 ? 0 : 20);
        ASSERT_EQ(desacordo(arquivoDe(linhas), leiaute(), posicao), "") << "seed " << semente;
    }
}

using Linhas = std::vector<Texto>;

/// A fault of structure, put at a line (0-based).
struct FaltaDeEstrutura {
    const char* nome;
    void (*plantar)(Linhas& linhas, std::size_t onde);
};

Linhas::iterator lugar(Linhas& linhas, std::size_t onde) {
    return linhas.begin() + static_cast<std::ptrdiff_t>(onde);
}

const FaltaDeEstrutura faltasDeEstrutura[] = {
    {"lost", [](Linhas& l, std::size_t i) { l.erase(lugar(l, i)); }},
    {"twice", [](Linhas& l, std::size_t i) { l.insert(lugar(l, i), Texto(l[i])); }},
    {"exchanged", [](Linhas& l, std::size_t i) { std::swap(l[i], l[i + 1]); }},
    {"joined", [](Linhas& l, std::size_t i) { l[i] += l[i + 1], l.erase(lugar(l, i + 1)); }},
    {"too long", [](Linhas& l, std::size_t i) { l[i].insert(120, 1, ' '); }},
    {"too short", [](Linhas& l, std::size_t i) { l[i].erase(120, 1); }},
    {"UTF-8", [](Linhas& l, std::size_t i) { l[i][60] = '\xA3', l[i].insert(60, 1, '\xC3'); }},
    {"BOM", [](Linhas& l, std::size_t i) { l[i].insert(0, "ï»¿"_t); }},
    {"split", [](Linhas& l, std::size_t i) { l[i].insert(100, 1, '\n'); }},
    {"split twice", [](Linhas& l, std::size_t i) { l[i].insert(100, 1, '\r').insert(50, 1, '\n'); }},
    {"split at a blank", [](Linhas& l, std::size_t i) { l[i][180] = '\r'; }},
    {"wrong number", [](Linhas& l, std::size_t i) { l[i].replace(234, 6, "777777"_t); }},
    {"no number", [](Linhas& l, std::size_t i) { l[i].replace(234, 6, "00A012"_t); }},
    {"other agreement", [](Linhas& l, std::size_t i) { l[i].replace(1, 6, "999999"_t); }},
    {"unknown type", [](Linhas& l, std::size_t i) { l[i][0] = 'Q'; }},
    {"other letter", [](Linhas& l, std::size_t i) { l[i][0] = l[i][0] == 'U' ? 'V' : 'U'; }},
    {"empty line", [](Linhas& l, std::size_t i) { l.insert(lugar(l, i), Texto()); }},
};

/// Each fault at each line is one cause, and whatever else is said follows from it. No rule asks for the number of the
/// header, and there is nothing behind the last line to be exchanged or joined with.
TEST(Completa, cadaFaltaDeEstruturaEhUmaCausa) {
    for (std::uint32_t semente = 1; semente <= 3; ++semente) {
        const Linhas certas = linhasDe(remessa({.semente = semente, .guias = 2}));
        for (const auto& [nome, plantar] : faltasDeEstrutura)
            for (std::size_t onde = std::string_view(nome).ends_with("number"); onde + 1 < certas.size(); ++onde) {
                Linhas linhas = certas;
                plantar(linhas, onde);
                const Completa completa = conferir(arquivoDe(linhas), leiaute(), 20);
                const Texto causas = completa.causas();
                EXPECT_EQ(completa.resumo.desfecho, Desfecho::Concluida) << nome << " at " << onde + 1;
                EXPECT_EQ(std::ranges::count(causas, '\n'), 1) << nome << " at " << onde + 1 << "\n" << causas;
                EXPECT_EQ(desacordo(arquivoDe(linhas), leiaute(), 20), "") << nome << " at " << onde + 1;
            }
    }
}

/// The same where somebody has numbered the lines anew, so that only the letters can tell.
TEST(Completa, semNumerosUmaFaltaEhUmaCausaNoMaximo) {
    const Linhas certas = linhasDe(remessa({.guias = 2}));
    for (const auto& [nome, plantar] : std::span(faltasDeEstrutura).first(3))
        for (std::size_t onde = 0; onde + 1 < certas.size(); ++onde) {
            Linhas linhas = certas;
            plantar(linhas, onde);
            numerar(linhas);
            const Completa completa = conferir(arquivoDe(linhas), leiaute(), 20);
            EXPECT_LE(std::ranges::count_if(completa.achados,
                                            [](const Achado& a) {
                                                return a.causa == 0 && (a.gravidade == Gravidade::Estrutural ||
                                                                        a.id.starts_with("sequencia."_t));
                                            }),
                      1)
                << nome << " at " << onde + 1 << "\n"
                << completa.causas();
        }
}

} // namespace
} // namespace quilatador::testes
