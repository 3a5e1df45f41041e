#include "validator/completa/Deslize.h"

#include "common/Diversos.h"
#include "common/Numero.h"
#include "validator/completa/PistasDaLinha.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace quilatador {

namespace {

using Causa = Deslize::Causa;

// Lines and layouts beyond these are not looked into, so that no input makes the search costly.
constexpr int maximoCurta = 8;
constexpr int maximoLonga = 32;
constexpr std::int16_t maiorRegistro = 4096;
constexpr std::size_t maximoDeCampos = 256;
/// A cause that cannot be seen moves the line by so many bytes at most, unless it is the only one.
constexpr int maximoOculto = 3;

// What speaks against a reading of the line, in points. Only their relations matter: a cause that can be seen is
// cheap, and one that cannot is worth two texts that begin or break off in the wrong place, or one number.
constexpr int impossivel = 1'000'000;
constexpr int naoLe = 8;         ///< a field of a known form that does not read
constexpr int leMal = 4;         ///< a number with blanks or signs
constexpr int dataEmBranco = 2;  ///< a date that is missing
constexpr int comecaBranco = 3;  ///< a text that is not at its edge of the field
constexpr int comVao = 3;        ///< a text that goes on after more than two blanks
constexpr int comDuplo = 1;      ///< a text that goes on after two
constexpr int marcaSemCulpa = 2; ///< a mark that is not what moved the line
constexpr int visivel = 1;       ///< a mark that is
constexpr int deBranco = 4;      ///< blanks lost or doubled
constexpr int deOutro = 6;       ///< anything else lost or added

/// A field, as far as the search needs it.
struct Peca {
    enum class Forma { Letra, Texto, Numero, Data, Contador, Brancos, Ocorrencias };

    const CampoRemessa* campo = nullptr;
    Forma forma = Forma::Texto;
    int inicio = 0; ///< 0-based
    int largura = 0;
    bool ultima = false;

    [[nodiscard]] bool vazia() const noexcept { return forma == Forma::Brancos || forma == Forma::Ocorrencias; }
    [[nodiscard]] bool deDigitos() const noexcept {
        return forma == Forma::Numero || forma == Forma::Data || forma == Forma::Contador;
    }
};

/// What an end of a field that does not lie where its start would have it costs, and what may have caused it.
struct Emenda {
    int custo = impossivel;
    Causa causa = Causa::Desconhecida;
    bool aVista = false; ///< a mark is the cause, whatever `causa` says
};

/// By how much a field's end is moved, and what that and all behind the field cost.
struct Passo {
    int desvio = 0;
    int custo = impossivel;
};

/// A slip that explains a line as well as any other.
struct Candidato {
    const Peca* peca = nullptr;
    std::size_t indice = 0;
    int desvio = 0;
    Emenda emenda;
};

/// The places where a cause may be, 0-based.
struct Lugar {
    int primeiro = 0;
    int ultimo = 0;
};

Peca::Forma formaDe(const RegistroRemessa& tipo, const CampoRemessa& campo) {
    using Forma = Peca::Forma;
    if (campo.natureza() == "N"_t) return Forma::Numero;
    if (campo.natureza() == "D"_t) return Forma::Data;
    if (campo.natureza() == "R"_t) return Forma::Contador;
    if (iguaisSemCaixa(campo.nome(), tipo.identificador()) && campo.Valor().comoTexto()) return Forma::Letra;
    if (iguaisSemCaixa(campo.nome(), "Brancos"_t)) return Forma::Brancos;
    return iguaisSemCaixa(campo.nome(), "Ocorrencias"_t) ? Forma::Ocorrencias : Forma::Texto;
}

/// The fields without a gap from the start of the record to its end; none if the layout has them otherwise.
std::vector<Peca> pecasDe(const RegistroRemessa& tipo) {
    std::vector<Peca> pecas;
    int fim = 0;
    for (const auto& campo : tipo.campos()) {
        if (campo->Tamanho() == 0) continue;
        if (campo->Tamanho() < 0 || campo->inicio() != fim + 1) return {};
        pecas.push_back(
            {.campo = campo.get(), .forma = formaDe(tipo, *campo), .inicio = fim, .largura = campo->Tamanho()});
        fim += campo->Tamanho();
    }
    if (pecas.empty() || fim != tipo.Tamanho() || fim > maiorRegistro || pecas.size() > maximoDeCampos) return {};
    pecas.back().ultima = true;
    return pecas;
}

/// Finds the cheapest way to lay the fields over a line. Each field begins where the one before ended, and where its
/// own end lies otherwise than its width says, the line slipped within it. The shift of a field is how far it begins to
/// the right of its place in the layout.
class Busca {
  public:
    Busca(const RegistroRemessa& tipo, std::vector<Peca> pecas, VistaTexto linha);
    [[nodiscard]] std::optional<Deslize> achar();

