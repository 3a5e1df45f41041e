#include "validator/Conferencia.h"

#include <algorithm>
#include <utility>

namespace quilatador {

namespace {

/// A step rests on few fields, so that the memory for them is taken once.
constexpr std::size_t fundamentosUsuais = 16;

std::optional<CampoDoAchado> campoDoAchado(const RegistroRemessa& registro, VistaTexto nome,
                                           const std::optional<Texto>& esperado = {}) {
    const CampoRemessa* const campo = registro.procurarCampo(nome);
    if (!campo) return std::nullopt;
    return CampoDoAchado{.nome = campo->nome(),
                         .inicio = campo->inicio(),
                         .fim = campo->Fim(),
                         .encontrado = registro.getValorCampoString(nome),
                         .esperado = esperado};
}

/// The text of a field, which a lazy record has in its line.
Texto textoDo(const RegistroRemessa& registro, const CampoBuscado& buscado) {
    return buscado.campo && !registro.linha().empty() ? Texto(registro.textoNaLinha(*buscado.campo))
                                                      : registro.getValorCampoString(buscado.nome);
}

/// Whether a field is a text in the line of a lazy record, which can always be read.
bool textoNaLinha(const RegistroRemessa& registro, const CampoBuscado& buscado) {
    return buscado.campo && buscado.campo->natureza() == "S"_t && !registro.linha().empty();
}

bool emBranco(const RegistroRemessa& registro, const CampoBuscado& buscado) {
    return registro.textoNaLinha(*buscado.campo).find_first_not_of(' ') == VistaTexto::npos;
}

Valor valorDo(const RegistroRemessa& registro, const CampoBuscado& buscado) {
    return buscado.campo ? registro.getValorCampo(*buscado.campo) : registro.getValorCampo(buscado.nome);
}

} // namespace

FalhaDeLeitura numeroNaoLido(const RegistroRemessa& registro, VistaTexto nomeCampo, const Falha& causa) {
    return FalhaDeLeitura("leitura.numero"_t, causa, campoDoAchado(registro, nomeCampo))
        .em(registro.numeroDaLinha(), registro.letra());
}

Conferencia::Conferencia(Apontador& apontador, const RegistroRemessa& registro, char segmento, AoFalhar aoFalhar)
    : apontador_(apontador)
    , registro_(registro)
    , segmento_(segmento)
    , aoFalhar_(aoFalhar)
    , completa_(apontador.completo()) {
    if (completa_) fundamentos_.reserve(fundamentosUsuais);
}

/// Whether another record, in which the step rests on what was noted last, is there and could be read.
bool Conferencia::temOutro(const RegistroRemessa& registro) {
    if (registro.linha().empty()) {
        static_cast<void>(apontador_.falta({.letra = fundamentos_.back().letra}));
        return false;
    }
    return !apontador_.falta(fundamentos_.back());
}

bool Conferencia::temBase(char letra) {
    if (!completa_) return true;
    fundamentos_.push_back({.letra = letra});
    return !apontador_.falta(fundamentos_.back());
}

bool Conferencia::temBase(char letra, const RegistrosGuardados& aceitos,
                          std::initializer_list<VistaTexto> nomesDosCampos) {
    if (!completa_) return true;
    if (!aceitos.temTipo()) return temBase(letra);
    bool tem = true;
    const auto apoiarEm = [&](VistaTexto nome) {
        const CampoRemessa* const campo = aceitos.tipo().procurarCampo(nome);
        if (!campo) return;
        fundamentos_.push_back({.letra = letra, .campo = campo->inicio()});
        tem = tem && !apontador_.falta(fundamentos_.back());
    };
    std::ranges::for_each(nomesDosCampos, apoiarEm);
    apoiarEm("IDRegistro"_t);
    return tem;
}

void Conferencia::apoiarNoRegistro() {
    if (completa_) fundamentos_.push_back({.letra = segmento_, .campo = 0, .linha = registro_.lugar()});
}

/// Whether the step may be left out because of a field that cannot be read.
bool Conferencia::deixar(const FalhaDeLeitura& falha) {
    if (!completa_) return aoFalhar_ == AoFalhar::PularPasso;
    if (!fundamentos_.empty()) apontador_.naoLido(falha, registro_, fundamentos_.back());
    return true;
}

template <typename Leitura>
auto Conferencia::ler(const RegistroRemessa& registro, VistaTexto nomeCampo, Leitura leitura) -> decltype(leitura()) {
    try {
        return leitura();
    } catch (const Falha& falha) {
        if (aoFalhar_ != AoFalhar::Prosseguir) throw;
        const auto* const deLeitura = dynamic_cast<const FalhaDeLeitura*>(&falha);
        if (completa_ && deLeitura) apontador_.naoLido(*deLeitura, registro_, fundamentos_.back());
        falhou_ = true;
        if (&registro == &registro_) naoLidos_.push_back(nomeCampo);
        return {};
    }
}

Texto Conferencia::texto(const CampoBuscado& campo) {
    anotar(registro_, segmento_, campo);
    return ler(registro_, campo.nome, [&] { return textoDo(registro_, campo); });
}

Valor Conferencia::valorEm(const RegistroRemessa& registro, char letra, const CampoBuscado& campo) {
    anotar(registro, letra, campo);
    return ler(registro, campo.nome, [&] { return valorDo(registro, campo); });
}

bool Conferencia::semConteudo(VistaTexto nomeCampo) {
    const CampoBuscado campo(registro_, nomeCampo);
    if (!textoNaLinha(registro_, campo)) return quilatador::semConteudo(valor(campo));
    anotar(registro_, segmento_, campo);
    return emBranco(registro_, campo);
}

bool Conferencia::comConteudo(VistaTexto nomeCampo) {
    const CampoBuscado campo(registro_, nomeCampo);
    if (!textoNaLinha(registro_, campo)) return quilatador::comConteudo(valor(campo));
    anotar(registro_, segmento_, campo);
    return !emBranco(registro_, campo);
}

Texto Conferencia::textoEm(const RegistroRemessa& registro, char letra, const CampoBuscado& campo) {
    anotar(registro, letra, campo);
    return textoDo(registro, campo);
}

VistaTexto Conferencia::campoNaoLido(VistaTexto nomeCampo) const {
    if (naoLidos_.empty()) return {};
    return std::ranges::find(naoLidos_, nomeCampo) == naoLidos_.end() ? naoLidos_.front() : nomeCampo;
}

void Conferencia::eco(VistaTexto rotulo, VistaTexto conteudo) {
    if (!completa_) apontador_.eco(junta(rotulo, conteudo));
}

Achado Conferencia::achadoDe(const Assunto& assunto, VistaTexto mensagem, std::int64_t linha) {
    if (completa_ && !assunto.campo.empty()) apoiar(assunto.campo);
    return {.id = assunto.id,
            .gravidade = Gravidade::Erro,
            .linha = linha,
            .segmento = segmento_,
            .campo = campoDoAchado(registro_, assunto.campo, assunto.esperado),
            .mensagem = Texto(mensagem),
            .discutido = completa_ && !assunto.motivo.empty(),
            .motivo = Texto(assunto.motivo)};
}

void Conferencia::erro(const Assunto& assunto, VistaTexto mensagem, std::optional<std::int64_t> linha) {
    const std::int64_t numero = completa_ ? registro_.lugar() : linha ? *linha : linhaDoRegistro();
    aprovada_ = false;
    Achado achado = achadoDe(assunto, mensagem, numero); // adds to what the step rests on
    apontador_.apontar(std::move(achado), fundamentos_);
}

void Conferencia::aviso(const Assunto& assunto, VistaTexto mensagem) {
    if (!completa_) return;
    Achado achado = achadoDe(assunto, mensagem, registro_.lugar());
    achado.gravidade = Gravidade::Aviso;
    apontador_.apontar(std::move(achado), fundamentos_);
}

void Conferencia::avisarSePassa(const Assunto& assunto, VistaTexto conteudo, VistaTexto lista) {
    if (completa_ && conteudo.size() != 1 && lista.find(conteudo) != VistaTexto::npos)
        aviso(assunto, conteudo.empty()
                           ? junta("Campo em branco, que o log aceita; esperado um destes caracteres: "_t, lista)
                           : junta("Conteúdo que o log aceita por estar contido em \""_t, lista,
                                   "\"; esperado um destes caracteres"_t));
}

void Conferencia::exigir(const Assunto& assunto, VistaTexto mensagem) {
    passo([&] {
        if (semConteudo(assunto.campo)) erro(assunto, mensagem);
    });
}

void Conferencia::exigirNaoZero(const Assunto& assunto, VistaTexto mensagem) {
    passo([&] {
        if (igual(valor(assunto.campo), 0)) erro(assunto, mensagem);
    });
}

std::int64_t Conferencia::linhaDoRegistro() const {
    try {
        return numeroDoCampo(registro_, &Valor::paraContagem, "Sequencial"_t);
    } catch (const Falha&) {
        if (aoFalhar_ == AoFalhar::Propagar) throw;
        return 0;
    }
}

} // namespace quilatador
