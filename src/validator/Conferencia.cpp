#include "validator/Conferencia.h"

namespace quilatador {

Conferencia::Conferencia(Rodada& rodada, const RegistroRemessa& registro, char segmento, AoFalhar aoFalhar)
    : rodada_(rodada), registro_(registro), segmento_(segmento), aoFalhar_(aoFalhar) {}

template <typename Leitura>
auto Conferencia::ler(Leitura leitura) -> decltype(leitura()) {
    try {
        return leitura();
    } catch (const Falha&) {
        if (aoFalhar_ != AoFalhar::Prosseguir) throw;
        falhou_ = true;
        return {};
    }
}

Texto Conferencia::texto(VistaTexto nomeCampo) {
    return ler([&] { return registro_.getValorCampoString(nomeCampo); });
}

Valor Conferencia::valorDe(const RegistroRemessa& registro, VistaTexto nomeCampo) {
    return ler([&] { return registro.getValorCampo(nomeCampo); });
}

void Conferencia::eco(VistaTexto rotulo, VistaTexto conteudo) {
    rodada_.escreverLog(junta(rotulo, conteudo));
}

void Conferencia::erro(const Assunto& assunto, VistaTexto mensagem, std::optional<std::int32_t> linha) {
    const std::int32_t numero = linha ? *linha : linhaDoRegistro();
    aprovada_ = false;
    rodada_.escreverErro(Achado{.id = assunto.id,
                                .gravidade = Gravidade::Erro,
                                .linha = numero,
                                .segmento = segmento_,
                                .campo = campoDoAchado(assunto),
                                .mensagem = Texto(mensagem)});
}

void Conferencia::exigir(const Assunto& assunto, VistaTexto mensagem) {
    if (semConteudo(valor(assunto.campo))) erro(assunto, mensagem);
}

void Conferencia::exigirNaoZero(const Assunto& assunto, VistaTexto mensagem) {
    if (igual(valor(assunto.campo), 0)) erro(assunto, mensagem);
}

std::int32_t Conferencia::linhaDoRegistro() const {
    try {
        return registro_.getValorCampo("Sequencial"_t).paraLongo();
    } catch (const Falha&) {
        if (aoFalhar_ == AoFalhar::Propagar) throw;
        return 0;
    }
}

std::optional<CampoDoAchado> Conferencia::campoDoAchado(const Assunto& assunto) const {
    const auto indice = registro_.indiceDoCampo(assunto.campo);
    if (!indice) return std::nullopt;
    const CampoRemessa& campo = *registro_.campos()[*indice];
    return CampoDoAchado{.nome = campo.nome(),
                         .inicio = campo.inicio(),
                         .fim = campo.Fim(),
                         .encontrado = registro_.getValorCampoString(assunto.campo),
                         .esperado = assunto.esperado};
}

} // namespace quilatador
