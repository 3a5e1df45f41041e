#include "cli/RelatorCsv.h"

#include "support/Falhas.h"
#include "support/Falsos.h"

#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace quilatador {
namespace {

constexpr VistaTexto cabecalho =
    "\u00EF\u00BB\u00BFarquivo;linha;guia;idGuia;segmento;campo;de;ate;encontrado;esperado;gravidade;id;causa;mensagem\r\n"_t;

TEST(RelatorCsv, cadaAchadoEUmaLinhaDaTabela) {
    const auto comCampo = [](VistaTexto encontrado, VistaTexto esperado) {
        return Achado{.id = "w.x"_t,
                      .campo = CampoDoAchado{Texto("Nome"_t), 5, 9, Texto(encontrado), Texto(esperado)},
                      .mensagem = {}};
    };
    const auto comMensagem = [](VistaTexto mensagem) {
        return Achado{.id = "w.x"_t, .campo = {}, .mensagem = Texto(mensagem)};
    };
    Achado guia{.id = "w.x"_t,
                .gravidade = Gravidade::Aviso,
                .linha = 7,
                .segmento = 'W',
                .campo = {},
                .mensagem = Texto("má"_t)};
    guia.guia = 2, guia.idGuia = "@1"_t, guia.causa = 1;
    Achado discutido = comMensagem(""_t);
    discutido.discutido = true;
    std::vector<std::pair<Achado, VistaTexto>> casos; // clang 14 crashes on an array of them
    casos.emplace_back(comMensagem("só isto"_t), ";;;;;;;;;;erro;w.x;;s\u00C3\u00B3 isto"_t);
    casos.emplace_back(guia, ";7;2;'@1;W;;;;;;aviso;w.x;1;m\u00C3\u00A1"_t);
    casos.emplace_back(discutido, ";;;;;;;;;;discutido;w.x;;"_t);
    casos.emplace_back(comCampo(" 1.5 "_t, "1234.50"_t), ";;;;;Nome;5;9; 1.5 ;1234,50;erro;w.x;;"_t);
    casos.emplace_back(comCampo("=1;2"_t, "1.2.3"_t), ";;;;;Nome;5;9;\"'=1;2\";1.2.3;erro;w.x;;"_t);
    casos.emplace_back(comCampo("-1"_t, ".5"_t), ";;;;;Nome;5;9;'-1;.5;erro;w.x;;"_t);
    casos.emplace_back(comCampo("\ta"_t, "-0.5"_t), ";;;;;Nome;5;9;'\ta;'-0,5;erro;w.x;;"_t);
    casos.emplace_back(comMensagem("diz \"\"\nou \""_t), ";;;;;;;;;;erro;w.x;;\"diz \"\"\"\"\nou \"\"\""_t);
    casos.emplace_back(comMensagem("\r+"_t), ";;;;;;;;;;erro;w.x;;\"'\r+\""_t);
    testes::ArquivosEmMemoria arquivos;
    const auto saida = arquivos.criarProvisorio("/t.csv");
    RelatorCsv relator(*saida);
    Texto esperado(cabecalho);
    for (const auto& [achado, linha] : casos) {
        const bool outro = achado.guia != 0;
        relator.arquivo(outro ? "/d/b;c.rem" : "+a.rem");
        relator.achado(achado);
        esperado += junta(outro ? "\"/d/b;c.rem\""_t : "'+a.rem"_t, linha, "\r\n"_t);
    }
    relator.terminar();
    saida->confirmar();
    EXPECT_EQ(arquivos.conteudo["/t.csv"], esperado);
}

TEST(RelatorCsv, aFalhaEsperaOFim) {
    testes::ArquivosEmMemoria arquivos;
    arquivos.falhar(testes::ArquivosEmMemoria::Operacao::Escrever, 1, testes::discoCheio);
    const auto saida = arquivos.criarProvisorio("/t.csv");
    RelatorCsv relator(*saida);
    for (int i = 0; i < 3; ++i)
        relator.achado({.id = "w.x"_t, .campo = {}, .mensagem = Texto(300'000, 'x')});
    EXPECT_EQ(testes::numeroDaFalha([&] { return relator.terminar(), 0; }), numeroDeFalha::discoCheio);
    EXPECT_EQ(arquivos.vezes(testes::ArquivosEmMemoria::Operacao::Escrever), 1);
}

} // namespace
} // namespace quilatador
