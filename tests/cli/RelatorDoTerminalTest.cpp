#include "cli/RelatorDoTerminal.h"

#include "cli/BancadaDoPrograma.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

/// What the terminal shows of a check that finds one cause with two consequences, and 50 rules more.
std::string mostrar(const std::vector<std::string>& opcoes, bool colorida) {
    testes::BancadaDoPrograma bancada;
    bancada.colorida = colorida;
    const Argumentos argumentos = lerArgumentos(opcoes);
    const Maquina maquina = bancada.maquina();
    Sessao sessao(argumentos, maquina);
    RelatorDoTerminal relator(sessao);
    Achado achado;
    achado.id = "b.cnpj"_t;
    achado.linha = 2;
    achado.segmento = 'B';
    achado.mensagem = Texto("CNPJ \x1b é outro"_t);
    achado.campo = CampoDoAchado{Texto("CNPJ"_t), 12, 25, Texto("  18     0"_t), Texto("1"_t)};
    for (achado.n = 1; achado.n <= 3; ++achado.n) {
        relator.achado(achado);
        achado.causa = 1;
        achado.linha = 10 * achado.n;
        achado.guia = achado.n;
        achado.idGuia = Texto(" 77"_t);
    }
    achado = {};
    achado.id = "d"_t;
    achado.discutido = true;
    achado.motivo = Texto("O banco aceita"_t);
    for (int campo = 1; campo <= 50; ++campo) {
        achado.campo = CampoDoAchado{textoDe(campo), 1, 1, {}, {}};
        relator.achado(achado);
    }
    ResumoCompleto completa;
    completa.parcelas = 1;
    completa.datas = {{"ADDD"_t, 20, 1}, {"AADDD"_t, 21, 1}};
    relator.terminar(completa);
    return bancada.saida.str();
}

TEST(RelatorDoTerminal, blocosAteOLimiteOuTodosOsAchados) {
    const std::string fim = R"(
Conferência completa: sem erros
Data de vencimento no código de barras: ADDD na posição 20 ou AADDD na posição 21: 1 de 1 parcela
)";
    const std::string blocos = mostrar({"--completa", "x"}, false);
    EXPECT_EQ(blocos.substr(0, blocos.find("\nDiscutido: \n  regra d; campo 2 ")), R"(
Erro: CNPJ \x1B é outro
  regra b.cnpj; linha 2; segmento B; campo CNPJ (posições 12 a 25)
  encontrado: ␣␣18␣×5 0
  esperado:   1
  daqui decorrem 2 outros:
    2 × CNPJ \x1B é outro; regra b.cnpj; campo CNPJ; primeiro: linha 10, guia 1 (IdGuia 77)

Discutido: 
  regra d; campo 1 (posição 1)
  encontrado: (nada)
  motivo:     O banco aceita
)");
    EXPECT_TRUE(blocos.ends_with("\nHá mais 1 bloco como estes (--todos mostra todos os achados).\n" + fim)) << blocos;
    const std::string todos = mostrar({"--completa", "--todos", "x"}, true);
    EXPECT_NE(todos.find("\n\x1b[1;31mErro\x1b[0m: \x1b[1mCNPJ \\x1B é outro\x1b[0m\n"
                         "  achado 3; regra b.cnpj; linha 20, guia 2 (IdGuia 77); segmento B; "
                         "campo CNPJ (posições 12 a 25); decorre do achado 1\n"),
              std::string::npos)
        << todos;
    EXPECT_NE(todos.find("regra d; campo 50 "), std::string::npos);
    EXPECT_TRUE(todos.ends_with(fim));
}

} // namespace
} // namespace quilatador
