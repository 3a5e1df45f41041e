#include "common/DV.h"

#include "common/Falha.h"
#include "common/modDepuracao.h"

#include <array>
#include <limits>

namespace quilatador {

namespace {

int digitoOuZero(char c) noexcept {
    return modDepuracao::isDigito(c) ? c - '0' : 0;
}

/// What a character adds to a sum of modulus 10, by its code: the digits of the product with its weight, added.
using Parcelas = std::array<unsigned char, 256>;

constexpr Parcelas parcelas(int peso) {
    Parcelas tabela{};
    for (char digito = '0'; digito <= '9'; ++digito) {
        const int produto = (digito - '0') * peso;
        tabela[static_cast<std::size_t>(digito)] = static_cast<unsigned char>(produto / 10 + produto % 10);
    }
    return tabela;
}

constexpr Parcelas vezesUm = parcelas(1);
constexpr Parcelas vezesDois = parcelas(2);

constexpr std::size_t codigo(char c) noexcept {
    return static_cast<unsigned char>(c);
}

/// The digit at a position (0-based) of a CNPJ or CPF. Raises `Falha` 13 when there is no digit.
int digitoExigido(VistaTexto digitos, std::size_t posicao) {
    if (posicao >= digitos.size() || !modDepuracao::isDigito(digitos[posicao])) throw Falha::conversao("DV"_t);
    return digitos[posicao] - '0';
}

Texto umDigito(long long digito) {
    return Texto(1, static_cast<char>('0' + digito));
}

/// The sum of each digit times its weight, from right to left. The weights run from `primeiro` to `ultimo` in steps of
/// `passo` and then start again.
long long somaPonderada(VistaTexto digitos, int primeiro, int ultimo, int passo) noexcept {
    long long soma = 0;
    int peso = primeiro;
    for (std::size_t i = digitos.size(); i-- > 0;) {
        soma += digitoOuZero(digitos[i]) * peso;
        peso = peso == ultimo ? primeiro : peso + passo;
    }
    return soma;
}

/// A check digit of a CNPJ or CPF over its first `quantos` characters, each of which `valorDo` (0-based place) gives as
/// a number. From right to left, the weights run from 2 to `maiorPeso` and then start again.
template <typename ValorDoLugar>
Texto digitoDeCadastro(std::size_t quantos, int maiorPeso, ValorDoLugar valorDo) {
    int soma = 0;
    int peso = 2;
    for (std::size_t i = quantos; i-- > 0;) {
        soma += valorDo(i) * peso;
        peso = peso == maiorPeso ? 2 : peso + 1;
    }
    const int resto = soma % 11;
    return umDigito(resto < 2 ? 0 : 11 - resto);
}

/// The same over digits, where anything else raises `Falha` 13.
Texto digitoDeCadastro(VistaTexto digitos, std::size_t quantos, int maiorPeso) {
    return digitoDeCadastro(quantos, maiorPeso, [&](std::size_t i) { return digitoExigido(digitos, i); });
}

} // namespace

Texto DV::CalcularMod11(VistaTexto digitos) {
    const long long resto = somaPonderada(digitos, 9, 2, -1) % 11;
    return resto == 10 ? Texto("X"_t) : umDigito(resto);
}

bool DV::VerificarMod11(VistaTexto digitos) {
    if (digitos.size() < 2) return false;
    return CalcularMod11(digitos.substr(0, digitos.size() - 1)) == ultimos(digitos, 1);
}

Texto DV::CalculaMod1129(std::optional<VistaTexto> digitos) {
    if (!digitos) return {};
    const VistaTexto aparado = semBrancos(*digitos);
    int soma = 0;
    int peso = 2;
    for (std::size_t i = aparado.size(); i-- > 0;) {
        const int produto = digitoOuZero(aparado[i]) * peso;
        soma += produto / 10 + produto % 10;
        if (soma > std::numeric_limits<std::int16_t>::max()) throw Falha(numeroDeFalha::estouro, "DV"_t, "Estouro"_t);
        peso = peso == 9 ? 2 : peso + 1;
    }
    const int resto = soma % 11;
    return umDigito(resto == 0 || resto == 1 || resto == 10 ? 1 : 11 - resto);
}

Texto DV::CalculaMod11Barra(VistaTexto digitos) {
    const long long resto = somaPonderada(digitos, 2, 9, 1) % 11;
    if (resto == 10) return Texto("1"_t);
    return umDigito(resto < 2 ? 0 : 11 - resto);
}

Texto DV::CalcularMod10(VistaTexto digitos) {
    long long soma = 0;
    std::size_t i = digitos.size();
    for (; i >= 2; i -= 2)
        soma += vezesDois[codigo(digitos[i - 1])] + vezesUm[codigo(digitos[i - 2])];
    if (i == 1) soma += vezesDois[codigo(digitos[0])];
    return umDigito((10 - soma % 10) % 10);
}

Texto DV::CalcularCNPJ(VistaTexto digitos) {
    const Texto primeiro = digitoDeCadastro(digitos, 12, 9);
    const Texto segundo = digitoDeCadastro(junta(digitos, primeiro), 13, 9);
    return primeiro + segundo;
}

bool DV::VerificarCNPJ(VistaTexto cnpj) {
    return cnpj.size() == 14 && CalcularCNPJ(cnpj.substr(0, 12)) == cnpj.substr(12);
}

bool DV::verificarCNPJComLetras(VistaTexto cnpj) {
    constexpr std::size_t semDigitos = 12;
    constexpr VistaTexto caracteres = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"_t;
    if (cnpj.size() != 14 || cnpj.find_first_of(caracteres.substr(10)) >= semDigitos) return false;
    if (cnpj.substr(0, semDigitos).find_first_not_of(caracteres) != VistaTexto::npos) return false;
    const auto valorDo = [&](std::size_t i) { return cnpj[i] - '0'; };
    return digitoDeCadastro(semDigitos, 9, valorDo) == cnpj.substr(12, 1) &&
           digitoDeCadastro(semDigitos + 1, 9, valorDo) == cnpj.substr(13);
}

Texto DV::CalcularCPF(Texto& digitos) {
    const Texto primeiro = digitoDeCadastro(digitos, 9, 10);
    digitos += primeiro;
    return primeiro + digitoDeCadastro(digitos, 10, 11);
}

bool DV::VerificarCPF(VistaTexto cpf) {
    if (cpf.size() != 11) return false;
    Texto digitos(cpf.substr(0, 9));
    return CalcularCPF(digitos) == cpf.substr(9);
}

} // namespace quilatador
