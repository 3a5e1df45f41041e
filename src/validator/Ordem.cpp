#include "validator/Ordem.h"

namespace quilatador {

namespace {

using Quebra = Ordem::Quebra;

/// The letters that must come right before a letter, in the history of the definition or of the slip.
struct Antecedente {
    char letra;
    VistaTexto anteriores; ///< any one of these letters; the first is the one that is missing otherwise
    VistaTexto id;
    VistaTexto mensagem;
};

constexpr std::array antecedentesNaDefinicao{
    Antecedente{'C', "B"_t, "sequencia.c.semB"_t, "Segmento 'C' exige segmento 'B' antecedendo."_t},
    Antecedente{'D', "C"_t, "sequencia.d.semC"_t, "Segmento 'D' exige segmento 'C' antecedendo."_t},
    Antecedente{'E', "D"_t, "sequencia.e.semD"_t, "Segmento 'E' exige segmento 'D' antecedendo."_t},
    Antecedente{'F', "E"_t, "sequencia.f.semE"_t, "Segmento 'F' exige segmento 'E' antecedendo."_t},
    Antecedente{'G', "FG"_t, "sequencia.g.semF"_t, "Segmento 'G' exige segmento 'F' antecedendo."_t},
    Antecedente{'L', "KL"_t, "sequencia.l.semK"_t, "Segmento 'L' exige segmento 'K' antecedendo."_t},
    Antecedente{'S', "L"_t, "sequencia.s.semL"_t, "Segmento 'S' exige segmento 'L'."_t}};

constexpr std::array antecedentesNaGuia{
    Antecedente{'T', "S"_t, "sequencia.t.semS"_t, "Segmento 'T' exige segmento 'S' antecedendo."_t},
    Antecedente{'U', "T"_t, "sequencia.u.semT"_t, "Segmento 'U' exige segmento 'T' antecedendo."_t},
    Antecedente{'V', "U"_t, "sequencia.v.semUOuF"_t, "Segmento 'V' exige segmento 'U' antecedendo e segmento 'F'."_t},
    Antecedente{'W', "V"_t, "sequencia.w.semVOuG"_t, "Segmento 'W' exige segmento 'V' antecedendo e segmento 'G'."_t},
    Antecedente{'X', "UVWX"_t, "sequencia.x.foraDeLugar"_t,
                "Segmento 'X' exige segmento 'U', 'V', 'W' ou 'X' antecedendo."_t},
    Antecedente{'Y', "UVWXY"_t, "sequencia.y.foraDeLugar"_t,
                "Segmento 'Y' exige segmento 'U', 'V', 'W', 'X', ou 'Y' antecedendo."_t},
    // The text names 'Y' twice: kept on purpose, the sample sequencia-z-sem-y holds it.
    Antecedente{'Z', "Y"_t, "sequencia.z.semY"_t, "Segmento 'Y' exige segmento 'Y' antecedendo."_t}};

constexpr Quebra foraDaOrdem{"sequencia.foraDeOrdem"_t, "Tipos de registro fora de sequência."_t};
constexpr Quebra guiaSemParcelas{"sequencia.s.semParcelas"_t, "Recebimento sem parcelas (segmento 'Y')."_t, 'Y'};
// The text does not close its parenthesis: kept on purpose, the sample sequencia-s-sem-objeto holds it.
constexpr Quebra guiaSemObjeto{"sequencia.s.semObjeto"_t, "Recebimento sem objeto (segmento 'V'."_t, 'V'};
constexpr Quebra empresaDuplicada{"sequencia.b.duplicado"_t, "Encontrada duplicidade de registros do segmento 'B'."_t};
constexpr Quebra receitaSemRecebimento{"sequencia.k.semE"_t, "Segmento 'K' exige segmento 'E'."_t, 'E'};
constexpr Quebra mensagensDemais{"sequencia.x.repetido"_t, "Segmento 'X' so pode ser repetido 4 vezes."_t};
constexpr Quebra arquivoSemTrailer{"sequencia.z.ausente"_t, "Segmento 'Z' exigido ao final do arquivo"_t, 'Z'};

/// What is required in front of a letter, indexed by the letter.
struct Exigencia {
    VistaTexto anteriores; ///< "" for nothing
    Quebra quebra;
};
using PorLetra = std::array<Exigencia, 256>;

template <std::size_t N>
constexpr PorLetra porLetra(const std::array<Antecedente, N>& antecedentes) {
    PorLetra tabela{};
    for (const Antecedente& a : antecedentes)
        tabela[static_cast<unsigned char>(a.letra)] = {a.anteriores, {a.id, a.mensagem, a.anteriores.front()}};
    return tabela;
}

constexpr PorLetra definicaoPorLetra = porLetra(antecedentesNaDefinicao);
constexpr PorLetra guiaPorLetra = porLetra(antecedentesNaGuia);

/// Whether a history ends in one of these letters.
bool terminaEm(VistaTexto historico, VistaTexto letras) {
    return !historico.empty() && letras.find(historico.back()) != VistaTexto::npos;
}

} // namespace

const Quebra* Ordem::foraDeOrdem(VistaTexto tipo) const noexcept {
    return tipo < ultimos(definicao_, 1) ? &foraDaOrdem : nullptr;
}

const Quebra* Ordem::semParcelas() const noexcept {
    return temGuia() && !naGuia('Y') ? &guiaSemParcelas : nullptr;
}

const Quebra* Ordem::semObjeto() const noexcept {
    return temGuia() && naDefinicao('F') && !naGuia('V') ? &guiaSemObjeto : nullptr;
}

const Quebra* Ordem::fimDaGuia() const noexcept {
    const Quebra* const parcelas = semParcelas();
    return parcelas ? parcelas : semObjeto();
}

const Quebra* Ordem::quebra(char letra) const noexcept {
    const Exigencia& naFrente = definicaoPorLetra[static_cast<unsigned char>(letra)];
    if (!naFrente.anteriores.empty() && !terminaEm(definicao_, naFrente.anteriores)) return &naFrente.quebra;
    const Exigencia& daGuia = guiaPorLetra[static_cast<unsigned char>(letra)];
    const bool faltaDefinicao = (letra == 'V' && !naDefinicao('F')) || (letra == 'W' && !naDefinicao('G'));
    const bool emLugar = temGuia() && daGuia.anteriores.find(ultimaDaGuia_) != VistaTexto::npos;
    if (!daGuia.anteriores.empty() && (faltaDefinicao || !emLugar)) return &daGuia.quebra;
    if (letra == 'B' && naDefinicao('B')) return &empresaDuplicada;
    if (letra == 'K' && !naDefinicao('E')) return &receitaSemRecebimento;
    if (letra == 'X' && mensagensSeguidas_ == maisMensagens) return &mensagensDemais;
    return nullptr;
}

const Quebra* Ordem::semTrailer() const noexcept {
    return naDefinicao('Z') ? nullptr : &arquivoSemTrailer;
}

void Ordem::anotar(char letra) {
    const bool daGuia = letra >= 'T' && letra <= 'Y';
    const bool daDefinicao = (letra >= 'B' && letra <= 'G') || letra == 'K' || letra == 'L' || letra == 'Z';
    if (letra == 'S') {
        guia_.clear();
        mensagensSeguidas_ = 0;
    }
    if (letra == 'S' || daGuia)
        anotarNaGuia(letra);
    else if (daDefinicao && definicao_.back() != letra) // a repeated letter is noted once, so that this does not grow
        definicao_.push_back(letra);
}

void Ordem::anotarNaGuia(char letra) {
    if (!naGuia(letra)) guia_.push_back(letra);
    ultimaDaGuia_ = letra;
    if (mensagensSeguidas_ < maisMensagens) mensagensSeguidas_ = letra == 'X' ? mensagensSeguidas_ + 1 : 0;
}

std::optional<std::int64_t> Ordem::idRegistro(char letra) noexcept {
    if (letra == 'A' || letra == 'B' || letra == 'D') return 0;
    if (letra < 'G' || letra > 'L') return std::nullopt;
    return ++ordinais_[static_cast<unsigned char>(letra)];
}

} // namespace quilatador
