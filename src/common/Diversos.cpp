#include "common/Diversos.h"

#include "common/Falha.h"
#include "common/Numero.h"

#include <algorithm>
#include <array>

namespace quilatador {

namespace {

/// A year digit that would lie more years away than this belongs to the neighbouring decade.
constexpr int anosDaJanela = 5;

struct Faixa {
    unsigned char primeiro;
    unsigned char ultimo;
    char simples;
};

/// The codes that an output line must not contain and their replacements. Codes 221 and 255 (Y with an accent) become
/// "U": kept on purpose, the test `ConverteASC2EBCDIC` holds it.
constexpr std::array substituicoes{
    Faixa{38, 38, 'E'},   Faixa{39, 39, '.'},   Faixa{43, 43, '.'},   Faixa{95, 96, '.'},   Faixa{159, 159, 'U'},
    Faixa{161, 162, '.'}, Faixa{164, 169, '.'}, Faixa{170, 170, 'A'}, Faixa{171, 185, '.'}, Faixa{186, 186, 'O'},
    Faixa{187, 191, '.'}, Faixa{192, 198, 'A'}, Faixa{199, 199, 'C'}, Faixa{200, 203, 'E'}, Faixa{204, 207, 'I'},
    Faixa{208, 208, '.'}, Faixa{209, 209, 'N'}, Faixa{210, 214, 'O'}, Faixa{217, 221, 'U'}, Faixa{222, 223, '.'},
    Faixa{224, 230, 'A'}, Faixa{231, 231, 'C'}, Faixa{232, 235, 'E'}, Faixa{236, 239, 'I'}, Faixa{240, 240, '.'},
    Faixa{241, 241, 'N'}, Faixa{242, 246, 'O'}, Faixa{247, 247, '.'}, Faixa{249, 253, 'U'}, Faixa{254, 254, '.'},
    Faixa{255, 255, 'U'}};

constexpr std::array<char, 256> tabelaSimples = []() {
    std::array<char, 256> tabela{};
    for (std::size_t i = 0; i < tabela.size(); ++i)
        tabela[i] = static_cast<char>(i);
    for (const Faixa& faixa : substituicoes)
        for (std::size_t i = faixa.primeiro; i <= faixa.ultimo; ++i)
            tabela[i] = faixa.simples;
    return tabela;
}();

/// Rearranges a text in a format with a day of the year for `Juliana2Data`. Gives nothing for any other format.
std::optional<Texto> textoJuliano(VistaTexto texto, VistaTexto formato) {
    if (formato == "ADDD"_t) return Texto(texto);
    if (formato == "DDDA"_t) return junta(ultimos(texto, 1), trecho(texto, 1, 3));
    if (formato == "AADDD"_t) return Texto(trecho(texto, 2));
    return std::nullopt;
}

} // namespace

Texto Diversos::VazioSeNulo(const Valor& valor) {
    return valor.texto();
}

Texto Diversos::NuloSeVazio(VistaTexto texto) {
    return texto.empty() ? Texto("null"_t) : junta("'"_t, texto, "'"_t);
}

Texto Diversos::NuloSeEmpty(const Valor& valor) {
    if (valor.vazio()) return Texto("Null"_t);
    if (const Data* data = valor.comoData()) return formatarData(*data, "#mm/dd/yyyy#"_t);
    return valor.texto();
}

Valor Diversos::EmptySeNulo(const Valor& valor) {
    return valor.nulo() ? Valor() : valor;
}

Texto Diversos::NuloSeZero(const Valor& valor) {
    return igual(valor, 0) ? Texto("null"_t) : valor.texto();
}

Valor Diversos::ZeroSeNulo(const Valor& valor) {
    return valor.nulo() ? Valor(0) : valor;
}

bool Diversos::TodoNumerico(VistaTexto texto) noexcept {
    return texto.find(' ') == VistaTexto::npos && ehNumerico(texto);
}

Texto Diversos::padL(VistaTexto texto, std::size_t tamanho, char caractere) {
    if (texto.size() > tamanho) return Texto(ultimos(texto, tamanho));
    return Texto(tamanho - texto.size(), caractere).append(texto);
}

Texto Diversos::padR(VistaTexto texto, std::size_t tamanho, char caractere) {
    Texto resultado(texto.substr(0, tamanho));
    resultado.resize(tamanho, caractere);
    return resultado;
}

Texto Diversos::Data2Juliana(const Data& data, VistaTexto formato) {
    const Texto dia = comZeros(diaDoAno(data), 3);
    const Texto ano = comZeros(anoDe(data) % 100, 2);
    if (formato == "YNNN"_t) return junta(ultimos(ano, 1), dia);
    if (formato == "YYNNN"_t) return junta(ano, dia);
    if (formato == "NNNY"_t) return junta(dia, ultimos(ano, 1));
    if (formato == "NNNYY"_t) return junta(dia, ano);
    return {};
}

Data Diversos::Juliana2Data(VistaTexto texto, int anoCorrente) {
    if (!soDigitos(texto)) throw Falha::conversao("Diversos"_t);
    int ano = anoCorrente / 10 * 10 + (texto.front() - '0');
    if (ano < anoCorrente - anosDaJanela) ano += 10;
    if (ano > anoCorrente + anosDaJanela) ano -= 10;
    constexpr double diaImpossivel = 1e9;
    const double dia = std::min(lerNumero(texto.substr(1)), diaImpossivel);
    return somarDias(fazData(ano, 1, 1), static_cast<long long>(dia) - 1);
}

Texto Diversos::FormatarData(const Data& data, VistaTexto formato) {
    return formato.find('N') != VistaTexto::npos ? Data2Juliana(data, formato) : formatarData(data, formato);
}

Texto Diversos::textoDeData(VistaTexto texto, VistaTexto formato) {
    if (formato == "AAAAMMDD"_t)
        return junta(ultimos(texto, 2), "/"_t, trecho(texto, 5, 2), "/"_t, trecho(texto, 1, 4));
    if (formato == "AAMMDD"_t) return junta(ultimos(texto, 2), "/"_t, trecho(texto, 3, 2), "/"_t, trecho(texto, 1, 2));
    if (formato == "DDMMAAAA"_t) return comMascara(texto, "@@/@@/@@@@"_t);
    if (formato == "DDMMAA"_t) return comMascara(texto, "@@/@@/@@"_t);
    return {};
}

std::optional<Data> Diversos::lerDataDoFormato(VistaTexto texto, VistaTexto formato) {
    // Nearly all dates have this form, of which no text need be made.
    if (formato == "AAAAMMDD"_t) return lerData(ultimos(texto, 2), trecho(texto, 5, 2), trecho(texto, 1, 4));
    return lerData(textoDeData(texto, formato));
}

std::optional<Data> Diversos::String2Data(VistaTexto texto, VistaTexto formato, int anoCorrente) {
    const std::optional<Texto> juliano = textoJuliano(texto, formato);
    if (!juliano) return lerDataDoFormato(texto, formato);
    try {
        return Juliana2Data(*juliano, anoCorrente);
    } catch (const Falha&) {
        return std::nullopt; // for this function a text that is not a date is an answer, not a failure
    }
}

Texto Diversos::ConverteASC2EBCDIC(VistaTexto texto) {
    Texto resultado = maiusculas(texto);
    for (char& c : resultado)
        c = tabelaSimples[static_cast<unsigned char>(c)];
    return resultado;
}

} // namespace quilatador
