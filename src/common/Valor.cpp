#include "common/Valor.h"

#include "common/Falha.h"
#include "common/Numero.h"

namespace quilatador {

Texto Valor::texto() const {
    if (const Texto* texto = comoTexto()) return *texto;
    if (const double* numero = comoNumero()) return textoDoNumero(*numero);
    if (const Data* data = comoData()) return formatarData(*data, "DD/MM/YYYY"_t);
    return {};
}

std::optional<std::size_t> Valor::comprimento() const {
    if (nulo()) return std::nullopt;
    if (const Texto* texto = comoTexto()) return texto->size();
    return texto().size();
}

double Valor::paraDuplo() const {
    if (const double* numero = comoNumero()) return *numero;
    if (const Data* data = comoData()) return numeroDeSerie(*data);
    if (vazio()) return 0;
    if (nulo()) throw Falha(numeroDeFalha::usoDeNulo, "Valor"_t, "Uso de Null inválido"_t);
    if (const auto digitos = numeroDeDigitos(*comoTexto())) return *digitos;
    if (!ehNumerico(*comoTexto())) throw Falha::conversao("Valor"_t);
    return lerNumero(*comoTexto());
}

std::int64_t Valor::paraContagem() const {
    return arredondarParaContagem(paraDuplo());
}
std::int32_t Valor::paraLongo() const {
    return arredondarParaLongo(paraDuplo());
}
std::int16_t Valor::paraInteiro() const {
    return arredondarParaInteiro(paraDuplo());
}

std::partial_ordering comparar(const Valor& a, const Valor& b) {
    const double* numeroA = a.comoNumero();
    const double* numeroB = b.comoNumero();
    if (numeroA && numeroB) return *numeroA <=> *numeroB;
    if (a.nulo() || b.nulo()) return std::partial_ordering::unordered;
    const Texto* textoA = a.comoTexto();
    const Texto* textoB = b.comoTexto();
    if ((textoA || a.vazio()) && (textoB || b.vazio())) {
        const auto vista = [](const Texto* texto) { return texto ? VistaTexto(*texto) : VistaTexto(); };
        return vista(textoA).compare(vista(textoB)) <=> 0;
    }
    if (textoA && !ehNumerico(*textoA)) return std::partial_ordering::greater;
    if (textoB && !ehNumerico(*textoB)) return std::partial_ordering::less;
    return a.paraDuplo() <=> b.paraDuplo();
}

bool igual(const Valor& a, const Valor& b) {
    return comparar(a, b) == std::partial_ordering::equivalent;
}
bool menor(const Valor& a, const Valor& b) {
    return comparar(a, b) == std::partial_ordering::less;
}
bool maior(const Valor& a, const Valor& b) {
    return comparar(a, b) == std::partial_ordering::greater;
}
bool diferente(const Valor& a, const Valor& b) {
    const std::partial_ordering ordem = comparar(a, b);
    return std::is_lt(ordem) || std::is_gt(ordem);
}

bool foraDe(const Valor& valor, VistaTexto lista) {
    if (const Texto* texto = valor.comoTexto()) return lista.find(*texto) == VistaTexto::npos;
    return !valor.nulo() && lista.find(valor.texto()) == VistaTexto::npos;
}
bool semConteudo(const Valor& valor) {
    const Texto* texto = valor.comoTexto();
    return texto ? texto->empty() : valor.vazio();
}
bool comConteudo(const Valor& valor) {
    return !valor.nulo() && !semConteudo(valor); // numbers and dates always have characters
}

} // namespace quilatador
