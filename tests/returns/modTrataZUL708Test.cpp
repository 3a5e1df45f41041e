#include "returns/modTrataZUL708.h"

#include "returns/Retornos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::Bancada;
using testes::linhas;
using testes::registro;

/// A header, or a record, with occurrence codes.
Texto header(VistaTexto codigos = "000000") {
    return registro({{1, "A"}, {12, "ZUL708"}, {33, "000123"}, {229, codigos}, {235, "000001"}});
}
Texto guia(VistaTexto codigos) {
    return registro({{1, "S"}, {229, codigos}, {235, "000002"}});
}

constexpr VistaTexto remessa = "Remessa: 000123\r\n\r\n";

/// The summary for so many records with and without an occurrence.
Texto totais(int com, int sem) {
    return junta("\r\nO Arquivo possui ", std::to_string(com), " registros com Ocorrência!\r\nO Arquivo possui "_t,
                 std::to_string(sem), " registros sem Ocorrência!\r\nTotal de Registros Analisados: "_t,
                 std::to_string(com + sem), "\r\n");
}

TEST(ZUL708, explicaOcorrencias) {
    const Texto erro = "O Registro 000002 apresenta o seguinte erro: ";
    const std::pair<const char*, Texto> casos[] = {
        {"120512", junta(erro, "12 - Código – inválido, custa 1 €\r\n"_t, erro, "05 - Convênio não cadastrado\r\n"_t,
                         erro, "12 - Código – inválido, custa 1 €\r\n"_t)},
        {"070000", junta(erro, "07 - \r\n")},
        {" 5-5''", junta(erro, " 5 - Convênio não cadastrado\r\n"_t, erro, "-5\r\n", erro, "''\r\n")},
        {"0 0000", junta(erro, "0 \r\n")}};
    for (const auto& [codigos, esperado] : casos)
        EXPECT_EQ(Bancada(tratarRetornoZUL708, linhas({header(), guia(codigos)})).log(),
                  junta(remessa, esperado, totais(1, 1)));
    for (const char* codigos : {"000000", "      "})
        EXPECT_EQ(Bancada(tratarRetornoZUL708, linhas({header(), guia(codigos)})).log(), junta(remessa, totais(0, 2)));
}

TEST(ZUL708, linhasCurtasEHeaderComOcorrencia) {
    const Texto arquivo = linhas({header("050000"), registro({{1, "B"}, {26, "EMPRESA"}}, 32), "", "S", guia("05")}) +
                          guia("05").substr(0, 230);
    EXPECT_EQ(Bancada(tratarRetornoZUL708, arquivo).log(),
              junta(remessa, "O Registro 000001 apresenta o seguinte erro: 05 - Convênio não cadastrado\r\n"_t,
                    "Convenente: EMPRESA\r\n\r\n"
                    "O Registro 000002 apresenta o seguinte erro: 05 - Convênio não cadastrado\r\n"
                    "O Registro  apresenta o seguinte erro: 05 - Convênio não cadastrado\r\n"_t,
                    totais(3, 3)));
}

TEST(ZUL708, outroTipoDeArquivo) {
    for (const Texto& primeira : {registro({{1, "A"}, {12, "ZUL702"}, {235, "000001"}}), Texto("AZUL708"), Texto()}) {
        Bancada bancada(tratarRetornoZUL708, linhas({primeira, header()}));
        const Texto mensagem = junta("Linha: ", trecho(primeira, 235), " - O Arquivo não é do tipo ZUL708!"_t);
        EXPECT_EQ(bancada.log(), junta(mensagem, "\r\n\r\nTRATAMENTO CANCELADO!!!\r\n"));
        EXPECT_EQ(bancada.resumo.desfecho, Desfecho::Falhou);
        EXPECT_EQ(bancada.resumo.descricao, mensagem);
    }
}

TEST(ZUL708, rotulosProgressoEAchado) {
    Bancada bancada(tratarRetornoZUL708,
                    linhas({header(), registro({{1, "B"_t}, {26, "EMPRESA"_t}}), guia("000500"_t)}));
    const Resumo resumo = bancada.rodar();
    EXPECT_EQ(bancada.chamadas(),
              "iniciar 0/3 guias 0\nrotulo Remessa: Remessa: 000123\neventos\navancar 1/3 guias 0\n"
              "rotulo Empresa: Convenente: EMPRESA\neventos\navancar 2/3 guias 0\navancar 3/3 guias 0\n"
              "concluir 3/3 guias 0\n"_t);
    EXPECT_EQ(resumo.desfecho, Desfecho::Concluida);
    EXPECT_EQ(std::pair(resumo.totalErros, resumo.totalRegistros), std::pair(1, 3));
    EXPECT_EQ(bancada.ouvinte.linhas.size(), 10u); // title, remittance, company and summary, with their empty lines
    ASSERT_EQ(bancada.ouvinte.achados.size(), 1u);
    const Achado& achado = bancada.ouvinte.achados.front();
    EXPECT_EQ(std::tuple(achado.gravidade, achado.linha, achado.segmento), std::tuple(Gravidade::Ocorrencia, 3, 'S'));
    EXPECT_EQ(achado.campo, (CampoDoAchado{Texto("CodigoRetorno2"_t), 231, 232, Texto("05"_t), std::nullopt}));
}

TEST(ZUL708, umaConsultaPorCodigo) {
    Bancada bancada(tratarRetornoZUL708, linhas({header("050505"_t), guia("050312"_t), guia("031212"_t)}));
    bancada.rodar();
    EXPECT_EQ(bancada.banco.consultas(), 3u);
    bancada.rodar();
    EXPECT_EQ(bancada.banco.consultas(), 6u); // nothing is kept from run to run
}

} // namespace
} // namespace quilatador