  private:
    // How a field reads, and what it costs to end it elsewhere.
    [[nodiscard]] int conteudo(const Peca& peca, int a, int b) const;
    [[nodiscard]] int conteudoDeTexto(const Peca& peca, int a, int b) const;
    [[nodiscard]] int conteudoDeDigitos(const Peca& peca, int a, int b) const;
    [[nodiscard]] Contagem marcasDe(const Peca& peca, int a, int b) const;
    [[nodiscard]] bool depoisDeTabulacao(int a, int d) const {
        return d < 0 && d > -paradaDaTabulacao && a > 0 && pistas_.byte(a - 1) == '\t';
    }
    [[nodiscard]] Emenda emenda(const Peca& peca, int s, int d) const;
    [[nodiscard]] int emendaVisivel(const Peca& peca, int a, int b, int d) const;
    [[nodiscard]] Emenda emendaOculta(const Peca& peca, int a, int b, int d) const;
    [[nodiscard]] Emenda emendaDeTexto(const Peca& peca, int a, int b, int d) const;
    [[nodiscard]] Emenda emendaDeBrancos(int a, int b, int d) const;
    [[nodiscard]] Emenda emendaDeDigitos(const Peca& peca, int a, int b, int d) const;

    // The cheapest way, from right to left and back.
    [[nodiscard]] int custoDaqui(std::size_t i, int s, int d) const;
    [[nodiscard]] Passo melhorPasso(std::size_t i, int s) const;
    [[nodiscard]] std::size_t lugarDoResto(std::size_t i, int s) const noexcept {
        return i * static_cast<std::size_t>(maior_ - menor_ + 1) + static_cast<std::size_t>(s - menor_);
    }
    [[nodiscard]] int resto(std::size_t i, int s) const { return resto_[lugarDoResto(i, s)]; }
    void calcularRestos();
    [[nodiscard]] bool suspeita() const;
    [[nodiscard]] bool convence() const;
    [[nodiscard]] std::vector<Candidato> candidatos() const;
    [[nodiscard]] bool sohNoFim() const;

    // What is told of the slip.
    [[nodiscard]] Deslize comMarca(const Candidato& candidato) const;
    [[nodiscard]] Deslize semMarca(std::span<const Candidato> iguais) const;
    [[nodiscard]] Deslize noFim() const;
    [[nodiscard]] Lugar lugar(const Candidato& candidato) const;
    [[nodiscard]] Lugar lugarDosBrancos(int a, int b) const;
    [[nodiscard]] int marcasAdiante(const Candidato& candidato) const;
    [[nodiscard]] Texto nomeEm(int lugar) const;

