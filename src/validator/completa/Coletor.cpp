#include "validator/completa/Coletor.h"

#include <algorithm>
#include <utility>

namespace quilatador {

namespace {

/// More faults of one segment than this are not remembered one by one.
constexpr std::size_t maisFaltas = 256;

/// The finding for a line of the right length that has slipped.
Achado achadoDoDeslize(const RegistroRemessa& registro, const Deslize& deslize) {
    return {.id = "leitura.linhaDeslocada"_t,
            .gravidade = Gravidade::Erro,
            .linha = registro.lugar(),
            .segmento = registro.letra(),
            .campo = CampoDoAchado{.nome = deslize.campo,
                                   .inicio = deslize.posicao,
                                   .fim = deslize.ultima,
                                   .encontrado = deslize.bytes,
                                   .esperado = {}},
            .mensagem = junta("Linha deslocada: "_t, textoDoDeslize(deslize))};
}

bool daDefinicao(char letra) noexcept {
    return letra < 'S';
}

} // namespace

std::int64_t Coletor::contar(Achado achado, std::int64_t causa) {
    achado.n = ++n_;
    achado.causa = causa;
    if (guia_ != 0 && !daDefinicao(achado.segmento) && achado.segmento != 'Z') {
        achado.guia = guia_;
        achado.idGuia = idGuia_;
        guiaComErro_ = guiaComErro_ || contaComoErro(achado.gravidade, achado.discutido);
    }
    if (achado.linha == 0) achado.linha = guia_ != 0 ? linhaDaGuia_ : linhaEmMaos_;
    somar(achado);
    for (Relator* const ouvinte : ouvintes_)
        ouvinte->achado(achado);
    return causa == 0 ? achado.n : causa;
}

void Coletor::somar(const Achado& achado) {
    if (achado.gravidade == Gravidade::Aviso) ++resumo_.avisos;
    if (achado.discutido) ++resumo_.discutidos;
    if (!contaComoErro(achado.gravidade, achado.discutido)) return;
    ++resumo_.erros;
    if (achado.causa == 0) ++resumo_.causas;
}

void Coletor::apontar(Achado achado, std::span<const Fundamento> fundamentos) {
    const Fundamento onde{.letra = achado.segmento,
                          .campo = static_cast<std::int16_t>(achado.campo ? achado.campo->inicio : 0),
                          .linha = achado.linha};
    const bool errado = contaComoErro(achado.gravidade, achado.discutido);
    const std::int64_t raiz = contar(std::move(achado), causaEntre(fundamentos));
    if (errado) marcar(onde, raiz);
}

/// Of all that a finding rests on, the fault that was told first.
std::int64_t Coletor::causaEntre(std::span<const Fundamento> fundamentos) {
    std::int64_t primeira = 0;
    for (const Fundamento& fundamento : fundamentos)
        if (const std::int64_t causa = causaDe(fundamento); causa != 0 && (primeira == 0 || causa < primeira))
            primeira = causa;
    return primeira;
}

void Coletor::naoLido(const FalhaDeLeitura& falha, const RegistroRemessa& emVerificacao, const Fundamento& campo) {
    const auto& faltas = faltasDe(campo.letra);
    if (std::ranges::any_of(faltas, [&](const Falta& f) { return f.estado == Estado::Ilegivel && f.onde.toca(campo); }))
        return;
    std::int64_t causa = causaDe(campo);
    if (causa == 0 && emVerificacao.lugar() == campo.linha && campo.linha != semDeslize_) {
        if (const auto deslize = acharDeslize(emVerificacao, emVerificacao.linha()))
            causa = acusarDeslize(emVerificacao, *deslize);
        else
            semDeslize_ = campo.linha;
    }
    Achado achado = falha.achado();
    achado.gravidade = Gravidade::Erro;
    achado.linha = campo.linha;
    achado.segmento = campo.letra;
    const Texto nome = achado.campo ? achado.campo->nome : Texto();
    anotar(campo, contar(std::move(achado), causa), Estado::Ilegivel, nome);
}

std::int64_t Coletor::acusarDeslize(const RegistroRemessa& registro, const Deslize& deslize) {
    const std::int64_t raiz = contar(achadoDoDeslize(registro, deslize), 0);
    marcar({.letra = registro.letra(), .campo = 0, .linha = registro.lugar()}, raiz);
    return raiz;
}

bool Coletor::falta(const Fundamento& fundamento) {
    const auto& faltas = faltasDe(fundamento.letra);
    const auto falta = std::ranges::find_if(
        faltas, [&](const Falta& f) { return f.estado != Estado::Errado && f.onde.toca(fundamento); });
    if (falta == faltas.end()) return false;
    guiaEmParte_ = true;
    if (daDefinicao(fundamento.letra)) dizerQueFalta(Falta(*falta));
    return true;
}

/// Steps are left out without a word for each slip, so that it is said once.
void Coletor::dizerQueFalta(const Falta& falta) {
    const char letra = falta.onde.letra;
    if (!faltasDitas_.emplace(letra, falta.onde.campo).second) return;
    const Texto doCampo = falta.campo.empty() ? Texto() : junta("campo "_t, falta.campo, " do "_t);
    contar(Achado{.id = "completa.semDefinicao"_t,
                  .gravidade = Gravidade::Aviso,
                  .linha = falta.onde.linha,
                  .segmento = letra,
                  .campo = std::nullopt,
                  .mensagem = junta("O que depende do "_t, doCampo, "segmento "_t, VistaTexto(&letra, 1),
                                    " não pôde ser conferido"_t)},
           falta.causa);
}

bool Coletor::naoConferido(char letra) const noexcept {
    return naoConferidos_.contains(letra);
}

std::vector<Coletor::Falta>& Coletor::faltasDe(char letra) noexcept {
    const bool maiuscula = letra >= 'A' && letra <= 'Z';
    const std::size_t lugar = maiuscula ? static_cast<std::size_t>(letra - 'A') : faltas_.size() - 1;
    return faltas_[lugar];
}

std::int64_t Coletor::causaDe(const Fundamento& onde) noexcept {
    const auto& faltas = faltasDe(onde.letra);
    const auto falta = std::ranges::find_if(faltas, [&](const Falta& f) { return f.onde.toca(onde); });
    return falta == faltas.end() ? 0 : falta->causa;
}

void Coletor::anotar(const Fundamento& onde, std::int64_t causa, Estado estado, VistaTexto campo) {
    auto& faltas = faltasDe(onde.letra);
    // The installments of a slip may be very many, and none has to do with another.
    if (onde.letra == 'Y' && onde.linha != 0)
        std::erase_if(faltas, [&](const Falta& f) { return f.onde.linha != 0 && f.onde.linha != onde.linha; });
    if (faltas.size() < maisFaltas)
        faltas.push_back({onde, causa, estado, Texto(campo)});
    else if (estado != Estado::Errado) // the last place is for what makes others be left out
        faltas.back() = {{.letra = onde.letra}, causa, estado, {}};
}

void Coletor::iniciarGuia(std::int64_t ordinal, VistaTexto idGuia, std::int64_t linha) {
    guia_ = ordinal;
    idGuia_ = idGuia;
    linhaDaGuia_ = linha;
    for (char letra = 'S'; letra <= 'Z'; ++letra)
        faltasDe(letra).clear();
    naoConferidos_.clear();
    guiaComErro_ = false;
    guiaEmParte_ = false;
    ++resumo_.guias.lidas;
}

void Coletor::encerrarGuia(bool conferida) {
    using enum GuiaConferida::Estado;
    ContagemDeGuias& guias = resumo_.guias;
    if (!conferida)
        contarGuia(guias.naoConferidas, NaoConferida);
    else if (guiaComErro_)
        contarGuia(guias.comErro, ComErro);
    else if (guiaEmParte_ || !naoConferidos_.empty())
        contarGuia(guias.emParte, EmParte);
    else
        ++guias.certas;
    guia_ = 0;
}

void Coletor::contarGuia(std::int64_t& contagem, GuiaConferida::Estado estado) {
    ++contagem;
    for (Relator* const ouvinte : ouvintes_)
        ouvinte->guia({.guia = guia_, .linha = linhaDaGuia_, .idGuia = idGuia_, .estado = estado});
}

} // namespace quilatador
