#include "layout/CampoRemessa.h"

#include "common/Numero.h"
#include "layout/Leiautes.h"
#include "support/Falhas.h"
#include "support/Falsos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::campo;
using testes::Definicao;
using testes::textoDaFalha;

constexpr VistaTexto numeroInvalido = "1 CampoRemessa: Campo=X - Campo numérico inválido"_t;
constexpr VistaTexto dataInvalida = "1 CampoRemessa: Campo=X - Campo data inválido"_t;

/// "[text]", "= number", "date" or "nulo".
Texto descrever(const Valor& valor) {
    if (valor.nulo()) return Texto("nulo"_t);
    if (valor.comoTexto()) return junta("["_t, *valor.comoTexto(), "]"_t);
    return junta(valor.comoNumero() ? "= "_t : ""_t, valor.texto());
}

/// What a field makes of a text in 2026: its value, or the failure, which must leave the value that was there.
Texto lido(const Definicao& definicao, VistaTexto texto) {
    const testes::RelogioFixo relogio(fazData(2026, 3, 10));
    RegistroRemessa registro = RegistroRemessa(relogio).copia();
    CampoRemessa& lendo = registro.add(campo("X"_t, definicao, "anterior"_t));
    Texto falha = textoDaFalha([&] { lendo.lerTexto(texto); });
    if (falha.empty()) return descrever(lendo.Valor());
    EXPECT_EQ(lendo.Valor(), Valor("anterior"_t));
    return falha;
}

TEST(CampoRemessa, textoViraValor) {
    const std::tuple<Definicao, VistaTexto, VistaTexto> casos[] = {
        {{.natureza = "S"_t}, "  A B  "_t, "[  A B]"_t},
        {{.natureza = "S"_t, .alinhamento = 1}, "  A B  "_t, "[A B  ]"_t},
        {{.natureza = "S"_t}, "\t\0 "_t, "[\t\0]"_t},
        {{.natureza = "N"_t}, "12,5"_t, "= 12"_t},
        {{.natureza = "N"_t, .decimais = 2}, "000012345"_t, "= 123.45"_t},
        {{.natureza = "N"_t, .decimais = 2}, "999999999999999"_t, "= 9999999999999.99"_t},
        {{.natureza = "R"_t, .decimais = 1}, "000120"_t, "= 12"_t},
        {{.natureza = "N"_t}, ""_t, numeroInvalido},
        {{.natureza = "N"_t}, "12A"_t, numeroInvalido},
        {{.natureza = "R"_t}, "-"_t, numeroInvalido},
        {{.natureza = "n"_t}, "12"_t, "[anterior]"_t},
    };
    for (const auto& [definicao, texto, esperado] : casos)
        EXPECT_EQ(lido(definicao, texto), esperado) << definicao.natureza << " [" << texto << "]";
}

TEST(CampoRemessa, dataJulianaTrocaDiaEMes) {
    const std::tuple<VistaTexto, VistaTexto, VistaTexto> casos[] = {
        {"ADDD"_t, "4034"_t, "02/03/2024"_t}, // 3 February
        {"ADDD"_t, "4045"_t, "14/02/2024"_t}, // a day that is no month stays in its place
        {"ADDD"_t, "4367"_t, "01/01/2025"_t},
        {"ADDD"_t, "4A34"_t, dataInvalida},
        {"AAAAMMDD"_t, "20240131"_t, "31/01/2024"_t},
        {"AAAAMMDD"_t, "00000000"_t, "nulo"_t},
        {"AAAAMMDD"_t, "0000000"_t, dataInvalida}, // zeros, but not as many as the format has letters
        {"AAAAMMDD"_t, "        "_t, "nulo"_t},
        {"AAAAMMDD"_t, "20240230"_t, dataInvalida},
        {"AAMMDD"_t, "290131"_t, "31/01/2029"_t},
        {"DDMMAAAA"_t, "31012024"_t, "31/01/2024"_t},
        {"DDMMAA"_t, "310199"_t, "31/01/1999"_t},
        {"MMDDAAAA"_t, "01312024"_t, dataInvalida}, // not one of the five formats
    };
    for (const auto& [formato, texto, esperado] : casos)
        EXPECT_EQ(lido({.natureza = "D"_t, .formato = formato}, texto), esperado) << formato << " " << texto;
    CampoRemessa semRelogio = campo("X"_t, {.natureza = "D"_t, .formato = "ADDD"_t});
    EXPECT_EQ(textoDaFalha([&] { semRelogio.lerTexto("4034"_t); }), dataInvalida);
}

TEST(CampoRemessa, valorViraTexto) {
    const Data dia = fazData(2024, 1, 31);
    const Definicao direita{.natureza = "S"_t, .tamanho = 5, .alinhamento = 1};
    const Definicao centavos{.natureza = "N"_t, .tamanho = 5, .decimais = 2};
    // The last one is the field's value afterwards.
    const std::tuple<Definicao, Valor, VistaTexto, Texto> casos[] = {
        {{.natureza = "S"_t, .tamanho = 5}, "AB"_t, "AB   "_t, Texto("[AB]"_t)},
        {direita, "ABCDEFG"_t, "CDEFG"_t, Texto("[ABCDEFG]"_t)},
        {direita, Valor::Nulo(), "     "_t, Texto("[]"_t)},
        {centavos, 1234.5, "23450"_t, Texto("= 1234.5"_t)}, // high digits are dropped
        {centavos, 0.29, "00028"_t, Texto("= 0.29"_t)},     // floored, never rounded
        {centavos, -0.001, "000-1"_t, Texto("= -0.001"_t)},
        {centavos, -0.0, "00000"_t, Texto("= -0"_t)},
        {centavos, "doze"_t, "00000"_t, Texto("= 0"_t)},
        {centavos, dia, "00000"_t, Texto("= 0"_t)},
        {{.natureza = "N"_t, .decimais = 255}, 1e60, "6 CampoRemessa: Estouro"_t, junta("= "_t, textoDoNumero(1e60))},
        {{.natureza = "D"_t, .formato = "AAAAMMDD"_t}, dia, "20240131"_t, Texto("31/01/2024"_t)},
        {{.natureza = "D"_t, .formato = "ADDD"_t}, dia, "4031"_t, Texto("31/01/2024"_t)},
        {{.natureza = "D"_t, .formato = "AAMMDD"_t}, "240131"_t, "000000"_t, Texto("[240131]"_t)},
    };
    for (const auto& [definicao, valor, esperado, depois] : casos) {
        CampoRemessa gerando = campo("X"_t, definicao, valor);
        Texto gerado;
        const Texto falha = textoDaFalha([&] { gerado = gerando.gerarTexto(); });
        EXPECT_EQ(junta(gerado, falha), esperado) << definicao.natureza << " " << descrever(valor);
        EXPECT_EQ(descrever(gerando.Valor()), depois) << esperado;
    }
}

} // namespace
} // namespace quilatador
