#pragma once

#include "validator/RegistrosGuardados.h"

#include <cstdint>

namespace quilatador {

/// What the records A to L of a remittance define for its slips. The checks of these records fill it in, in the order
/// of the file; the checks of the slips only read it.
struct Definicao {
    Texto convenio;            ///< number of the agreement, from the header
    RegistroRemessa registroA; ///< A to F: copies of the last record of each letter, without fields until there is one
    RegistroRemessa registroB;
    RegistroRemessa registroC;
    RegistroRemessa registroD;
    RegistroRemessa registroE;
    RegistroRemessa registroF;
    RegistrosGuardados caracteristicas; ///< segments G that were accepted
    RegistrosGuardados receitas;        ///< segments K that were accepted
    RegistrosGuardados opcoesPagamento; ///< segments L that were accepted
    std::size_t parcelasPrevistas = 0;  ///< number of segments L, accepted or not
    bool temSegmentoF = false;          ///< whether the remittance has a segment F, so that its slips are about objects
    bool checarData = false;            ///< segment E: the date in the barcode must be that of the installment
    bool checarValor = false;           ///< segment E: the amount in the barcode must be that of the installment
    std::int16_t moeda = 0;             ///< 6 real, 7 variable currency, 8 and 9 the same with modulus-11 check digits
    std::int16_t PosicaoDataBarra = 0;  ///< 1-based position of the due date in the barcode; 0 if there is none
    Texto FormatoDataBarra; ///< format of that date; segment C replaces the requested one by the agreement's

    // What segment D says about the payer. No check reads it; it is kept for callers that describe a remittance.
    bool temTransmitente = false;
    Texto siglaIdentificador;
    Valor tamanhoIdentificador;
};

} // namespace quilatador
