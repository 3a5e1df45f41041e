#include "criarTabelaErros/FonteDasTabelas.h"

#include "support/Falhas.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quilatador {
namespace {

BancoJet ler(const std::string& fonte) {
    std::istringstream entrada(fonte);
    return lerTabelas(entrada);
}

TEST(FonteDasTabelas, leTabelas) {
    const BancoJet banco = ler("# comentário\n\nsenha  segredo\n"
                               "tabela Forma: codigo texto(1), descricao texto(100), ordem inteiro\n"
                               "1 | Débito – automático | 32767\n  2||\n"
                               "tabela Outra:numero longo\n100000");
    EXPECT_EQ(banco.senha, "segredo");
    ASSERT_EQ(banco.tabelas.size(), 2u);
    const TabelaJet& forma = banco.tabelas[0];
    EXPECT_EQ(forma.nome, "Forma");
    ASSERT_EQ(forma.colunas.size(), 3u);
    EXPECT_EQ(forma.colunas[1].nome, "descricao");
    EXPECT_EQ(forma.colunas[1].tamanho, 100u);
    EXPECT_EQ(forma.colunas[2].tipo, TipoJet::Inteiro);
    using Linhas = std::vector<std::vector<ValorJet>>;
    EXPECT_EQ(forma.linhas, (Linhas{{Texto("1"), Texto("Débito – automático"_t), 32767.0}, {Texto("2"), {}, {}}}));
    EXPECT_EQ(banco.tabelas[1].linhas, (Linhas{{100000.0}}));
}

TEST(FonteDasTabelas, apontaALinhaErrada) {
    const std::string tabela = "tabela T: codigo texto(2), numero inteiro\n";
    const std::pair<std::string, VistaTexto> casos[] = {
        {"1 | 2", "linha 1 - linha fora de uma tabela"},
        {"tabela T:", "linha 1 - tabela sem colunas"},
        {"tabela T: a data", "linha 1 - tipo inválido na coluna a"_t},
        {"tabela T: a texto(256)", "linha 1 - tipo inválido na coluna a"_t},
        {tabela + "abc | 1", "linha 2 - texto longo demais em codigo"},
        {tabela + "a | x", "linha 2 - número inválido em numero"_t},
        {tabela + "a | 32768", "linha 2 - Estouro"},
        {tabela + "a | 1 | 2", "linha 2 - valores demais"}};
    for (const auto& [fonte, mensagem] : casos)
        EXPECT_EQ(testes::textoDaFalha([&, &texto = fonte] { return ler(texto).senha; }),
                  junta("1 FonteDasTabelas: ", mensagem));
}

} // namespace
} // namespace quilatador
