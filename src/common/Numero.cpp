#include "common/Numero.h"

#include "common/Falha.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace quilatador {

namespace {

constexpr bool digito(char c) noexcept {
    return c >= '0' && c <= '9';
}

/// The replacement for a number beyond the limits of a double: the largest one, or 0 when the number is too small.
double noLimite(VistaTexto numero) noexcept {
    const VistaTexto inteiros = numero.substr(0, numero.find('.'));
    if (inteiros.find_first_of("123456789"_t) == VistaTexto::npos) return 0;
    return numero.starts_with('-') ? std::numeric_limits<double>::lowest() : std::numeric_limits<double>::max();
}

/// The number at the start of a text, without blanks: a sign, digits and at most one ".". Any of them may be missing.
Texto numeroNoInicio(VistaTexto texto) {
    Texto limpo;
    bool ponto = false;
    for (const char c : texto) {
        if (c == ' ') continue;
        const bool sinal = limpo.empty() && (c == '+' || c == '-');
        if (!digito(c) && !sinal && (c != '.' || ponto)) break;
        ponto = ponto || c == '.';
        limpo.push_back(c);
    }
    return limpo;
}

/// Adds 1 to a whole number written in digits.
void somarUm(Texto& digitos) {
    std::size_t i = digitos.size();
    while (i > 0 && digitos[i - 1] == '9')
        digitos[--i] = '0';
    if (i > 0)
        ++digitos[i - 1];
    else
        digitos.insert(digitos.begin(), '1');
}

/// Rounds a number as `numeroNoInicio` gives it to whole digits, halves away from zero, and drops its sign. A float in
/// between would not keep all digits of a long amount.
Texto inteirosArredondados(VistaTexto numero) {
    if (numero.starts_with('+') || numero.starts_with('-')) numero.remove_prefix(1);
    const std::size_t ponto = std::min(numero.find('.'), numero.size());
    Texto inteiros(numero.substr(0, ponto));
    if (trecho(numero, ponto + 2, 1) >= "5"_t) somarUm(inteiros);
    return inteiros;
}

template <typename Inteiro>
Inteiro arredondar(double numero) {
    const double inteiro = std::nearbyint(numero); // the default rounding mode takes halves to the even neighbour
    constexpr auto menor = static_cast<double>(std::numeric_limits<Inteiro>::min());
    if (!(inteiro >= menor && inteiro < -menor)) // the largest number of 64 bits has no double of its own
        throw Falha(numeroDeFalha::estouro, "Numero"_t, "Estouro"_t);
    return static_cast<Inteiro>(inteiro);
}

} // namespace

bool soDigitos(VistaTexto texto) noexcept {
    return !texto.empty() && std::ranges::all_of(texto, digito);
}

bool ehNumerico(VistaTexto texto) noexcept {
    if (soDigitos(texto)) return true;
    texto = semBrancos(texto);
    if (!texto.empty() && (texto.front() == '+' || texto.front() == '-')) texto.remove_prefix(1);
    std::size_t digitos = 0;
    std::size_t separadores = 0;
    for (const char c : texto) {
        if (digito(c)) {
            ++digitos;
        } else if (c == '.' || c == ',') {
            ++separadores;
        } else {
            return false;
        }
    }
    return digitos > 0 && separadores <= 1;
}

double lerNumero(VistaTexto texto) {
    if (const auto numero = numeroDeDigitos(texto)) return *numero;
    const Texto limpo = numeroNoInicio(texto);
    VistaTexto resto = limpo;
    if (resto.starts_with('+')) resto.remove_prefix(1);
    double numero = 0;
    const auto lido = std::from_chars(resto.data(), resto.data() + resto.size(), numero, std::chars_format::fixed);
    if (lido.ec == std::errc::result_out_of_range) return noLimite(resto);
    return numero == 0 ? 0 : numero; // turns -0 into 0
}

Texto textoDoNumero(double numero) {
    std::array<char, 400> destino{}; // the longest double has 309 digits before the point
    const auto fim = std::to_chars(destino.data(), destino.data() + destino.size(), numero, std::chars_format::fixed);
    return {destino.data(), fim.ptr};
}

Texto comMilhares(std::int64_t numero, VistaTexto separadorDeMilhar) {
    Texto texto = textoDe(numero);
    for (std::size_t lugar = texto.size(); lugar > 3;)
        texto.insert(lugar -= 3, separadorDeMilhar);
    return texto;
}

std::int32_t arredondarParaLongo(double numero) {
    return arredondar<std::int32_t>(numero);
}
std::int64_t arredondarParaContagem(double numero) {
    return arredondar<std::int64_t>(numero);
}
std::int16_t arredondarParaInteiro(double numero) {
    return arredondar<std::int16_t>(numero);
}

Texto formatarCentavos(VistaTexto centavos, VistaTexto separadorDeMilhar, VistaTexto separadorDecimal) {
    Texto texto;
    Texto lidos;
    if (!soDigitos(centavos)) {
        const Texto numero = numeroNoInicio(centavos);
        lidos = inteirosArredondados(numero);
        const bool zero = lidos.find_first_not_of('0') == Texto::npos;
        if (numero.starts_with('-') && !zero) texto.push_back('-');
        centavos = lidos;
    }
    const Centavos valor(centavos, separadorDeMilhar, separadorDecimal);
    const std::size_t inicio = texto.size();
    texto.resize(inicio + valor.tamanho());
    valor.escrever(texto.data() + inicio);
    return texto;
}

} // namespace quilatador