    const RegistroRemessa& tipo_;
    std::vector<Peca> pecas_;
    PistasDaLinha pistas_;
    int diferenca_; ///< the line's length less the record's
    int menor_;     ///< the shifts that are tried
    int maior_;
    std::vector<int> resto_; ///< by field and its shift, what the fields from there on cost at least
};

Busca::Busca(const RegistroRemessa& tipo, std::vector<Peca> pecas, VistaTexto linha)
    : tipo_(tipo)
    , pecas_(std::move(pecas))
    , pistas_(linha)
    , diferenca_(pistas_.tamanho() - tipo.Tamanho())
    , menor_(std::min(diferenca_, 0) - maximoOculto)
    , maior_(std::max(diferenca_, 0) + maximoOculto) {}

int Busca::conteudo(const Peca& peca, int a, int b) const {
    const Contagem total = pistas_.contar(a, b);
    switch (peca.forma) {
    case Peca::Forma::Letra:
        return pistas_.parte(a, b) == *peca.campo->Valor().comoTexto() ? 0 : naoLe;
    case Peca::Forma::Brancos:
        return total.cheios <= total.bytesDeMarcas ? 0 : naoLe; // a mark among blanks is no content
    case Peca::Forma::Ocorrencias:
        return total.cheios <= total.bytesDeMarcas || total.digitos == b - a ? 0 : naoLe;
    case Peca::Forma::Texto:
        return conteudoDeTexto(peca, a, b);
    default:
        return conteudoDeDigitos(peca, a, b);
    }
}

int Busca::conteudoDeTexto(const Peca& peca, int a, int b) const {
    const int primeiro = pistas_.primeiroCheio(a);
    if (primeiro >= b) return 0;
    const bool naBeira = peca.campo->alinhamento() == 1 ? !pistas_.branco(b - 1) : primeiro == a;
    const Contagem dentro = pistas_.contar(primeiro + 1, b);
    return (naBeira ? 0 : comecaBranco) + comVao * dentro.vaos + comDuplo * dentro.duplos;
}

int Busca::conteudoDeDigitos(const Peca& peca, int a, int b) const {
    const Contagem total = pistas_.contar(a, b);
    const bool soDigitos = total.digitos == b - a;
    if (peca.forma == Peca::Forma::Contador) return soDigitos ? 0 : naoLe;
    const VistaTexto texto = pistas_.parte(a, b);
    if (peca.forma == Peca::Forma::Numero) return soDigitos ? 0 : ehNumerico(texto) ? leMal : naoLe;
    if (total.cheios == 0) return dataEmBranco;
    if (!soDigitos) return naoLe;
    const bool zerada = std::ranges::all_of(texto, [](char c) { return c == '0'; });
    return zerada || Diversos::String2Data(texto, peca.campo->formato(), tipo_.anoCorrente()) ? 0 : naoLe;
}

/// The marks that begin in the field; what a longer end takes in belongs to the next.
Contagem Busca::marcasDe(const Peca& peca, int a, int b) const {
    return pistas_.contar(a, peca.ultima ? b : std::min(b, a + peca.largura));
}

Emenda Busca::emenda(const Peca& peca, int s, int d) const {
    const int a = peca.inicio + s;
    const int b = a + peca.largura + d;
    if (a < 0 || b < a || b > pistas_.tamanho()) return {};
    if (d == 0) return {conteudo(peca, a, b) + marcaSemCulpa * pistas_.contar(a, b).marcas};
    const int aVista = emendaVisivel(peca, a, b, d);
    const Emenda oculta = emendaOculta(peca, a, b, d);
    return aVista <= oculta.custo ? Emenda{.custo = aVista, .aVista = true} : oculta;
}

/// Marks move the line. What they stand in for cannot be read any more; only the rest of the field has to.
int Busca::emendaVisivel(const Peca& peca, int a, int b, int d) const {
    if (depoisDeTabulacao(a, d)) return visivel + conteudo(peca, a, b);
    const Contagem marcas = marcasDe(peca, a, b);
    if (marcas.marcas == 0 || d < marcas.menor || d > marcas.maior) return impossivel;
    const int custo = visivel * marcas.marcas;
    if (peca.forma == Peca::Forma::Texto) return custo + conteudoDeTexto(peca, a, b);
    const Contagem total = pistas_.contar(a, b);
    const int livres = b - a - marcas.bytesDeMarcas;
    const int certos = peca.deDigitos() ? total.digitos : peca.vazia() ? b - a - total.cheios : livres;
    return custo + (certos >= livres ? 0 : naoLe);
}

Emenda Busca::emendaOculta(const Peca& peca, int a, int b, int d) const {
    if (std::abs(d) > maximoOculto && d != diferenca_) return {};
    Emenda achada = peca.forma == Peca::Forma::Texto ? emendaDeTexto(peca, a, b, d)
                    : peca.vazia()                   ? emendaDeBrancos(a, b, d)
                                                     : emendaDeDigitos(peca, a, b, d);
    achada.custo += std::abs(d) - 1 + marcaSemCulpa * pistas_.contar(a, b).marcas;
    return achada;
}

Emenda Busca::emendaDeBrancos(int a, int b, int d) const {
    const int cheios = pistas_.contar(a, b).cheios;
    if (cheios == 0) return {deBranco, d < 0 ? Causa::BrancoPerdido : Causa::BrancoDobrado};
    return {cheios == d ? deOutro : deOutro + naoLe};
}

Emenda Busca::emendaDeTexto(const Peca& peca, int a, int b, int d) const {
    const Contagem total = pistas_.contar(a, b);
    const int texto = conteudoDeTexto(peca, a, b);
    // Of a text all of digits it is a digit that is missing: a code, not words.
    if (d < 0 && b > a && total.digitos == b - a) return {deOutro + texto};
    if (d < 0) return {deBranco + texto + (a == b), Causa::BrancoPerdido};
    if (b - a - total.cheios < d) return {deOutro + texto};
    const int primeiro = std::min(pistas_.primeiroCheio(a), b - 1);
    const Contagem dentro = pistas_.contar(primeiro + 1, b);
    const bool noFim = pistas_.branco(b - 1) && (pistas_.branco(b - 2) || pistas_.branco(b));
    // Two blanks between words are better explained by the slip than by the text.
    const int explicado = d == 1 && dentro.duplos > 0 ? comDuplo : 0;
    return {deBranco + texto - explicado + (noFim || dentro.duplos + dentro.vaos > 0 ? 0 : 1), Causa::BrancoDobrado};
}

/// Also of the letter that identifies the record.
Emenda Busca::emendaDeDigitos(const Peca& peca, int a, int b, int d) const {
    const Contagem total = pistas_.contar(a, b);
    const int brancos = b - a - total.cheios;
    const int certos = peca.deDigitos() ? total.digitos : total.cheios;
    if (d > 0 && brancos == d && certos == peca.largura) return {deBranco + 1, Causa::BrancoDobrado};
    return {b > a && certos == b - a ? deOutro : deOutro + naoLe};
}

/// The cost of field `i` at shift `s` when its end is moved by `d`, and of all behind it.
int Busca::custoDaqui(std::size_t i, int s, int d) const {
    if (s + d < menor_ || s + d > maior_ || resto(i + 1, s + d) >= impossivel) return impossivel;
    return std::min(impossivel, emenda(pecas_[i], s, d).custo + resto(i + 1, s + d));
}

/// The cheapest step; none if that is as cheap.
Passo Busca::melhorPasso(std::size_t i, int s) const {
    Passo melhor{.desvio = 0, .custo = custoDaqui(i, s, 0)};
    for (int destino = menor_; destino <= maior_; ++destino)
        if (const int custo = custoDaqui(i, s, destino - s); custo < melhor.custo) melhor = {destino - s, custo};
    return melhor;
}

void Busca::calcularRestos() {
    resto_.assign(lugarDoResto(pecas_.size() + 1, menor_), impossivel);
    resto_[lugarDoResto(pecas_.size(), diferenca_)] = 0;
    for (std::size_t i = pecas_.size(); i-- > 0;)
        for (int s = menor_; s <= maior_; ++s)
            resto_[lugarDoResto(i, s)] = melhorPasso(i, s).custo;
}

/// Whether so much of a line of the right length does not read that it may have slipped: two fields of a known form, or
/// the last of the line, which is all that a slip spoils in a record of texts.
bool Busca::suspeita() const {
    int falhos = 0;
    for (const Peca& peca : pecas_)
        if (peca.forma != Peca::Forma::Texto && conteudo(peca, peca.inicio, peca.inicio + peca.largura) >= naoLe)
            falhos += peca.ultima ? 2 : 1;
    return falhos >= 2;
}

/// Whether most fields of a known form read well along the cheapest way.
bool Busca::convence() const {
    int lidos = 0;
    int falhos = 0;
    int s = 0;
    for (std::size_t i = 0; i < pecas_.size(); ++i) {
        const Peca& peca = pecas_[i];
        const int a = peca.inicio + s;
        const int d = melhorPasso(i, s).desvio;
        if (d == 0 && peca.forma != Peca::Forma::Texto)
            ++(conteudo(peca, a, a + peca.largura) >= naoLe ? falhos : lidos);
        s += d;
    }
    return 3 * falhos <= lidos;
}

/// The first slips of all cheapest ways. None if the line is as cheap without one.
std::vector<Candidato> Busca::candidatos() const {
    std::vector<Candidato> achados;
    int antes = 0; // the cost of the fields so far, each in its place
    for (std::size_t i = 0; i < pecas_.size() && antes < impossivel; ++i) {
        for (int d = menor_; d <= maior_; ++d)
            if (d != 0 && antes + custoDaqui(i, 0, d) == resto(0, 0))
                achados.push_back({.peca = &pecas_[i], .indice = i, .desvio = d, .emenda = emenda(pecas_[i], 0, d)});
        antes += emenda(pecas_[i], 0, 0).custo;
    }
    if (diferenca_ == 0 && antes == resto(0, 0)) achados.clear();
    return achados;
}

std::optional<Deslize> Busca::achar() {
    if (diferenca_ == 0 && !suspeita()) return std::nullopt;
    if (sohNoFim()) return noFim();
    calcularRestos();
    if (resto(0, 0) >= impossivel || !convence()) return std::nullopt;
    const std::vector<Candidato> iguais = candidatos();
    if (iguais.empty()) return std::nullopt;
    const auto marcado = std::ranges::find_if(iguais, [](const Candidato& c) { return c.emenda.aVista; });
    return marcado != iguais.end() ? comMarca(*marcado) : semMarca(iguais);
}

/// Whether more than any hidden cause explains is missing or too much at the end of the line, and all in front of that
/// reads in its place.
bool Busca::sohNoFim() const {
    if (std::abs(diferenca_) <= maximoOculto || !pistas_.marcas().empty()) return false;
    if (diferenca_ > 0 && pecas_.back().forma == Peca::Forma::Texto) return false;
    return std::ranges::all_of(pecas_, [&](const Peca& peca) {
        const int fim = peca.inicio + peca.largura;
        return fim > pistas_.tamanho() || conteudo(peca, peca.inicio, fim) < naoLe;
    });
}

Deslize Busca::noFim() const {
    const int comum = tipo_.Tamanho() + std::min(diferenca_, 0);
    const int fim = tipo_.Tamanho() + std::max(diferenca_, 0);
    const bool brancos = diferenca_ > 0 && pistas_.contar(comum, fim).cheios == 0;
    return {.causa = brancos ? Causa::BrancoDobrado : Causa::Desconhecida,
            .posicao = comum + 1,
            .ultima = fim,
            .desvio = diferenca_,
            .campo = nomeEm(comum),
            .ultimoCampo = nomeEm(fim - 1)};
}

Deslize Busca::comMarca(const Candidato& candidato) const {
    const int a = candidato.peca->inicio;
    const int b = a + candidato.peca->largura + candidato.desvio;
    const Contagem marcas = marcasDe(*candidato.peca, a, b);
    const int desde = marcas.marcas > 0 ? a : a - 1; // else the tab before the field
    const Marca& marca = *std::ranges::lower_bound(pistas_.marcas(), desde, {}, &Marca::inicio);
    Deslize deslize{.causa = marca.causa, .posicao = marca.inicio + 1, .ultima = marca.inicio + 1};
    // Where all marks of a field are needed, each has its share.
    deslize.desvio = marcas.marcas > 1 && candidato.desvio == marcas.maior ? marca.maior : candidato.desvio;
    deslize.adiante = marcasAdiante(candidato);
    deslize.campo = deslize.ultimoCampo = nomeEm(marca.inicio);
    deslize.bytes = pistas_.parte(marca.inicio, marca.inicio + marca.bytes);
    return deslize;
}

/// The marks that move the line once more, in the field and behind it.
int Busca::marcasAdiante(const Candidato& candidato) const {
    int quantas = -1;
    int s = 0;
    int d = candidato.desvio;
    for (std::size_t i = candidato.indice; i < pecas_.size(); ++i) {
        const int a = pecas_[i].inicio + s;
        if (d != 0 && emenda(pecas_[i], s, d).aVista)
            quantas += std::max(1, std::min(marcasDe(pecas_[i], a, a + pecas_[i].largura + d).marcas, std::abs(d)));
        s += d;
        if (i + 1 < pecas_.size()) d = melhorPasso(i + 1, s).desvio;
    }
    return quantas;
}

/// From the first to the last of the slips that are as likely and as wide.
Deslize Busca::semMarca(std::span<const Candidato> iguais) const {
    const Candidato& primeiro = iguais.front();
    Deslize deslize{.causa = primeiro.emenda.causa, .desvio = primeiro.desvio};
    Lugar todos = lugar(primeiro);
    for (const Candidato& outro : iguais.subspan(1))
        if (outro.desvio == primeiro.desvio) todos.ultimo = std::max(todos.ultimo, lugar(outro).ultimo);
    deslize.posicao = todos.primeiro + 1;
    deslize.ultima = todos.ultimo + 1;
    deslize.campo = nomeEm(todos.primeiro);
    deslize.ultimoCampo = nomeEm(todos.ultimo);
    if (deslize.causa == Causa::BrancoDobrado) deslize.bytes.assign(static_cast<std::size_t>(deslize.desvio), ' ');
    return deslize;
}

Lugar Busca::lugar(const Candidato& candidato) const {
    const Peca& peca = *candidato.peca;
    const int a = peca.inicio;
    const int ultimo = a + peca.largura - 1;
    const int cheio = pistas_.primeiroCheio(a);
    const Causa causa = candidato.emenda.causa;
    if (causa == Causa::BrancoDobrado && cheio <= ultimo) {
        const Lugar brancos = lugarDosBrancos(a, a + peca.largura + candidato.desvio);
        // Behind the field's width they are at the start of the next, unless there is none.
        const int ate = peca.ultima ? brancos.ultimo : std::min(brancos.ultimo, ultimo);
        return {brancos.primeiro, std::max(brancos.primeiro, ate)};
    }
    if (causa == Causa::Desconhecida && peca.vazia() && candidato.desvio == 1 && cheio <= ultimo) return {cheio, cheio};
    // What is lost between words is lost behind the first letter.
    const bool entrePalavras = causa == Causa::BrancoPerdido && cheio == a;
    return {std::min(entrePalavras ? a + 1 : a, ultimo), ultimo};
}

/// The blanks that may be too many: those in a row between words, else those in a row anywhere, else any.
Lugar Busca::lugarDosBrancos(int a, int b) const {
    std::array<Lugar, 3> achados{Lugar{b, a}, Lugar{b, a}, Lugar{b, a}};
    for (int i = a; i < b; ++i) {
        if (!pistas_.branco(i)) continue;
        const int inicio = i;
        const int cheio = pistas_.primeiroCheio(i);
        i = std::min(cheio, b) - 1;
        const bool seguidos = cheio - inicio > 1;
        const bool entrePalavras = seguidos && inicio > a && cheio < b;
        for (std::size_t rigor = entrePalavras ? 0 : seguidos ? 1 : 2; rigor < achados.size(); ++rigor)
            achados[rigor] = {std::min(achados[rigor].primeiro, inicio), std::max(achados[rigor].ultimo, i)};
    }
    const auto melhor = std::ranges::find_if(achados, [](const Lugar& l) { return l.primeiro <= l.ultimo; });
    return melhor != achados.end() ? *melhor : Lugar{a, b - 1};
}

Texto Busca::nomeEm(int lugar) const {
    for (const Peca& peca : pecas_)
        if (lugar < peca.inicio + peca.largura) return peca.campo->nome();
    return {};
}

Texto emHexadecimal(VistaTexto bytes) {
    constexpr VistaTexto algarismos = "0123456789ABCDEF"_t;
    Texto escritos;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (!escritos.empty()) escritos.push_back(' ');
        escritos.push_back(algarismos[byte >> 4]);
        escritos.push_back(algarismos[byte & 0xF]);
    }
    return escritos;
}

