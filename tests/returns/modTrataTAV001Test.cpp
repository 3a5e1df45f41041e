#include "returns/modTrataTAV001.h"

#include "returns/Retornos.h"
#include "tables/FalhaDoBanco.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::Bancada;
using testes::linhas;
using testes::registro;

// The whole report, field by field, is in samples/retorno-liquidacao.

const Texto header = registro({{1, "A2"_t}, {23, "PREFEITURA"_t}, {74, "000042"_t}, {80, "03"_t}, {235, "777777"_t}});

Texto pagamento(VistaTexto valor, VistaTexto canal, VistaTexto forma) {
    return registro({{1, "G"_t}, {2, "1234-5"_t}, {82, valor}, {94, "0000150"_t}, {117, canal}, {141, forma}});
}

/// The log of a file of these lines.
Texto logDe(std::initializer_list<VistaTexto> arquivo) {
    return Bancada(tratarRetornoTAV001, linhas(arquivo)).log();
}

/// What a log has behind a label, each time, with ";" behind it.
Texto depoisDe(VistaTexto rotulo, VistaTexto log) {
    Texto todos;
    for (std::size_t lugar = 0; (lugar = log.find(rotulo, lugar)) != VistaTexto::npos;) {
        lugar += rotulo.size();
        todos += junta(log.substr(lugar, log.find('\r', lugar) - lugar), ";"_t);
    }
    return todos;
}

TEST(TAV001, canaisEFormas) {
    const Texto log =
        logDe({header, pagamento("1"_t, "1"_t, "1"_t), "outra linha"_t, pagamento("1"_t, "a"_t, "x"_t),
               pagamento("1"_t, "9"_t, "9"_t), pagamento("1"_t, "Z"_t, " "_t), pagamento("1"_t, " "_t, "Z"_t)});
    EXPECT_EQ(depoisDe("Forma de Arrecadação...: "_t, log), "Guichê;Guichê sem fatura;;;;"_t);
    EXPECT_EQ(depoisDe("Forma de Pagamento.....: "_t, log), "Dinheiro;Débito;;;;"_t);
}

TEST(TAV001, valoresNosSeparadoresDoSistema) {
    Bancada bancada(
        tratarRetornoTAV001,
        linhas({header, pagamento("000000000000"_t, "1"_t, "1"_t), pagamento("999999999999"_t, "1"_t, "1"_t),
                pagamento("-15         "_t, "1"_t, "1"_t), "Z12345612345678901234567"_t}));
    bancada.mundo.localidade = testes::LocalidadeFixa(Texto(","_t), Texto("."_t));
    const Texto log = bancada.log();
    EXPECT_EQ(bancada.banco.consultas(), 2u); // one a code
    EXPECT_EQ(depoisDe("Valor Recebido.........: "_t, log), "0.00;9,999,999,999.99;-0.15;"_t);
    EXPECT_EQ(depoisDe("Valor da Tarifa........: "_t, log), "1.50;1.50;1.50;"_t);
    EXPECT_TRUE(log.ends_with("Total de Registros do Arquivo: 123456\r\n"_t
                              "Valor Total Recebido.........: 123,456,789,012,345.67\r\n\r\n"_t));
}

TEST(TAV001, linhasCurtas) {
    const Texto soHeader = logDe({header});
    EXPECT_EQ(logDe({header.substr(0, 81), "G12345678901234567890202603"_t, "Z"_t, ""_t}),
              junta(soHeader, "Agência/Conta Creditada: 12345678901234567890\r\n"_t
                              "Data de Pagamento......: /03/2026\r\n"_t
                              "Data de Crédito........: //\r\n"_t
                              "Código de Barras.......: \r\n"_t
                              "Valor Recebido.........: 0,00\r\n"_t
                              "Valor da Tarifa........: 0,00\r\n"_t
                              "Sequencial de Registro.: \r\n"_t
                              "Agência Arrecadadora...: \r\n"_t
                              "Forma de Arrecadação...: \r\n"_t
                              "Autenticação...........: \r\n"_t
                              "Forma de Pagamento.....: \r\n"_t
                              "\r\n----------------------------------------------\r\n\r\n"_t
                              "Total de Registros do Arquivo: \r\nValor Total Recebido.........: 0,00\r\n\r\n"_t));
    // The shortest line that has all fields of a payment, and one without the last.
    const Texto inteira = pagamento("000000012345"_t, "1"_t, "X"_t).substr(0, 141);
    Texto semForma = logDe({header, inteira});
    semForma.erase(semForma.find("Débito"_t), 6);
    EXPECT_EQ(logDe({header, inteira.substr(0, 140)}), semForma);
    EXPECT_EQ(logDe({}), ""_t);
}

TEST(TAV001, outroTipoOuVersao) {
    using Caso = std::tuple<VistaTexto, int, VistaTexto, VistaTexto>;
    for (const auto& [nome, inicio, texto, esperado] :
         {Caso{"TipoReg"_t, 1, "B"_t, "A"_t}, Caso{"CodigoRemessa"_t, 2, "1"_t, "2"_t},
          Caso{"VersaoLayout"_t, 80, "02"_t, "03"_t}}) {
        const auto posicao = static_cast<std::size_t>(inicio);
        Bancada bancada(tratarRetornoTAV001, linhas({Texto(header).replace(posicao - 1, texto.size(), texto)}));
        EXPECT_EQ(bancada.log(), "Linha: 777777 - O Arquivo não é do tipo TAV001 ou a versão é diferente de 03!\r\n"_t
                                 "\r\nTRATAMENTO CANCELADO!!!\r\n"_t);
        ASSERT_EQ(bancada.ouvinte.achados.size(), 1u);
        EXPECT_EQ(bancada.ouvinte.achados.front().id, "tav001.tipoInvalido"_t);
        EXPECT_EQ(bancada.ouvinte.achados.front().campo,
                  (CampoDoAchado{Texto(nome), inicio, inicio + static_cast<int>(texto.size()) - 1, Texto(texto),
                                 Texto(esperado)}));
        EXPECT_EQ(bancada.resumo.desfecho, Desfecho::Falhou);
    }
}

TEST(TAV001, rotulosEProgresso) {
    const Texto metade(118, 'H'); // with the header 480 bytes: two records are foreseen, three lines come
    Bancada bancada(tratarRetornoTAV001, linhas({header, metade}) + metade);
    EXPECT_EQ(bancada.rodar().totalRegistros, 3);
    EXPECT_EQ(bancada.chamadas(), "iniciar 0/2 guias 0\nrotulo Remessa: Sequencial: 000042\neventos\n"_t
                                  "rotulo Empresa: Empresa/Órgão: PREFEITURA\neventos\navancar 1/2 guias 0\n"_t
                                  "avancar 2/2 guias 0\navancar 3/2 guias 0\nconcluir 3/2 guias 0\n"_t);
    EXPECT_EQ(bancada.mundo.painel.ultimo.barra, 2);
}

TEST(TAV001, consultaRecusadaAcabaORelatorio) {
    Bancada bancada(tratarRetornoTAV001,
                    linhas({header, pagamento("1"_t, "'"_t, "1"_t), pagamento("1"_t, "1"_t, "1"_t)}));
    const Texto log = bancada.log();
    EXPECT_EQ(bancada.resumo.desfecho, Desfecho::NaoRodou);
    EXPECT_EQ(depoisDe("Agência Arrecadadora...: "_t, log), "        ;"_t);
    EXPECT_TRUE(log.ends_with("WHERE (((FormaArrecadacao.codigoFormaArrecadacao)='''))\r\n"_t));
}

} // namespace
} // namespace quilatador
