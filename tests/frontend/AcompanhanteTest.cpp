#include "frontend/Acompanhante.h"

#include "support/Falsos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

TEST(Acompanhante, naoCaiSobreOQueNaoSePodePerder) {
    testes::MundoFalso mundo;
    const auto destino = [&](const char* caminho) { return mundo.arquivos.destino(caminho); };
    mundo.arquivos.ligacoes = {{"/elo", "/a.rem"}};
    mundo.arquivos.conteudo = {{"/outra", Texto("A          ZUL702"_t)}, {"/b.ret", Texto("A2"_t)}, {"/velho.csv", {}}};
    const std::pair<const char*, VistaTexto> casos[] = {
        {"/a.rem", "O laudo cairia sobre um dos arquivos a analisar: /a.rem"_t},
        {"/elo", "O laudo cairia sobre um dos arquivos a analisar: /elo"_t},
        {"/a.log", "O laudo cairia sobre o log de um dos arquivos a analisar: /a.log"_t},
        {"/programa/Arquivo_ZUL702.xml",
         "O laudo cairia sobre um arquivo do próprio programa: /programa/Arquivo_ZUL702.xml"_t},
        {"/outra", "O laudo cairia sobre um arquivo ZUL702: /outra"_t},
        {"/b.ret", "O laudo cairia sobre um arquivo TAV001: /b.ret"_t},
        {"/velho.csv", ""_t},
        {"/novo.csv", ""_t}};
    for (const auto& [caminho, recusa] : casos)
        EXPECT_EQ(recusaDoAcompanhante("O laudo"_t, caminho, {destino("/a.rem")}, {destino("/a.log")}, mundo.ambiente)
                      .value_or(Texto()),
                  recusa);
}

} // namespace
} // namespace quilatador
