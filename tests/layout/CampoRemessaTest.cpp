#include "layout/CampoRemessa.h"

#include "common/Numero.h"
#include "layout/Leiautes.h"
#include "support/Falhas.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::campo;
using testes::Definicao;
using testes::textoDaFalha;

constexpr int anoCorrente = 2026;
constexpr VistaTexto numeroInvalido = "1 CampoRemessa: Campo=X - Campo numérico inválido"_t;
constexpr VistaTexto estouro = "6 CampoRemessa: Estouro";
constexpr VistaTexto dataInvalida = "1 CampoRemessa: Campo=X - Campo data inválido"_t;

/// "[text]", "= number", "date", "nulo" or "vazio".
Texto descrever(const Valor& valor) {
    if (valor.vazio()) return "vazio";
    if (valor.nulo()) return "nulo";
    if (valor.comoTexto()) return junta("[", *valor.comoTexto(), "]");
    return junta(valor.comoNumero() ? "= " : "", valor.texto());
}

/// What a field makes of a text: its value, or the failure, which must leave the value that was there.
Texto lido(const Definicao& definicao, VistaTexto texto) {
    CampoRemessa lendo = campo("X", definicao, "anterior");
    Texto falha = textoDaFalha([&] { lendo.lerTexto(texto, anoCorrente); });
    if (falha.empty()) return descrever(lendo.Valor());
    EXPECT_EQ(lendo.Valor(), Valor("anterior"));
    return falha;
}

TEST(CampoRemessa, textoViraValor) {
    const Definicao esquerda{.natureza = "S"};
    const Definicao direita{.natureza = "S", .alinhamento = 1};
    const Definicao inteiro{.natureza = "N"};
    const Definicao centavos{.natureza = "N", .decimais = 2};
    const Definicao contador{.natureza = "R", .decimais = 1};
    const std::tuple<Definicao, VistaTexto, VistaTexto> casos[] = {
        {esquerda, "  A B  ", "[  A B]"},
        {direita, "   ABC", "[ABC]"},
        {direita, "  A B  ", "[A B  ]"},
        {esquerda, VistaTexto("\t\0 ", 3), VistaTexto("[\t\0]", 4)},
        {inteiro, "12,5", "= 12"},
        {centavos, "000012345", "= 123.45"},
        {centavos, "999999999999999", "= 9999999999999.99"},
        {contador, "000120", "= 12"},
        {inteiro, "", numeroInvalido},
        {inteiro, "12A", numeroInvalido},
        {contador, "-", numeroInvalido},
        {{.natureza = "n"}, "12", "[anterior]"},
    };
    for (const auto& [definicao, texto, esperado] : casos)
        EXPECT_EQ(lido(definicao, texto), esperado) << definicao.natureza << " [" << texto << "]";
}

TEST(CampoRemessa, textoViraData) {
    const std::tuple<const char*, VistaTexto, VistaTexto> casos[] = {
        {"AAAAMMDD", "20240131", "31/01/2024"}, {"AAAAMMDD", "00000000", "nulo"},
        {"AAAAMMDD", "        ", "nulo"},       {"AAAAMMDD", "20240230", dataInvalida},
        {"AAAAMMDD", "20241305", "13/05/2024"}, // month first, since day first is impossible
        {"AAAAMMDD", "0000000", dataInvalida},  // zeros, but not as many as the format has letters
        {"AAMMDD", "290131", "31/01/2029"},     {"DDMMAAAA", "31012024", "31/01/2024"},
        {"DDMMAA", "310199", "31/01/1999"},     {"ADDD", "4A34", dataInvalida},
        {"MMDDAAAA", "01312024", dataInvalida}, // not one of the five formats
    };
    for (const auto& [formato, texto, esperado] : casos)
        EXPECT_EQ(lido({.natureza = "D", .formato = formato}, texto), esperado) << formato << " [" << texto << "]";
}

TEST(CampoRemessa, dataJulianaTrocaDiaEMes) {
    using Caso = std::pair<VistaTexto, VistaTexto>;
    for (const auto& [texto, esperado] : {Caso{"4034"_t, "02/03/2024"_t}, // 3 February
                                          Caso{"4045"_t, "14/02/2024"_t}, // a day that is no month stays in its place
                                          Caso{"4367"_t, "01/01/2025"_t}})
        EXPECT_EQ(lido({.natureza = "D", .formato = "ADDD"}, texto), esperado);
}

TEST(CampoRemessa, valorViraTexto) {
    const Data dia = fazData(2024, 1, 31);
    const Valor nulo = Valor::Nulo();
    const Definicao esquerda{.natureza = "S", .tamanho = 5};
    const Definicao direita{.natureza = "S", .tamanho = 5, .alinhamento = 1};
    const Definicao inteiro{.natureza = "N", .tamanho = 5};
    const Definicao centavos{.natureza = "N", .tamanho = 5, .decimais = 2};
    const auto data = [](const char* formato) { return Definicao{.natureza = "D", .tamanho = 8, .formato = formato}; };
    // The last one is the field's value afterwards.
    const std::tuple<Definicao, Valor, VistaTexto, Texto> casos[] = {
        {esquerda, "AB", "AB   ", "[AB]"},
        {direita, "AB", "   AB", "[AB]"},
        {direita, "ABCDEFG", "CDEFG", "[ABCDEFG]"},
        {esquerda, nulo, "     ", "[]"},
        {centavos, 1234.5, "23450", "= 1234.5"}, // high digits are dropped
        {centavos, 0.29, "00028", "= 0.29"},     // floored, never rounded
        {centavos, -0.001, "000-1", "= -0.001"},
        {inteiro, -0.0, "00000", "= -0"},
        {inteiro, nulo, "00000", "= 0"},
        {inteiro, "doze", "00000", "= 0"},
        {inteiro, dia, "00000", "= 0"},
        {{.natureza = "N", .tamanho = 5, .decimais = 255}, 1e60, estouro, "= " + textoDoNumero(1e60)},
        {data("AAAAMMDD"), dia, "20240131", "31/01/2024"},
        {data("ADDD"), dia, "4031", "31/01/2024"},
        {data("AAMMDD"), nulo, "000000", "nulo"},
        {data("AAAAMMDD"), "20240131", "00000000", "[20240131]"},
    };
    for (const auto& [definicao, valor, esperado, depois] : casos) {
        CampoRemessa gerando = campo("X", definicao, valor);
        Texto gerado;
        const Texto falha = textoDaFalha([&] { gerado = gerando.gerarTexto(); });
        EXPECT_EQ(gerado + falha, esperado) << definicao.natureza << " " << descrever(valor);
        EXPECT_EQ(descrever(gerando.Valor()), depois) << esperado;
    }
}

} // namespace
} // namespace quilatador
