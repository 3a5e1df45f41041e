#pragma once

#include "gerarRemessa/PosicoesZUL702.h"

namespace quilatador::gerador {

/// A field whose content is replaced to put a fault into a remittance.
struct Troca {
    std::uint32_t ordem; ///< number of the record within its type, 1-based; for slip records, within the last slip
    Campo campo;
    VistaTexto conteudo;
};

/// Each line of the table puts in one fault. None of them breaks the order of the records, which would hide all the
/// others.
inline constexpr Troca trocas[] = {
    {1, campo('A', "TipoForm"), "9"_t},
    {1, campo('A', "IndPostagem"), "X"_t},
    {1, campo('A', "CNPJ"), "11222333000100"_t}, // wrong check digits, and not the CNPJ of B
    {1, campo('B', "Bairro"), ""_t},
    {1, campo('C', "Decimais"), "9"_t},
    {1, campo('C', "indAposReceb"), "s"_t},
    {1, campo('D', "TipoID"), "X"_t},
    {1, campo('D', "TamanhoID"), "18"_t},
    {1, campo('E', "Sigla"), ""_t},
    {2, campo('G', "Codigo"), "01"_t}, // a code used before, so that the second characteristic is missing as well
    {1, campo('H', "IDRegistro"), "0009"_t},
    {3, campo('K', "Denominacao"), ""_t},
    {2, campo('L', "DataVenc"), "20200310"_t},
    {4, campo('L', "TipoPag"), "X"_t},
    {1, campo('S', "IdGuia"), "000000000000000"_t},
    {1, campo('S', "indEndereco"), "X"_t},
    {1, campo('T', "Nome"), "JOSÉ DA CONCEIÇÃO"_t},
    {1, campo('U', "ValorRec9"), "0000000100000"_t},
    {1, campo('W', "Caract9"), "SEM DEFINICAO"_t},
    {1, campo('Y', "NroPag"), "05"_t},
    {2, campo('Y', "DataVenc"), "20200310"_t},
    {3, campo('Y', "Parte1"), "81A00000000"_t},
    {4, campo('Y', "ValorPag"), "000000000000001"_t},
};

} // namespace quilatador::gerador
