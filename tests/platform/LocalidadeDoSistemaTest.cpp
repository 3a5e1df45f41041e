#include "platform/LocalidadeDoSistema.h"

#include "support/VariavelDeAmbiente.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::VariavelDeAmbiente;

struct Caso {
    std::array<const char*, 3> dados;
    VistaTexto esperado; ///< both separators and the name of March
};

Texto resumo(const Localidade& localidade) {
    return junta(localidade.separadorDeMilhar(), "|"_t, localidade.separadorDecimal(), "|"_t, localidade.nomeDoMes(3));
}

TEST(LocalidadeDoSistema, soOQueACodificacaoTem) {
    for (const auto& [dados, esperado] : {Caso{{"", "", ""}, ".|,|março"_t},
                                          {{",", ".", "March"}, ",|.|March"_t},
                                          {{"", ",", "Mai"}, "|,|Mai"_t},
                                          {{"\u202F", ",", "mars"}, "\u00A0|,|mars"_t},
                                          {{"’", ".", "März"}, "’|.|März"_t},
                                          {{"\u066C", ",", "مارس"}, ".|,|março"_t},
                                          {{"\u00A0", "\u066B", "март"}, ".|,|março"_t}}) {
        TextosDoSistema textos{dados[0], dados[1], {}};
        textos.meses[2] = dados[2];
        EXPECT_EQ(resumo(LocalidadeDoSistema(textos)), esperado);
    }
}

TEST(LocalidadeDoSistema, cadaCategoriaPelaSuaVariavel) {
    const Caso casos[] = {
        {{"C", "", ""}, ".|,|março"_t},
        {{"POSIX", "", ""}, ".|,|março"_t},
        {{"C.UTF-8", "", ""}, ".|,|março"_t},
        {{"xx_XX.UTF-8", "", ""}, ".|,|março"_t},
#ifdef PASTA_DE_LINGUAS // needs localedef and its sources (Debian: locales)
        {{"", "C", "fr_FR.UTF-8"}, "\u00A0|,|março"_t},
        {{"", "fr_FR.UTF-8", "fr_FR.UTF-8"}, "\u00A0|,|mars"_t},
        {{"C", "fr_FR.UTF-8", "fr_FR.UTF-8"}, ".|,|março"_t},
    };
    const VariavelDeAmbiente pasta("LOCPATH", PASTA_DE_LINGUAS);
#else
    };
#endif
    for (const auto& [dados, esperado] : casos) {
        const VariavelDeAmbiente variaveis[] = {
            {"LC_ALL", dados[0]}, {"LC_NUMERIC", ""}, {"LC_TIME", dados[1]}, {"LANG", dados[2]}};
        EXPECT_EQ(resumo(LocalidadeDoSistema()), esperado) << dados[0] << dados[1] << dados[2];
    }
}

} // namespace
} // namespace quilatador
