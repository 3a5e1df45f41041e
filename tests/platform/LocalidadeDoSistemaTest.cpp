#include "platform/LocalidadeDoSistema.h"

#include "support/VariavelDeAmbiente.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::VariavelDeAmbiente;

Texto resumo(const Localidade& localidade) {
    return junta(localidade.separadorDeMilhar(), "|", localidade.separadorDecimal(), "|", localidade.nomeDoMes(3));
}

TEST(LocalidadeDoSistema, soOQueACodificacaoTem) {
    struct Caso {
        const char *milhar, *decimal, *marco;
        VistaTexto esperado;
    };
    for (const auto& [milhar, decimal, marco, esperado] :
         {Caso{"", "", "", ".|,|março"_t}, Caso{",", ".", "March", ",|.|March"}, Caso{"", ",", "Mai", "|,|Mai"},
          Caso{"\u00A0", ",", "mars", "\u00A0|,|mars"_t}, Caso{"\u202F", ",", "mars", "\u00A0|,|mars"_t},
          Caso{"’", ".", "März", "’|.|März"_t}, Caso{"\u066C", "\u066B", "مارس", ".|,|março"_t},
          Caso{"\u00A0", ",", "март", "\u00A0|,|março"_t}}) {
        TextosDoSistema textos{milhar, decimal, {}};
        textos.meses[2] = marco;
        EXPECT_EQ(resumo(LocalidadeDoSistema(textos)), esperado);
    }
}

TEST(LocalidadeDoSistema, semLinguaEhBrasileira) {
    for (const char* nome : {"C", "POSIX", "C.UTF-8", "xx_XX.UTF-8"}) {
        const VariavelDeAmbiente todas("LC_ALL", nome);
        const LocalidadeDoSistema localidade;
        EXPECT_EQ(resumo(localidade), ".|,|março"_t) << nome;
        EXPECT_EQ(junta(localidade.nomeDoMes(1), localidade.nomeDoMes(12)), "janeirodezembro") << nome;
    }
}

TEST(LocalidadeDoSistema, cadaCategoriaPelaSuaVariavel) {
#ifdef PASTA_DE_LINGUAS
    const VariavelDeAmbiente pasta("LOCPATH", PASTA_DE_LINGUAS);
    const VariavelDeAmbiente todas("LC_ALL", "");
    const VariavelDeAmbiente lingua("LANG", "fr_FR.UTF-8");
    const VariavelDeAmbiente numeros("LC_NUMERIC", "");
    {
        const VariavelDeAmbiente tempo("LC_TIME", "C");
        EXPECT_EQ(resumo(LocalidadeDoSistema()), "\u00A0|,|março"_t);
    }
    const VariavelDeAmbiente tempo("LC_TIME", "fr_FR.UTF-8");
    EXPECT_EQ(resumo(LocalidadeDoSistema()), "\u00A0|,|mars"_t);
    const VariavelDeAmbiente outraVez("LC_ALL", "C");
    EXPECT_EQ(resumo(LocalidadeDoSistema()), ".|,|março"_t);
#else
    GTEST_SKIP() << "needs localedef and its sources (Debian: locales)";
#endif
}

} // namespace
} // namespace quilatador
