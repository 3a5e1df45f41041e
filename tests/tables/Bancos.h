#pragma once

#include "jet/EscritorJet.h"
#include "support/Falsos.h"
#include "tables/BancoDeDados.h"

namespace quilatador::testes {

constexpr const char* caminhoDoBanco = "/programa/TabelaErrosZUL.mdb";

/// Code tables with a row for each rule; the occurrences from 20 to 99 fill several pages.
inline BancoJet tabelasDeCodigos(VersaoJet versao = VersaoJet::Jet4) {
    const auto codigo = [](const char* nome) { return ColunaJet{nome, TipoJet::Caracteres, 1}; };
    const auto texto = [](const char* nome) { return ColunaJet{nome, TipoJet::Caracteres, 200}; };
    TabelaJet ocorrencias{
        "OcorrenciaTAV",
        {{"codigoTipoRetorno", TipoJet::Inteiro}, {"codigoRetorno", TipoJet::Inteiro}, texto("textoDescricao")},
        {{2.0, 5.0, Texto("de outro retorno")},
         {1.0, 5.0, Texto("Convênio não cadastrado"_t)},
         {1.0, 12.0, Texto("Código – inválido, custa 1 €"_t)},
         {1.0, 7.0, {}},
         {1.0, 8.0, Texto()}}};
    for (int numero = 20; numero < 100; ++numero)
        ocorrencias.linhas.push_back(
            {1.0, double(numero), junta("Ocorrência "_t, std::to_string(numero), Texto(150, '.'))});
    return {.versao = versao,
            .senha = "quimera",
            .tabelas = {
                ocorrencias,
                {"FormaArrecadacao",
                 {codigo("codigoFormaArrecadacao"), texto("textoDescricaoFormaArrecadacao"), codigo("indicadorEstado")},
                 {{Texto("1"), Texto("Guichê"_t), Texto("A")},
                  {Texto("a"), Texto("Guichê sem fatura"_t), Texto("I")},
                  {Texto("É"_t), Texto("Acentuada"), {}},
                  {Texto("Z"), {}, Texto("A")}}},
                {"FormaPagamento",
                 {codigo("codigoFormaPagamento"), texto("textoDescricaoFormaPagamento"), codigo("indicadorEstado")},
                 {{Texto("1"), Texto("Dinheiro"), Texto("A")}, {Texto("X"), Texto("Débito"_t), Texto("A")}}}}};
}

/// A database opened from its bytes.
inline BancoDeDados abrirBanco(const Texto& bytes, VistaTexto conexao = BancoDeDados::conexaoDoPrograma) {
    ArquivosEmMemoria arquivos;
    arquivos.conteudo[caminhoDoBanco] = bytes;
    return {arquivos, caminhoDoBanco, conexao};
}

} // namespace quilatador::testes
