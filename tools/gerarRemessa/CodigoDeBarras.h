#pragma once

#include "common/Texto.h"

#include <array>
#include <cstdint>

namespace quilatador::gerador {

/// The content of a collection barcode by Febraban's standard (product 8).
struct DadosDaBarra {
    char segmento;         ///< '1' to '5', the segments whose company number has four digits
    int moeda;             ///< value identifier: 6 and 7 use modulus 10, 8 and 9 use modulus 11
    std::uint64_t valor;   ///< in cents, up to 11 digits
    VistaTexto empresa;    ///< 4 digits
    VistaTexto campoLivre; ///< 25 digits
};

using CodigoDeBarras = std::array<char, 44>;

/// The check digit of a sequence of digits in a barcode with that value identifier.
[[nodiscard]] char digitoVerificador(VistaTexto digitos, int moeda);
/// Makes the 44 digits of a barcode. The general check digit is at the fourth position.
[[nodiscard]] CodigoDeBarras fazerCodigoDeBarras(const DadosDaBarra& dados);

} // namespace quilatador::gerador
