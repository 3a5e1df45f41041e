#include "frontend/Laudo.h"

#include "support/Remessas.h"

#include <gtest/gtest.h>
#include <regex>
#include <vector>

namespace quilatador {
namespace {

/// A report of findings about a remittance of one slip.
struct Bancada : testes::MundoComRemessa {
    Bancada() : MundoComRemessa(testes::remessa(), "/d/<b>'\"&.rem") {
        pedido.nomeArquivo = "/d/<b>'\"&.rem";
        completa.sha256 = testes::ArquivosEmMemoria::soma;
        completa.guias = {.lidas = 7, .certas = 5, .comErro = 1, .emParte = 1};
    }

    std::string laudo() {
        const std::atomic<bool> cancelado = false;
        return fazerLaudo(ambiente, achados, {.pedido = pedido, .resumo = resumo, .completa = completa, .log = "/l"},
                          cancelado)
            .value_or("");
    }

    Pedido pedido;
    Resumo resumo;
    ResumoCompleto completa;
    AchadosDoLaudo achados;
};

bool tem(const std::string& html, std::string_view texto) {
    return html.find(texto) != std::string::npos;
}

TEST(Laudo, nadaDeUmArquivoViraMarcacao) {
    Bancada bancada;
    const Texto hostil = junta("\"><script>'&"_t, Texto{'\x1a', '\x81', '\xa0'});
    Achado achado{.id = "y.regra"_t,
                  .linha = 15,
                  .segmento = 'Y',
                  .campo = CampoDoAchado{hostil, 15, 22, hostil, hostil},
                  .mensagem = hostil,
                  .n = 1,
                  .guia = 1,
                  .idGuia = hostil,
                  .discutido = true,
                  .motivo = hostil};
    bancada.achados.achado(achado);
    achado.discutido = false;
    achado.n = 2;
    achado.campo->esperado = Texto(hostil.size(), ' ');
    bancada.achados.achado(achado);
    achado.n = 3;
    achado.causa = 2;
    bancada.achados.achado(achado);
    bancada.achados.guia({.guia = 4, .linha = 9, .idGuia = hostil});
    bancada.achados.guia({.guia = 6, .linha = 9, .idGuia = {}, .estado = GuiaConferida::Estado::EmParte});
    bancada.arquivos.conteudo["/programa/Documentos/TAV/Ajuda/Quilatador.htm"] =
        textoDosBytes("<tr id=\"y.regra\"><th>m</th><td>Um <em>campo</em>\n &lt;b&gt;</td><td>Faça &amp;lt;</td></tr>");
    bancada.completa.erros = 2;
    bancada.completa.causas = 1;
    const std::string html = bancada.laudo();
    for (const char* proibido :
         {"<script>'", "\"><script", "<b>'", "\x1a", "\x81\"", "url(", "@import", "http:", "https:", " src="})
        EXPECT_FALSE(tem(html, proibido)) << proibido;
    EXPECT_FALSE(std::regex_search(html, std::regex("href=\"[^#]")));
    for (const char* presente :
         {"&quot;&gt;&lt;script&gt;&#39;&amp;‹1A›�⍽", "<h1>&lt;b&gt;&#39;&quot;&amp;.rem</h1>", "default-src 'none'",
          "Com erros que o log não mostra: 1 causa", "Um campo &lt;b&gt;", "Faça &amp;lt;", "1 consequência",
          "<b>Certas (5):</b> 1 a 3; 5; 7.", "<li class=\"x\"><span>15–22</span> <b>DataVenc <em>erro</em></b>",
          "O que ficou de fora"})
        EXPECT_TRUE(tem(html, presente)) << presente;
}

/// Many rules, each with texts that take as much room as they can, and a hundred thousand findings in all.
TEST(Laudo, cabeEmDoisMegabytes) {
    for (const std::size_t regras : {10U, 400U, 4000U}) {
        std::vector<Texto> ids; // which the findings refer to
        for (std::size_t i = 0; i < regras; ++i)
            ids.push_back(junta("regra."_t, textoDe(static_cast<long long>(i))));
        Bancada bancada;
        for (std::size_t i = 0; i < 100'000; ++i) {
            const auto n = static_cast<std::int64_t>(i) + 1;
            bancada.achados.achado(
                {.id = ids[i % regras],
                 .linha = 15,
                 .segmento = 'Y',
                 .campo = CampoDoAchado{Texto("DataVenc"_t), 15, 22, Texto(400, '"'), Texto(400, '&')},
                 .mensagem = Texto(400, '<'),
                 .n = n,
                 .guia = n,
                 .idGuia = Texto(15, '"')});
            bancada.achados.guia({.guia = n, .linha = 15, .idGuia = Texto(15, '"')});
        }
        bancada.completa.erros = bancada.completa.causas = 100'000;
        bancada.completa.guias = {.lidas = 100'001, .certas = 1, .comErro = 100'000};
        const std::string html = bancada.laudo();
        EXPECT_LE(html.size(), maiorLaudo);
        EXPECT_TRUE(html.ends_with("</html>\n"));
        for (const char* presente : {"Com erros que o log não mostra: 100.000 causas", "O que ficou de fora",
                                     "que não estão certas aparecem só na contagem"})
            EXPECT_TRUE(tem(html, presente)) << regras << presente;
        EXPECT_EQ(tem(html, "com os primeiros 25 lugares"), regras < 4000);
        EXPECT_EQ(tem(html, "sem régua"), regras > 10);
        EXPECT_EQ(tem(html, "não couberam nem no resumo"), regras > 400);
    }
}

TEST(Laudo, aSomaSoVemDeUmLaudo) {
    Bancada bancada;
    auto& arquivos = bancada.arquivos;
    arquivos.conteudo["/sim"] = Texto(textoDosBytes(bancada.laudo()));
    EXPECT_EQ(somaNoLaudo("/sim", arquivos), testes::ArquivosEmMemoria::soma);
    bancada.completa.sha256.clear();
    arquivos.conteudo["/sem"] = Texto(textoDosBytes(bancada.laudo()));
    EXPECT_EQ(somaNoLaudo("/sem", arquivos), "");
    EXPECT_EQ(somaNoLaudo(bancada.pedido.nomeArquivo, arquivos), std::nullopt);
}

} // namespace
} // namespace quilatador
