#pragma once

#include "common/Texto.h"

#include <array>
#include <cstdint>

namespace quilatador::gerador {

/// What a collection barcode says (Febraban, product 8).
struct DadosDaBarra {
    char segmento;         ///< '1' to '5', whose company number has four digits
    int moeda;             ///< 6 to 9, the value identifier; 6 and 7 take modulus 10, 8 and 9 modulus 11
    std::uint64_t valor;   ///< in cents, up to 11 digits
    VistaTexto empresa;    ///< 4 digits
    VistaTexto campoLivre; ///< 25 digits
};

using CodigoDeBarras = std::array<char, 44>;

/// The check digit of a run of digits in a barcode of that currency code.
[[nodiscard]] char digitoVerificador(VistaTexto digitos, int moeda);
/// The 44 digits of a barcode, its general check digit at the fourth position.
[[nodiscard]] CodigoDeBarras fazerCodigoDeBarras(const DadosDaBarra& dados);

} // namespace quilatador::gerador
