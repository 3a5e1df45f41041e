#include "returns/modTrataTAV001.h"

#include "returns/Retornos.h"
#include "tables/FalhaDoBanco.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::Bancada;
using testes::linhas;
using testes::registro;

constexpr VistaTexto separador = "\r\n----------------------------------------------\r\n\r\n";

Texto header() {
    return registro({{1, "A2"},
                     {3, "CONVENIO"},
                     {23, "PREFEITURA"},
                     {43, "001"},
                     {46, "BANCO"},
                     {66, "20260310"},
                     {74, "000042"},
                     {80, "03"},
                     {235, "777777"}});
}

const Texto blocoDoHeader = junta("Convênio...............: CONVENIO            \r\n"
                                  "Empresa/Órgão..........: PREFEITURA          \r\n"
                                  "Código do Banco........: 001\r\n"
                                  "Nome do Banco..........: BANCO               \r\n"
                                  "Data Geração do Arquivo: 10/03/2026\r\n"
                                  "Sequencial.............: 000042\r\n"
                                  "Versão do Leiaute......: 03\r\n"_t,
                                  separador);

Texto pagamento(VistaTexto valor, VistaTexto canal, VistaTexto forma) {
    return registro({{1, "G"},
                     {2, "1234-5/67890-1"},
                     {22, "20260309"},
                     {30, "20260311"},
                     {38, "81230000000123456789012345678901234567890123"},
                     {82, valor},
                     {94, "0000150"},
                     {101, "00000007"},
                     {109, "00001234"},
                     {117, canal},
                     {118, "AUTENTICACAO"},
                     {141, forma}});
}

Texto antesDoCanal(VistaTexto valor, VistaTexto tarifa = "1,50") {
    return junta("Agência/Conta Creditada: 1234-5/67890-1      \r\n"
                 "Data de Pagamento......: 09/03/2026\r\n"
                 "Data de Crédito........: 11/03/2026\r\n"
                 "Código de Barras.......: 81230000000123456789012345678901234567890123\r\n"
                 "Valor Recebido.........: "_t,
                 valor, "\r\nValor da Tarifa........: ", tarifa,
                 "\r\nSequencial de Registro.: 00000007\r\n"
                 "Agência Arrecadadora...: 00001234\r\n"_t);
}

Texto doCanalEmDiante(VistaTexto canal, VistaTexto forma) {
    return junta("Forma de Arrecadação...: "_t, canal, "\r\nAutenticação...........: AUTENTICACAO           "_t,
                 "\r\nForma de Pagamento.....: ", forma, "\r\n", separador);
}

TEST(TAV001, relatorio) {
    const Texto trailer = registro({{1, "Z"}, {2, "000004"}, {8, "00000000000012495"}});
    EXPECT_EQ(Bancada(tratarRetornoTAV001, linhas({header(), pagamento("000000012345", "1", "1"), "outra linha",
                                                   pagamento("000000000150", "a", "x"), trailer}))
                  .log(),
              junta(blocoDoHeader, antesDoCanal("123,45"), doCanalEmDiante("Guichê"_t, "Dinheiro"),
                    antesDoCanal("1,50"), doCanalEmDiante("Guichê sem fatura"_t, "Débito"_t),
                    "Total de Registros do Arquivo: 000004\r\nValor Total Recebido.........: 124,95\r\n\r\n"));
}

TEST(TAV001, codigosSemDescricao) {
    for (const auto& [canal, forma] : {std::pair("9", "9"), std::pair("Z", " "), std::pair(" ", "Z")})
        EXPECT_EQ(Bancada(tratarRetornoTAV001, linhas({header(), pagamento("000000000001", canal, forma)})).log(),
                  junta(blocoDoHeader, antesDoCanal("0,01"), doCanalEmDiante("", "")));
}

TEST(TAV001, valores) {
    struct {
        VistaTexto centavos, brasil, inglaterra;
    } const casos[] = {
        {"000000000000", "0,00", "0.00"},         {"000000099999", "999,99", "999.99"},
        {"000000100000", "1.000,00", "1,000.00"}, {"999999999999", "9.999.999.999,99", "9,999,999,999.99"},
        {"            ", "0,00", "0.00"},         {"-15         ", "-0,15", "-0.15"},
        {"12x         ", "0,12", "0.12"}};
    for (const auto& [centavos, brasil, inglaterra] : casos)
        for (const bool ingles : {false, true}) {
            Bancada bancada(tratarRetornoTAV001, linhas({header(), pagamento(centavos, "1", "1")}));
            if (ingles) bancada.mundo.localidade = testes::LocalidadeFixa(",", ".");
            EXPECT_EQ(bancada.log(),
                      junta(blocoDoHeader, antesDoCanal(ingles ? inglaterra : brasil, ingles ? "1.50" : "1,50"),
                            doCanalEmDiante("Guichê"_t, "Dinheiro")));
        }
    EXPECT_EQ(Bancada(tratarRetornoTAV001, linhas({header(), "Z12345612345678901234567"})).log(),
              junta(blocoDoHeader, "Total de Registros do Arquivo: 123456\r\n"
                                   "Valor Total Recebido.........: 123.456.789.012.345,67\r\n\r\n"));
}

