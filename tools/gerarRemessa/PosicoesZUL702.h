#pragma once

#include "gerarRemessa/Linha.h"

#include <algorithm>
#include <iterator>
#include <string_view>

/// The field positions of a ZUL702 as compile-time constants. They repeat those of `data/Arquivo_ZUL702.xml` on
/// purpose: the generator does not use the layout engine, so that it cannot share its faults. A test checks that both
/// agree.
namespace quilatador::gerador {

/// The fields that have the same place in every record type.
inline constexpr Campo camposComuns[] = {
    Campo{'*', "TipoReg", 1, 1},       Campo{'*', "Convenio", 2, 6},     Campo{'*', "IDRegistro", 8, 4},
    Campo{'*', "Ocorrencias", 229, 6}, Campo{'*', "Sequencial", 235, 6},
};

/// The fields between those, by record type.
inline constexpr Campo camposProprios[] = {
    Campo{'A', "NomeArquivo", 12, 6},
    Campo{'A', "VersaoLayout", 18, 7},
    Campo{'A', "DataGeracao", 25, 8},
    Campo{'A', "NroRemessa", 33, 6},
    Campo{'A', "CNPJ", 39, 14},
    Campo{'A', "IdProduto", 53, 1},
    Campo{'A', "TipoRemessa", 54, 1},
    Campo{'A', "TipoForm", 55, 1},
    Campo{'A', "IndPostagem", 56, 1},
    Campo{'B', "CNPJ", 12, 14},
    Campo{'B', "Nome", 26, 50},
    Campo{'B', "Endereco", 76, 50},
    Campo{'B', "Bairro", 126, 30},
    Campo{'B', "Cidade", 156, 30},
    Campo{'B', "UF", 186, 2},
    Campo{'B', "CEP", 188, 8},
    Campo{'C', "SegFebraban", 12, 1},
    Campo{'C', "IDFebraban", 13, 8},
    Campo{'C', "Moeda", 21, 1},
    Campo{'C', "Decimais", 22, 1},
    Campo{'C', "FormatoData", 23, 1},
    Campo{'C', "indAposReceb", 24, 1},
    Campo{'C', "idServico", 25, 4},
    Campo{'C', "Finalidade", 29, 60},
    Campo{'D', "Denominacao", 12, 40},
    Campo{'D', "SiglaID", 52, 10},
    Campo{'D', "Significado", 62, 40},
    Campo{'D', "TipoID", 102, 1},
    Campo{'D', "TamanhoID", 103, 2},
    Campo{'D', "Transmitente", 105, 40},
    Campo{'E', "Nome", 12, 40},
    Campo{'E', "Sigla", 52, 10},
    Campo{'E', "Complemento", 62, 40},
    Campo{'E', "UnidadeConv", 102, 10},
    Campo{'E', "DenExercicio", 112, 20},
    Campo{'E', "Exercicio", 132, 4},
    Campo{'E', "TitComposicao", 136, 40},
    Campo{'E', "DenSequencial", 176, 20},
    Campo{'E', "NroOpcoes", 196, 2},
    Campo{'E', "Parcelamento", 198, 2},
    Campo{'E', "FormaCalculo", 200, 1},
    Campo{'E', "Checar data", 201, 1},
    Campo{'E', "Checar valor", 202, 1},
    Campo{'F', "Denominacao", 12, 40},
    Campo{'F', "SiglaID", 52, 10},
    Campo{'F', "SignificadoID", 62, 40},
    Campo{'F', "TipoID", 102, 1},
    Campo{'F', "TamanhoID", 103, 2},
    Campo{'F', "TituloCaract", 105, 40},
    Campo{'G', "Codigo", 12, 2},
    Campo{'G', "Denominacao", 14, 40},
    Campo{'H', "Texto", 12, 200},
    Campo{'I', "Texto", 12, 200},
    Campo{'J', "Texto", 12, 200},
    Campo{'K', "Numero", 12, 2},
    Campo{'K', "Denominacao", 14, 40},
    Campo{'L', "TipoPag", 12, 1},
    Campo{'L', "NroPag", 13, 2},
    Campo{'L', "DataVenc", 15, 8},
    Campo{'L', "Denominacao", 23, 40},
    Campo{'S', "IdGuia", 12, 15},
    Campo{'S', "DataEmissao", 27, 8},
    Campo{'S', "DataValidade", 35, 8},
    Campo{'S', "ValorTotal", 43, 15},
    Campo{'S', "nroOpcoesPag", 58, 2},
    Campo{'S', "Parcelamento", 60, 2},
    Campo{'S', "indEndereco", 62, 1},
    Campo{'T', "Identificacao", 12, 17},
    Campo{'T', "Nome", 29, 50},
    Campo{'T', "Endereco", 79, 50},
    Campo{'T', "Cidade", 129, 30},
    Campo{'T', "UF", 159, 2},
    Campo{'T', "CEP", 161, 8},
    Campo{'U', "ValorRec1", 12, 13},
    Campo{'U', "Aliquota1", 25, 5},
    Campo{'U', "ValorRec2", 30, 13},
    Campo{'U', "Aliquota2", 43, 5},
    Campo{'U', "ValorRec3", 48, 13},
    Campo{'U', "Aliquota3", 61, 5},
    Campo{'U', "ValorRec4", 66, 13},
    Campo{'U', "Aliquota4", 79, 5},
    Campo{'U', "ValorRec5", 84, 13},
    Campo{'U', "Aliquota5", 97, 5},
    Campo{'U', "ValorRec6", 102, 13},
    Campo{'U', "Aliquota6", 115, 5},
    Campo{'U', "ValorRec7", 120, 13},
    Campo{'U', "Aliquota7", 133, 5},
    Campo{'U', "ValorRec8", 138, 13},
    Campo{'U', "Aliquota8", 151, 5},
    Campo{'U', "ValorRec9", 156, 13},
    Campo{'U', "Aliquota9", 169, 5},
    Campo{'V', "Identificacao", 12, 17},
    Campo{'V', "Descricao", 29, 50},
    Campo{'V', "Endereco", 79, 50},
    Campo{'V', "Cidade", 129, 30},
    Campo{'V', "UF", 159, 2},
    Campo{'V', "CEP", 161, 8},
    Campo{'W', "Caract1", 12, 24},
    Campo{'W', "Caract2", 36, 24},
    Campo{'W', "Caract3", 60, 24},
    Campo{'W', "Caract4", 84, 24},
    Campo{'W', "Caract5", 108, 24},
    Campo{'W', "Caract6", 132, 24},
    Campo{'W', "Caract7", 156, 24},
    Campo{'W', "Caract8", 180, 24},
    Campo{'W', "Caract9", 204, 24},
    Campo{'X', "Mensagem1", 12, 72},
    Campo{'X', "Mensagem2", 84, 72},
    Campo{'X', "Mensagem3", 156, 72},
    Campo{'Y', "TipoPag", 12, 1},
    Campo{'Y', "NroPag", 13, 2},
    Campo{'Y', "DataVenc", 15, 8},
    Campo{'Y', "ValorPag", 23, 15},
    Campo{'Y', "Parte1", 38, 11},
    Campo{'Y', "DV1", 49, 1},
    Campo{'Y', "Parte2", 50, 11},
    Campo{'Y', "DV2", 61, 1},
    Campo{'Y', "Parte3", 62, 11},
    Campo{'Y', "DV3", 73, 1},
    Campo{'Y', "Parte4", 74, 11},
    Campo{'Y', "DV4", 85, 1},
    Campo{'Z', "TotalRegistros", 12, 6},
};

/// A field that every record type has. An unknown name does not compile.
consteval Campo campo(std::string_view nome) {
    const auto achado = std::ranges::find(camposComuns, nome, &Campo::nome);
    if (achado == std::end(camposComuns)) throw "no such field is common to all record types";
    return *achado;
}

/// A field of one record type. An unknown name does not compile.
consteval Campo campo(char segmento, std::string_view nome) {
    const auto achado =
        std::ranges::find_if(camposProprios, [=](const Campo& c) { return c.segmento == segmento && c.nome == nome; });
    if (achado != std::end(camposProprios)) return *achado;
    Campo comum = campo(nome);
    comum.segmento = segmento;
    return comum;
}

} // namespace quilatador::gerador