Texto quantos(int numero, VistaTexto um, VistaTexto varios) {
    return junta(textoDe(numero), " "_t, numero == 1 ? um : varios);
}

Texto textoDaCausa(const Deslize& deslize) {
    const int quanto = std::abs(deslize.desvio);
    const Texto bytes = junta(" ("_t, emHexadecimal(deslize.bytes), ")"_t);
    switch (deslize.causa) {
    case Causa::ParUtf8: {
        const Texto letra = textoDeUtf8(bytesDoTexto(deslize.bytes));
        const bool tem = letra.size() == 1 && letra != "?"_t;
        return junta(tem ? junta("'"_t, letra, "'"_t) : Texto("caractere"_t), " em UTF-8"_t, bytes);
    }
    case Causa::Bom:
        return junta("marca de ordem de bytes"_t, bytes);
    case Causa::EspacoRigido:
        return junta("espaço rígido"_t, deslize.bytes.size() > 1 ? " em UTF-8"_t : ""_t, bytes);
    case Causa::Tabulacao:
        return junta("tabulação"_t, bytes);
    case Causa::QuebraDeLinha:
        return junta("quebra de linha"_t, bytes);
    case Causa::BrancoPerdido:
        return quantos(quanto, "branco a menos"_t, "brancos a menos"_t);
    case Causa::BrancoDobrado:
        return quantos(quanto, "branco a mais"_t, "brancos a mais"_t);
    case Causa::Desconhecida:
        break;
    }
    return junta(quantos(quanto, "caractere"_t, "caracteres"_t), deslize.desvio < 0 ? " a menos"_t : " a mais"_t);
}

