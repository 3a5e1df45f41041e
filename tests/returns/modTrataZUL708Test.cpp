#include "returns/modTrataZUL708.h"

#include "returns/Retornos.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

using testes::Bancada;
using testes::linhas;
using testes::registro;

/// A header, or a record, with occurrence codes.
Texto header(VistaTexto codigos = "000000"_t) {
    return registro({{1, "A"_t}, {12, "ZUL708"_t}, {33, "000123"_t}, {229, codigos}, {235, "000001"_t}});
}
Texto guia(VistaTexto codigos) {
    return registro({{1, "S"_t}, {229, codigos}, {235, "000002"_t}});
}

constexpr VistaTexto remessa = "Remessa: 000123\r\n\r\n"_t;

/// The summary for so many records with and without an occurrence.
Texto totais(int com, int sem) {
    return junta("\r\nO Arquivo possui "_t, textoDe(com), " registros com Ocorrência!\r\nO Arquivo possui "_t,
                 textoDe(sem), " registros sem Ocorrência!\r\nTotal de Registros Analisados: "_t, textoDe(com + sem),
                 "\r\n"_t);
}

TEST(ZUL708, explicaOcorrencias) {
    constexpr VistaTexto erro = "O Registro 000002 apresenta o seguinte erro: "_t;
    const std::pair<VistaTexto, Texto> casos[] = {
        {"120512"_t, junta(erro, "12 - Código – inválido, custa 1 €\r\n"_t, erro, "05 - Convênio não cadastrado\r\n"_t,
                           erro, "12 - Código – inválido, custa 1 €\r\n"_t)},
        {"070000"_t, junta(erro, "07 - \r\n"_t)},
        {" 5-5''"_t, junta(erro, " 5 - Convênio não cadastrado\r\n"_t, erro, "-5\r\n"_t, erro, "''\r\n"_t)},
        {"0 0000"_t, junta(erro, "0 \r\n"_t)}};
    for (const auto& [codigos, esperado] : casos)
        EXPECT_EQ(Bancada(tratarRetornoZUL708, linhas({header(), guia(codigos)})).log(),
                  junta(remessa, esperado, totais(1, 1)));
    for (const VistaTexto codigos : {"000000"_t, "      "_t})
        EXPECT_EQ(Bancada(tratarRetornoZUL708, linhas({header(), guia(codigos)})).log(), junta(remessa, totais(0, 2)));
}

TEST(ZUL708, linhasCurtasEHeaderComOcorrencia) {
    const Texto arquivo =
        linhas({header("050000"_t), registro({{1, "B"_t}, {26, "EMPRESA"_t}}, 32), ""_t, "S"_t, guia("05"_t)}) +
        guia("05"_t).substr(0, 230);
    EXPECT_EQ(Bancada(tratarRetornoZUL708, arquivo).log(),
              junta(remessa, "O Registro 000001 apresenta o seguinte erro: 05 - Convênio não cadastrado\r\n"_t,
                    "Convenente: EMPRESA\r\n\r\n"_t
                    "O Registro 000002 apresenta o seguinte erro: 05 - Convênio não cadastrado\r\n"_t
                    "O Registro  apresenta o seguinte erro: 05 - Convênio não cadastrado\r\n"_t,
                    totais(3, 3)));
}

TEST(ZUL708, outroTipoDeArquivo) {
    for (const Texto& primeira :
         {registro({{1, "A"_t}, {12, "ZUL702"_t}, {235, "000001"_t}}), Texto("AZUL708"_t), Texto()}) {
        Bancada bancada(tratarRetornoZUL708, linhas({primeira, header()}));
        const Texto mensagem = junta("Linha: "_t, trecho(primeira, 235), " - O Arquivo não é do tipo ZUL708!"_t);
        EXPECT_EQ(bancada.log(), junta(mensagem, "\r\n\r\nTRATAMENTO CANCELADO!!!\r\n"_t));
        EXPECT_EQ(bancada.resumo.desfecho, Desfecho::Falhou);
        EXPECT_EQ(bancada.resumo.descricao, mensagem);
        EXPECT_EQ(bancada.ouvinte.achados.front().campo.value().nome, "NomeArquivo"_t);
    }
}

TEST(ZUL708, rotulosProgressoEAchado) {
    Bancada bancada(tratarRetornoZUL708,
                    linhas({header(), registro({{1, "B"_t}, {26, "EMPRESA"_t}}), guia("000500"_t)}));
    const Resumo resumo = bancada.rodar();
    EXPECT_EQ(bancada.chamadas(),
              "iniciar 0/3 guias 0\nrotulo Remessa: Remessa: 000123\neventos\navancar 1/3 guias 0\n"_t
              "rotulo Empresa: Convenente: EMPRESA\neventos\navancar 2/3 guias 0\navancar 3/3 guias 0\n"_t
              "concluir 3/3 guias 0\n"_t);
    EXPECT_EQ(resumo.desfecho, Desfecho::Concluida);
    EXPECT_EQ(std::tuple(resumo.totalErros, resumo.totalRegistros), std::tuple(1, 3));
    EXPECT_EQ(bancada.ouvinte.linhas.size(), 10u); // title, remittance, company and summary, with their empty lines
    ASSERT_EQ(bancada.ouvinte.achados.size(), 1u);
    const Achado& achado = bancada.ouvinte.achados.front();
    EXPECT_EQ(std::tuple(achado.gravidade, achado.linha, achado.segmento), std::tuple(Gravidade::Ocorrencia, 3, 'S'));
    EXPECT_EQ(achado.campo, (CampoDoAchado{Texto("CodigoRetorno2"_t), 231, 232, Texto("05"_t), std::nullopt}));
}

TEST(ZUL708, contaAlemDeDoisBilhoesDeLinhas) {
    Bancada bancada(tratarRetornoZUL708, linhas({guia("000500"_t)}));
    bancada.lidas = 2'147'483'647;
    EXPECT_TRUE(bancada.log().ends_with("Total de Registros Analisados: 2147483648\r\n"_t));
    EXPECT_EQ(bancada.ouvinte.achados.front().linha, 2'147'483'648);
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
