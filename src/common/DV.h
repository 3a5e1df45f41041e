#pragma once

#include "common/Texto.h"

#include <optional>

namespace quilatador {

/// Check digits of numbers, barcodes, CNPJ and CPF. Weights are applied from the rightmost digit to the left. A
/// character that is not a digit counts as 0; only the CNPJ and CPF functions raise `Falha` 13 for it.
class DV {
  public:
    /// Modulus 11 with the weights 9 down to 2, repeated. The result is the remainder itself, or "X" when it is 10.
    [[nodiscard]] static Texto CalcularMod11(VistaTexto digitos);
    /// Whether the last character is the `CalcularMod11` digit of the ones before it. A text of fewer than two
    /// characters gives false, and a lower-case "x" does not count as "X".
    [[nodiscard]] static bool VerificarMod11(VistaTexto digitos);
    /// Modulus 11 with the weights 2 up to 9, where the two digits of a product are added. The result is 11 minus the
    /// remainder, or "1" for the remainders 0, 1 and 10. Blanks around the text are ignored, and no value at all gives
    /// "". Raises `Falha` 6 when the sum exceeds 32767.
    [[nodiscard]] static Texto CalculaMod1129(std::optional<VistaTexto> digitos);
    /// Modulus 11 of Febraban's collection barcodes, with the weights 2 up to 9. The result is 11 minus the remainder,
    /// "0" for the remainders 0 and 1, and "1" for 10.
    [[nodiscard]] static Texto CalculaMod11Barra(VistaTexto digitos);
    /// Modulus 10 of Febraban's collection barcodes: the weights 2 and 1 alternate, and the digits of each product are
    /// added.
    [[nodiscard]] static Texto CalcularMod10(VistaTexto digitos);

    /// Both check digits of a CNPJ, from its first 12 digits, by the modulus-11 rule of the Receita Federal.
    [[nodiscard]] static Texto CalcularCNPJ(VistaTexto digitos);
    /// Whether the check digits of a CNPJ are right. It must have 14 digits and no punctuation; any other length gives
    /// false.
    [[nodiscard]] static bool VerificarCNPJ(VistaTexto cnpj);
    /// Whether this is a CNPJ with at least one letter and right check digits, as the Receita Federal issues them since
    /// July 2026: in the first 12 places a digit or a capital letter counts by its code less 48; the check digits are
    /// digits.
    [[nodiscard]] static bool verificarCNPJComLetras(VistaTexto cnpj);
    /// Both check digits of a CPF, from its first 9 digits. The first check digit is also appended to the caller's
    /// text: kept on purpose, the test `CalcularCPF` holds it.
    [[nodiscard]] static Texto CalcularCPF(Texto& digitos);
    /// Whether the check digits of a CPF are right. It must have 11 digits and no punctuation; any other length gives
    /// false.
    [[nodiscard]] static bool VerificarCPF(VistaTexto cpf);
};

} // namespace quilatador