TEST(TAV001, linhasCurtas) {
    EXPECT_EQ(
        Bancada(tratarRetornoTAV001, linhas({header().substr(0, 81), "G12345678901234567890202603", "Z", ""})).log(),
        junta(blocoDoHeader,
              "Agência/Conta Creditada: 12345678901234567890\r\n"
              "Data de Pagamento......: /03/2026\r\n"
              "Data de Crédito........: //\r\n"
              "Código de Barras.......: \r\n"
              "Valor Recebido.........: 0,00\r\n"
              "Valor da Tarifa........: 0,00\r\n"
              "Sequencial de Registro.: \r\n"
              "Agência Arrecadadora...: \r\n"
              "Forma de Arrecadação...: \r\n"
              "Autenticação...........: \r\n"
              "Forma de Pagamento.....: \r\n"_t,
              separador, "Total de Registros do Arquivo: \r\nValor Total Recebido.........: 0,00\r\n\r\n"));
    // One character less than all fields of a payment need, and one that ends with them.
    const Texto curta = pagamento("000000012345", "1", "1").substr(0, 140);
    const Texto antes = linhas({header().replace(140, 1, "X"), junta(curta, "X")}); // no code for the short line
    EXPECT_EQ(Bancada(tratarRetornoTAV001, antes + curta).log(),
              junta(blocoDoHeader, antesDoCanal("123,45"), doCanalEmDiante("Guichê"_t, "Débito"_t),
                    antesDoCanal("123,45"), doCanalEmDiante("Guichê"_t, "")));
    EXPECT_EQ(Bancada(tratarRetornoTAV001).log(), "");
}

TEST(TAV001, outroTipoOuVersao) {
    struct {
        std::size_t posicao;
        VistaTexto texto;
        CampoDoAchado campo;
    } const casos[] = {{1, "B", {"TipoReg", 1, 1, "B", "A"}},
                       {2, "1", {"CodigoRemessa", 2, 2, "1", "2"}},
                       {80, "02", {"VersaoLayout", 80, 81, "02", "03"}}};
    for (const auto& [posicao, texto, campo] : casos) {
        Bancada bancada(tratarRetornoTAV001, linhas({header().replace(posicao - 1, texto.size(), texto)}));
        testes::RelatorMemoria ouvinte;
        Relator* const ouvintes[] = {&ouvinte};
        bancada.pedido.ouvintes = ouvintes;
        EXPECT_EQ(bancada.log(), "Linha: 777777 - O Arquivo não é do tipo TAV001 ou a versão é diferente de 03!\r\n"
                                 "\r\nTRATAMENTO CANCELADO!!!\r\n"_t);
        ASSERT_EQ(ouvinte.achados.size(), 1u);
        EXPECT_EQ(ouvinte.achados.front().id, "tav001.tipoInvalido");
        EXPECT_EQ(ouvinte.achados.front().campo, campo);
        EXPECT_EQ(bancada.resumo.desfecho, Desfecho::Falhou);
    }
}

TEST(TAV001, rotulosEProgresso) {
    const Texto metade(118, 'H'); // with the header 480 bytes: two records are foreseen, three lines come
    Bancada bancada(tratarRetornoTAV001, linhas({header(), metade}) + metade);
    bancada.rodar();
    EXPECT_EQ(bancada.mundo.painel.chamadas,
              (std::vector<Texto>{"iniciar 0/2 guias 0", "rotulo Remessa: Sequencial: 000042", "eventos",
                                  Texto("rotulo Empresa: Empresa/Órgão: PREFEITURA          "_t), "eventos",
                                  "avancar 1/2 guias 0", "avancar 2/2 guias 0", "avancar 3/2 guias 0",
                                  "concluir 2/2 guias 0"}));
    EXPECT_EQ(bancada.resumo.totalRegistros, 3);
}

TEST(TAV001, consultaRecusadaAcabaORelatorio) {
    Bancada bancada(tratarRetornoTAV001,
                    linhas({header(), pagamento("000000012345", "'", "1"), pagamento("1", "1", "1")}));
    EXPECT_EQ(bancada.log(),
              junta(blocoDoHeader, antesDoCanal("123,45"),
                    "Erro de sintaxe na consulta: SELECT FormaArrecadacao.codigoFormaArrecadacao, "
                    "FormaArrecadacao.textoDescricaoFormaArrecadacao, FormaArrecadacao.indicadorEstado "
                    "From FormaArrecadacao WHERE (((FormaArrecadacao.codigoFormaArrecadacao)='''))\r\n"));
    EXPECT_EQ(bancada.resumo.desfecho, Desfecho::NaoRodou);
}

TEST(TAV001, arquivoGrandePassaEmBlocos) {
    constexpr int pagamentos = 1500; // more than one block of the log
    Texto arquivo = linhas({header()});
    Texto esperado = blocoDoHeader;
    for (int i = 0; i < pagamentos; ++i) {
        const bool impar = i % 2 != 0;
        arquivo += linhas({pagamento("000000012345", impar ? "1" : "A", "x")});
        esperado += antesDoCanal("123,45") + doCanalEmDiante(impar ? "Guichê"_t : "Guichê sem fatura"_t, "Débito"_t);
    }
    Bancada bancada(tratarRetornoTAV001, arquivo);
    testes::RelatorMemoria ouvinte;
    Relator* const ouvintes[] = {&ouvinte};
    bancada.pedido.ouvintes = ouvintes;
    EXPECT_TRUE(bancada.log() == esperado);
    EXPECT_EQ(bancada.banco.consultas(), 3u);
    Texto ouvido;
    for (const Texto& linha : ouvinte.linhas)
        ouvido += junta(linha, "\r\n");
    EXPECT_TRUE(ouvido == bancada.mundo.arquivos.conteudo["/d/retorno.log"]);
}

} // namespace
} // namespace quilatador
