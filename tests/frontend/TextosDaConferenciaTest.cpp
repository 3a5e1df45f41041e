#include "frontend/TextosDaConferencia.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>

namespace quilatador {
namespace {

struct Caso {
    std::array<std::int64_t, 6> contagens; ///< errors in the log; causes, errors, warnings, disputed, occurrences
    ContagemDeGuias guias;
    VistaTexto veredito;
    VistaTexto conferencia;
};

TEST(TextosDaConferencia, vereditoESomaDoQueFoiConferido) {
    const Caso casos[] = {
        {{0, 0, 0, 0, 2, 0}, {}, "Sem erros e sem avisos"_t, "sem erros, 2 discutidos"_t},
        {{0, 0, 0, 1, 0, 0},
         {1, 1},
         "Sem erros, com 1 aviso: vale conferir"_t,
         "sem erros, 1 aviso; 1 guia: 1 certa"_t},
        {{9, 3, 51, 2, 0, 0},
         {1040, 37, 1003},
         "Com erros: 3 causas a corrigir, em 1.003 das 1.040 guias"_t,
         "3 causas (51 erros), 2 avisos; 1.040 guias: 37 certas, 1.003 com erro"_t},
        {{0, 2, 2, 0, 0, 0}, {}, "Com erros que o log não mostra: 2 causas"_t, "2 causas (2 erros)"_t},
        {{0, 0, 0, 0, 0, 0},
         {40, 30, 0, 3, 7},
         "Sem erros e sem avisos; 3 guias conferidas só em parte; 7 guias não conferidas"_t,
         "sem erros; 40 guias: 30 certas, 3 conferidas só em parte; as outras 7 guias não foram conferidas"_t},
        {{7, 0, 0, 0, 0, 8},
         {5, 3, 2},
         "Com 8 ocorrências, em 2 das 5 guias"_t,
         "8 ocorrências; 5 guias: 3 certas, 2 com ocorrência"_t},
        {{2, 0, 0, 0, 0, 0},
         {},
         "Com 2 erros no log que a conferência completa não confirma: vale conferir"_t,
         "sem erros"_t},
    };
    for (const auto& [contagens, guias, esperado, conferencia] : casos) {
        Resumo resumo;
        ResumoCompleto completa;
        std::tie(resumo.totalErros, completa.causas, completa.erros) =
            std::tie(contagens[0], contagens[1], contagens[2]);
        std::tie(completa.avisos, completa.discutidos) = std::tie(contagens[3], contagens[4]);
        completa.ocorrencias = contagens[5];
        completa.guias = guias;
        EXPECT_EQ(veredito(resumo, completa, "."_t).texto, esperado);
        EXPECT_EQ(textoDaConferencia(completa, "."_t), junta("Conferência completa: "_t, conferencia));
    }
}

TEST(TextosDaConferencia, vereditoDoQueNaoChegouAoFim) {
    using enum Desfecho;
    const std::tuple<Desfecho, Desfecho, VistaTexto> casos[] = {
        {NaoRodou, Concluida, "Não foi possível analisar: no log"_t},
        {Cancelada, Concluida, "Análise cancelada"_t},
        {Falhou, Cancelada, "Com erros na estrutura: corrija primeiro a linha 17"_t},
        {Concluida, NaoRodou, "Não foi possível analisar: na completa"_t},
        {Concluida, Cancelada, "Conferência cancelada depois de 1.234 linhas, com 1 causa até ali"_t}};
    for (const auto& [noLog, naCompleta, esperado] : casos) {
        const Resumo resumo{noLog, 0, 0, 0, 0, 0, Texto("no log"_t), 17};
        const ResumoCompleto completa{naCompleta, Texto("na completa"_t), 1234, 1, 2, 0, 0, 0, {}, 0, {}, {}};
        EXPECT_EQ(veredito(resumo, completa, "."_t).texto, esperado);
    }
}

} // namespace
} // namespace quilatador
