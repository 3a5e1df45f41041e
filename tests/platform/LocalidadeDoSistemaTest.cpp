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

TEST(LocalidadeDoSistema, cadaCategoriaPelaSuaVariavel) {
    struct Caso {
        const char *todas, *tempo, *lingua;
        VistaTexto esperado;
    };
    for (const auto& [todas, tempo, lingua, esperado] : {
             Caso{"C", "", "", ".|,|março"_t},
             Caso{"POSIX", "", "", ".|,|março"_t},
             Caso{"C.UTF-8", "", "", ".|,|março"_t},
             Caso{"xx_XX.UTF-8", "", "", ".|,|março"_t},
#ifdef PASTA_DE_LINGUAS // needs localedef and its sources (Debian: locales)
             Caso{"", "C", "fr_FR.UTF-8", "\u00A0|,|março"_t},
             Caso{"", "fr_FR.UTF-8", "fr_FR.UTF-8", "\u00A0|,|mars"_t},
             Caso{"C", "fr_FR.UTF-8", "fr_FR.UTF-8", ".|,|março"_t},
#endif
         }) {
#ifdef PASTA_DE_LINGUAS
        const VariavelDeAmbiente pasta("LOCPATH", PASTA_DE_LINGUAS);
#endif
        const VariavelDeAmbiente variaveis[] = {
            {"LC_ALL", todas}, {"LC_NUMERIC", ""}, {"LC_TIME", tempo}, {"LANG", lingua}};
        EXPECT_EQ(resumo(LocalidadeDoSistema()), esperado) << todas << " " << tempo << " " << lingua;
    }
    const LocalidadeDoSistema semLingua(TextosDoSistema{});
    EXPECT_EQ(junta(semLingua.nomeDoMes(1), semLingua.nomeDoMes(12)), "janeirodezembro"_t);
}

} // namespace
} // namespace quilatador