Texto ondeEsta(const Deslize& deslize) {
    const auto com = [](int posicao, const Texto& campo) {
        return campo.empty() ? textoDe(posicao) : junta(textoDe(posicao), " ("_t, campo, ")"_t);
    };
    if (deslize.campo.empty()) return junta("na posição "_t, textoDe(deslize.posicao), ", depois do último campo"_t);
    const VistaTexto lado = deslize.desvio > 0 ? " à direita"_t : " à esquerda"_t;
    const Texto quanto = junta(textoDe(std::abs(deslize.desvio)), lado);
    const Texto fim = com(deslize.ultima, deslize.ultimoCampo);
    if (deslize.posicao == deslize.ultima) return junta("a partir da posição "_t, fim, " tudo está "_t, quanto);
    const bool mesmoCampo = deslize.campo == deslize.ultimoCampo;
    const Texto inicio = com(deslize.posicao, mesmoCampo ? Texto() : deslize.campo);
    return junta("entre as posições "_t, inicio, " e "_t, fim, " tudo passa a estar "_t, quanto);
}

} // namespace

std::optional<Deslize> acharDeslize(const RegistroRemessa& tipo, VistaTexto linha) {
    const auto tamanho = static_cast<int>(std::min(linha.size(), std::size_t{2} * maiorRegistro));
    if (tamanho < tipo.Tamanho() - maximoCurta || tamanho > tipo.Tamanho() + maximoLonga) return std::nullopt;
    std::vector<Peca> pecas = pecasDe(tipo);
    if (pecas.empty()) return std::nullopt;
    return Busca(tipo, std::move(pecas), linha).achar();
}

Texto textoDoDeslize(const Deslize& deslize) {
    const Texto outras = deslize.adiante > 0 ? junta(", e mais "_t, textoDe(deslize.adiante), " adiante"_t) : Texto();
    return junta(ondeEsta(deslize), ": "_t, textoDaCausa(deslize), outras);
}

} // namespace quilatador
