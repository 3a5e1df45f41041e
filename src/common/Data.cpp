#include "common/Data.h"

#include "common/Falha.h"
#include "common/Numero.h"

#include <array>

namespace quilatador {

namespace {

constexpr int menorAno = 100;
constexpr int maiorAno = 9999;
/// Years of two digits below this one belong to the 2000s, the others to the 1900s.
constexpr int viradaDoSeculo = 30;

/// The number of one part of a date, or nothing when the part is not all digits or has too many of them.
std::optional<int> lerParte(VistaTexto parte) {
    const auto numero = parte.size() > 9 ? std::nullopt : numeroDeDigitos(parte);
    return numero ? std::optional(static_cast<int>(*numero)) : std::nullopt;
}

std::optional<int> lerAno(VistaTexto parte) {
    const std::optional<int> ano = lerParte(parte);
    if (!ano) return std::nullopt;
    if (parte.size() <= 2) return *ano < viradaDoSeculo ? 2000 + *ano : 1900 + *ano;
    return *ano >= menorAno && *ano <= maiorAno ? ano : std::nullopt;
}

std::optional<Data> dataValida(int ano, int mes, int dia) {
    const Data data = fazData(ano, static_cast<unsigned>(mes), static_cast<unsigned>(dia));
    return mes <= 12 && dia <= 31 && data.ok() ? std::optional(data) : std::nullopt;
}

} // namespace

Data fazData(int ano, unsigned mes, unsigned dia) noexcept {
    return {std::chrono::year(ano), std::chrono::month(mes), std::chrono::day(dia)};
}

int anoDe(const Data& data) noexcept {
    return static_cast<int>(data.year());
}

int diaDoAno(const Data& data) noexcept {
    const auto inicio = std::chrono::sys_days(fazData(anoDe(data), 1, 1));
    return static_cast<int>((std::chrono::sys_days(data) - inicio).count()) + 1;
}

Data somarDias(const Data& data, long long dias) {
    constexpr long long maisDoQueCabe = 366LL * maiorAno;
    if (dias > -maisDoQueCabe && dias < maisDoQueCabe) {
        const Data soma = std::chrono::sys_days(data) + std::chrono::days(dias);
        if (anoDe(soma) >= menorAno && anoDe(soma) <= maiorAno) return soma;
    }
    throw Falha(numeroDeFalha::estouro, "Data"_t, "Estouro"_t);
}

int numeroDeSerie(const Data& data) noexcept {
    return static_cast<int>((std::chrono::sys_days(data) - std::chrono::sys_days(fazData(1899, 12, 30))).count());
}

std::optional<Data> lerData(VistaTexto texto) {
    const std::size_t primeira = texto.find('/');
    const std::size_t segunda = primeira == VistaTexto::npos ? primeira : texto.find('/', primeira + 1);
    if (segunda == VistaTexto::npos) return std::nullopt;
    return lerData(texto.substr(0, primeira), texto.substr(primeira + 1, segunda - primeira - 1),
                   texto.substr(segunda + 1));
}

std::optional<Data> lerData(VistaTexto dia, VistaTexto mes, VistaTexto ano) {
    const std::optional<int> d = lerParte(dia);
    const std::optional<int> m = lerParte(mes);
    const std::optional<int> a = lerAno(ano);
    if (!d || !m || !a) return std::nullopt;
    if (const auto diaPrimeiro = dataValida(*a, *m, *d)) return diaPrimeiro;
    return dataValida(*a, *d, *m);
}

Texto formatarData(const Data& data, VistaTexto formato) {
    const auto ano = anoDe(data);
    const std::array<std::pair<VistaTexto, Texto>, 4> simbolos{
        {{"YYYY"_t, comZeros(ano, 4)},
         {"YY"_t, comZeros(ano % 100, 2)},
         {"MM"_t, comZeros(static_cast<int>(static_cast<unsigned>(data.month())), 2)},
         {"DD"_t, comZeros(static_cast<int>(static_cast<unsigned>(data.day())), 2)}}};
    Texto resultado;
    while (!formato.empty()) {
        bool achado = false;
        for (const auto& [simbolo, valor] : simbolos) {
            if (!iguaisSemCaixa(formato.substr(0, simbolo.size()), simbolo)) continue;
            resultado.append(valor);
            formato.remove_prefix(simbolo.size());
            achado = true;
            break;
        }
        if (achado) continue;
        resultado.push_back(formato.front());
        formato.remove_prefix(1);
    }
    return resultado;
}

} // namespace quilatador
