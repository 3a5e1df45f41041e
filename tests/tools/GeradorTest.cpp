#include "gerarRemessa/Gerador.h"

#include "cli/BancadaDoPrograma.h"
#include "gerarRemessa/PosicoesZUL702.h"
#include "layout/ArquivoRemessaBD.h"
#include "support/Falhas.h"

#include <gtest/gtest.h>

#include <set>
#include <tuple>

namespace quilatador::gerador {

namespace {

using testes::remessa;

using Posicao = std::tuple<std::string, std::string, std::size_t, std::size_t>; ///< record, field, where, how wide

/// What the whole program says of a generated file.
std::string analise(const Opcoes& opcoes) {
    testes::BancadaDoPrograma bancada;
    bancada.arquivos.conteudo["/d/gerado"] = remessa(opcoes);
    bancada.rodar({"--com-data", "--formato", "AAAAMMDD", "/d/gerado"});
    return bancada.saida.str().substr(0, bancada.saida.str().find('\n'));
}

} // namespace

TEST(PosicoesZUL702, saoAsDoLeiauteXml) {
    testes::MundoComRemessa mundo;
    const auto leiaute =
        ArquivoRemessaBD::obterArquivoRemessa(mundo.ambiente.leiaute(), mundo.arquivos, mundo.painel, mundo.relogio);
    std::multiset<Posicao> noXml;
    std::multiset<Posicao> naTabela;
    for (const auto& registro : leiaute->tiposRegistros()) {
        const std::string segmento = utf8DeTexto(registro->nome());
        for (const auto& c : registro->campos())
            if (c->nome() != "Brancos"_t) noXml.emplace(segmento, utf8DeTexto(c->nome()), c->inicio(), c->Tamanho());
        EXPECT_EQ(registro->campos().back()->Fim(), 240) << segmento;
        for (const Campo& comum : camposComuns)
            naTabela.emplace(segmento, comum.nome, comum.inicio, comum.tamanho);
    }
    for (const Campo& proprio : camposProprios)
        naTabela.emplace(std::string(1, proprio.segmento), proprio.nome, proprio.inicio, proprio.tamanho);
    EXPECT_EQ(naTabela, noXml);
}

/// The samples were written once and are kept: the same options must give them on every platform.
TEST(Gerador, osExemplosSaoDele) {
    const std::pair<const char*, Opcoes> casos[] = {
        {"remessa-valida/remessa.rem", {.guias = 5}},
        {"remessa-com-erros/remessa.rem", {.guias = 3, .falhas = true}},
        {"retorno-impressao/retorno.ret", {.tipo = Tipo::ZUL708, .guias = 5}},
        {"retorno-liquidacao/retorno.ret", {.tipo = Tipo::TAV001, .registros = 12}},
    };
    for (const auto& [nome, opcoes] : casos)
        EXPECT_TRUE(remessa(opcoes) == testes::lerTexto(std::filesystem::path(QUILATADOR_FONTES) / "samples" / nome))
            << nome;
    EXPECT_NE(remessa({.semente = 1}), remessa({.semente = 2}));
}

/// The validator knows no fault in them, whatever way the records had to be shared out.
TEST(Gerador, dizerQuantosRegistrosOuGuiasBasta) {
    std::vector<std::uint32_t> tamanhos{100, 999, 1000, 12345};
    for (std::uint32_t n = menorRemessa; n <= 60; ++n)
        tamanhos.push_back(n);
    for (const std::uint32_t n : tamanhos) {
        const Opcoes opcoes{.semente = n, .registros = n};
        EXPECT_TRUE(analise(opcoes).starts_with("/d/gerado: 0 erros; ")) << n << analise(opcoes);
        EXPECT_EQ(remessa(opcoes).size(), n * testes::bytesDaLinha);
    }
    EXPECT_EQ(analise({.guias = 1}), "/d/gerado: 0 erros; 1 guia lida");
    EXPECT_EQ(analise({.guias = 77}),
              "/d/gerado: 0 erros; 77 guias lidas; só a última teve o conteúdo conferido (--completa confere todas)");
    EXPECT_EQ(analise({.tipo = Tipo::TAV001, .registros = 0}), "/d/gerado: 2 registros lidos");
}

TEST(Gerador, oQueRecusaEQuandoNaoGrava) {
    const std::pair<Opcoes, VistaTexto> casos[] = {
        {{.guias = 0}, "5 Gerador: O número de guias vai de 1 a 83331!"_t},
        {{.guias = 83'332}, "5 Gerador: O número de guias vai de 1 a 83331!"_t},
        {{.registros = 15}, "5 Gerador: O número de registros vai de 16 a 999999!"_t},
        {{.registros = 1'000'000}, "5 Gerador: O número de registros vai de 16 a 999999!"_t},
        {{.guias = 1, .registros = 20}, "5 Gerador: Informe o número de guias ou o de registros, não ambos!"_t},
        {{.tipo = Tipo::TAV001, .guias = 1}, "5 Gerador: Um TAV001 não tem guias nem falhas!"_t},
        {{.tipo = Tipo::TAV001, .falhas = true}, "5 Gerador: Um TAV001 não tem guias nem falhas!"_t},
        {{.tipo = Tipo::TAV001, .registros = 100'000'000}, "5 Gerador: O número de pagamentos vai de 0 a 99999999!"_t},
        {{}, "57 Gravacao: Não foi possível gravar o arquivo!"_t},
    };
    for (const auto& [opcoes, esperada] : casos) {
        std::ostringstream saida;
        saida.setstate(std::ios::badbit);
        EXPECT_EQ(testes::textoDaFalha([&, &o = opcoes] { return gerar(o, saida); }), esperada);
    }
}

} // namespace quilatador::gerador
