#pragma once

#include "common/Texto.h"

#include <optional>

namespace quilatador {

/// Check digits. Digits are counted from the right. A character that is no digit counts as 0, except in the CNPJ and
/// CPF routines, which fail on it (`Falha` 13).
class DV {
  public:
    /// Modulus 11 with the weights 9 down to 2: the remainder itself, "X" for 10.
    [[nodiscard]] static Texto CalcularMod11(VistaTexto digitos);
    /// Whether the last character is the `CalcularMod11` of those before it; false below two characters. A lower-case
    /// "x" is no "X".
    [[nodiscard]] static bool VerificarMod11(VistaTexto digitos);
    /// Modulus 11 with the weights 2 up to 9, each product of two digits replaced by their sum: 11 less the remainder,
    /// "1" for the remainders 0, 1 and 10. Blanks around the text do not count; none gives "". `Falha` 6 where the
    /// sum passes 32767.
    [[nodiscard]] static Texto CalculaMod1129(std::optional<VistaTexto> digitos);
    /// Febraban's modulus 11 for collection barcodes, weights 2 up to 9: 11 less the remainder, "0" for the remainders
    /// 0 and 1, "1" for 10.
    [[nodiscard]] static Texto CalculaMod11Barra(VistaTexto digitos);
    /// Febraban's modulus 10, weights 2 and 1 in turn, the digits of each product added.
    [[nodiscard]] static Texto CalcularMod10(VistaTexto digitos);

    /// Both check digits of a CNPJ, given its first 12 digits (Receita Federal, modulus 11).
    [[nodiscard]] static Texto CalcularCNPJ(VistaTexto digitos);
    /// Whether a CNPJ of 14 digits, without punctuation, has its right check digits; any other length is false.
    [[nodiscard]] static bool VerificarCNPJ(VistaTexto cnpj);
    /// Both check digits of a CPF, given its first 9 digits. The caller's text gets the first of them appended: kept
    /// on purpose, the test `CalcularCPF` holds it.
    [[nodiscard]] static Texto CalcularCPF(Texto& digitos);
    /// Whether a CPF of 11 digits, without punctuation, has its right check digits; any other length is false.
    [[nodiscard]] static bool VerificarCPF(VistaTexto cpf);
};

} // namespace quilatador
