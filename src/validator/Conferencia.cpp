#include "validator/Conferencia.h"

#include <algorithm>

namespace quilatador {

namespace {

std::optional<CampoDoAchado> campoDoAchado(const RegistroRemessa& registro, VistaTexto nome,
                                           const std::optional<Texto>& esperado = {}) {
    const auto indice = registro.indiceDoCampo(nome);
    if (!indice) return std::nullopt;
    const CampoRemessa& campo = *registro.campos()[*indice];
    return CampoDoAchado{.nome = campo.nome(),
                         .inicio = campo.inicio(),
                         .fim = campo.Fim(),
                         .encontrado = registro.getValorCampoString(nome),
                         .esperado = esperado};
}

} // namespace

FalhaDeLeitura numeroNaoLido(const RegistroRemessa& registro, VistaTexto nomeCampo, const Falha& causa) {
    return FalhaDeLeitura("leitura.numero"_t, causa, campoDoAchado(registro, nomeCampo))
        .em(registro.numeroDaLinha(), registro.letra());
}

Conferencia::Conferencia(Rodada& rodada, const RegistroRemessa& registro, char segmento, AoFalhar aoFalhar)
    : rodada_(rodada), registro_(registro), segmento_(segmento), aoFalhar_(aoFalhar) {}

template <typename Leitura>
auto Conferencia::ler(const RegistroRemessa& registro, VistaTexto nomeCampo, Leitura leitura) -> decltype(leitura()) {
    try {
        return leitura();
    } catch (const Falha&) {
        if (aoFalhar_ != AoFalhar::Prosseguir) throw;
        falhou_ = true;
        if (&registro == &registro_) naoLidos_.push_back(nomeCampo);
        return {};
    }
}

Texto Conferencia::texto(VistaTexto nomeCampo) {
    return ler(registro_, nomeCampo, [&] { return registro_.getValorCampoString(nomeCampo); });
}

Valor Conferencia::valorDe(const RegistroRemessa& registro, VistaTexto nomeCampo) {
    return ler(registro, nomeCampo, [&] { return registro.getValorCampo(nomeCampo); });
}

VistaTexto Conferencia::campoNaoLido(VistaTexto nomeCampo) const {
    if (naoLidos_.empty()) return {};
    return std::ranges::find(naoLidos_, nomeCampo) == naoLidos_.end() ? naoLidos_.front() : nomeCampo;
}

void Conferencia::eco(VistaTexto rotulo, VistaTexto conteudo) {
    rodada_.escreverLog(junta(rotulo, conteudo));
}

void Conferencia::erro(const Assunto& assunto, VistaTexto mensagem, std::optional<std::int64_t> linha) {
    const std::int64_t numero = linha ? *linha : linhaDoRegistro();
    aprovada_ = false;
    rodada_.escreverErro(Achado{.id = assunto.id,
                                .gravidade = Gravidade::Erro,
                                .linha = numero,
                                .segmento = segmento_,
                                .campo = campoDoAchado(registro_, assunto.campo, assunto.esperado),
                                .mensagem = Texto(mensagem)});
}

void Conferencia::exigir(const Assunto& assunto, VistaTexto mensagem) {
    if (semConteudo(valor(assunto.campo))) erro(assunto, mensagem);
}

void Conferencia::exigirNaoZero(const Assunto& assunto, VistaTexto mensagem) {
    if (igual(valor(assunto.campo), 0)) erro(assunto, mensagem);
}

std::int64_t Conferencia::linhaDoRegistro() const {
    try {
        return numero(&Valor::paraContagem, "Sequencial"_t);
    } catch (const Falha&) {
        if (aoFalhar_ == AoFalhar::Propagar) throw;
        return 0;
    }
}

} // namespace quilatador
