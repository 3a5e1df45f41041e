#pragma once

#include "layout/RegistroRemessa.h"

#include <cstdint>
#include <vector>

namespace quilatador {

/// What the records A to L of a remittance define for its slips. The checks of these records fill it in the order of
/// the file; those of the slips only read it.
struct Definicao {
    Texto convenio;            ///< the agreement's number, as the header has it
    RegistroRemessa registroA; ///< these six are the last record of their letter, without fields before the first
    RegistroRemessa registroB;
    RegistroRemessa registroC;
    RegistroRemessa registroD;
    RegistroRemessa registroE;
    RegistroRemessa registroF;
    std::vector<RegistroRemessa> caracteristicas; ///< segments G that were accepted
    std::vector<RegistroRemessa> receitas;        ///< segments K that were accepted
    std::vector<RegistroRemessa> opcoesPagamento; ///< segments L that were accepted
    std::size_t parcelasPrevistas = 0;            ///< segments L, accepted or not
    bool temSegmentoF = false;
    bool checarData = false;
    bool checarValor = false;
    std::int16_t moeda = 0;            ///< 6 real, 7 variable currency, 8 and 9 the same with the modulus-11 digit
    std::int16_t PosicaoDataBarra = 0; ///< of the due date in the barcode, 1-based; 0 for none
    Texto FormatoDataBarra;            ///< of that date; segment C replaces the one asked for

    // What segment D says of the payer. No check reads it: it is there for whoever describes a remittance.
    bool temTransmitente = false;
    Texto siglaIdentificador;
    Valor tamanhoIdentificador;
};

} // namespace quilatador
