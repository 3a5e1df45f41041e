#include "layout/RegistroRemessa.h"

#include "common/Falha.h"
#include "common/Numero.h"
#include "layout/ArquivoRemessa.h"
#include "run/Relogio.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace quilatador {

RegistroRemessa::RegistroRemessa(RegistroRemessa&& outro) noexcept {
    *this = std::move(outro);
}

RegistroRemessa& RegistroRemessa::operator=(RegistroRemessa&& outro) noexcept {
    linha_ = std::move(outro.linha_);
    lugar_ = outro.lugar_;
    campos_ = std::move(outro.campos_);
    nomes_ = std::move(outro.nomes_);
    identificador_ = std::move(outro.identificador_);
    relogio_ = outro.relogio_;
    arquivo_ = outro.arquivo_;
    nome_ = std::move(outro.nome_);
    tamanhoAtual_ = outro.tamanhoAtual_;
    tamanho_ = outro.tamanho_;
    adotarCampos();
    return *this;
}

void RegistroRemessa::adotarCampos() noexcept {
    for (const auto& campo : campos_)
        campo->registroPai(this);
}

CampoRemessa& RegistroRemessa::add(CampoRemessa campo) {
    using Posicao = std::numeric_limits<std::int16_t>;
    const int inicio = tamanhoAtual_ + 1;
    const int fim = tamanhoAtual_ + campo.Tamanho();
    if (std::max(inicio, fim) > Posicao::max() || fim < Posicao::min())
        throw Falha(numeroDeFalha::estouro, "RegistroRemessa"_t, "Estouro"_t);
    campo.inicio(static_cast<std::int16_t>(inicio));
    campo.Fim(static_cast<std::int16_t>(fim));
    campo.registroPai(this);
    tamanhoAtual_ = static_cast<std::int16_t>(fim);
    if (indiceDoCampo(campo.nome()))
        throw Falha(numeroDeFalha::chaveDuplicada, "RegistroRemessa"_t,
                    junta("Campo em duplicidade: "_t, campo.nome()));
    CampoRemessa& guardado = *campos_.emplace_back(std::make_unique<CampoRemessa>(std::move(campo)));
    nomes_.incluir(guardado.nome());
    return guardado;
}

bool RegistroRemessa::isRegistroTipo(VistaTexto linha) const {
    const CampoRemessa& campo = obterCampo(identificador_);
    return !campo.Valor().nulo() && textoDoCampo(linha, campo) == campo.Valor().texto();
}

void RegistroRemessa::lerLinha(VistaTexto linha) {
    try {
        if (linha.size() != static_cast<std::size_t>(tamanho_))
            throw Falha(numeroDeFalha::geral, "RegistroRemessa"_t, "Tamanho de linha incompatível!"_t);
        std::size_t posicao = 1;
        for (const auto& campo : campos_) {
            const auto largura = static_cast<std::size_t>(campo->Tamanho());
            campo->lerTexto(trecho(linha, posicao, largura));
            posicao += largura;
        }
    } catch (const Falha& falha) {
        throw falha.comContexto("RegistroRemessa"_t, junta("Segmento="_t, obterCampo(identificador_).Valor().texto()));
    }
}

Texto RegistroRemessa::gerarLinha() {
    Texto linha;
    for (const auto& campo : campos_)
        linha.append(campo->gerarTexto());
    return linha;
}

Valor RegistroRemessa::getValorCampo(VistaTexto nomeCampo) {
    CampoRemessa& procurado = campo(nomeCampo);
    procurado.Valor(std::as_const(*this).getValorCampo(procurado));
    return procurado.Valor();
}

Valor RegistroRemessa::getValorCampo(VistaTexto nomeCampo) const {
    return getValorCampo(campo(nomeCampo));
}

Valor RegistroRemessa::getValorCampo(const CampoRemessa& campo) const {
    if (linha_.empty()) return campo.Valor();
    try {
        return campo.interpretar(textoNaLinha(campo));
    } catch (const FalhaDeLeitura& falha) {
        throw falha.em(numeroDaLinha(), letra());
    }
}

Texto RegistroRemessa::getValorCampoString(VistaTexto nomeCampo) const {
    CampoRemessa& procurado = campo(nomeCampo);
    return linha_.empty() ? procurado.gerarTexto() : Texto(textoNaLinha(procurado));
}

void RegistroRemessa::setValorCampo(VistaTexto nomeCampo, Valor valor) {
    campo(nomeCampo).Valor(std::move(valor));
}

std::int16_t RegistroRemessa::obterPosicaoCampo(VistaTexto) const noexcept {
    return 0;
}

std::optional<std::size_t> RegistroRemessa::indiceDoCampo(VistaTexto nomeCampo) const noexcept {
    const CampoRemessa* const procurado = procurarCampo(nomeCampo);
    const auto campo = std::ranges::find(campos_, procurado, &std::unique_ptr<CampoRemessa>::get);
    if (!procurado || campo == campos_.end()) return std::nullopt;
    return static_cast<std::size_t>(campo - campos_.begin());
}

CampoRemessa* RegistroRemessa::procurar(VistaTexto nomeCampo) const noexcept {
    // Nearly always the name is written as in the layout.
    const std::size_t lugar = nomes_.achar(nomeCampo, [&](std::size_t i) { return campos_[i]->nome() == nomeCampo; });
    return lugar == IndiceDeNomes::naoAchado ? procurarSemCaixa(nomeCampo) : campos_[lugar].get();
}

/// Goes through all fields if it must, since one may have been given another name.
CampoRemessa* RegistroRemessa::procurarSemCaixa(VistaTexto nomeCampo) const noexcept {
    const auto confere = [nomeCampo](const auto& campo) { return iguaisSemCaixa(campo->nome(), nomeCampo); };
    const std::size_t lugar = nomes_.achar(nomeCampo, [&](std::size_t i) { return confere(campos_[i]); });
    if (lugar != IndiceDeNomes::naoAchado) return campos_[lugar].get();
    const auto campo = std::ranges::find_if(campos_, confere);
    return campo == campos_.end() ? nullptr : campo->get();
}

CampoRemessa& RegistroRemessa::campo(VistaTexto nomeCampo) const {
    if (CampoRemessa* const procurado = procurar(nomeCampo)) return *procurado;
    throw Falha(numeroDeFalha::argumentoInvalido, "RegistroRemessa"_t,
                junta("Campo inexistente no leiaute: "_t, nomeCampo));
}

int RegistroRemessa::anoCorrente() const {
    if (arquivo_) return arquivo_->anoCorrente();
    return relogio_ ? anoDe(relogio_->hoje()) : 0;
}

std::int64_t RegistroRemessa::numeroDaLinha() const {
    const auto contador = std::ranges::find_if(campos_, [](const auto& campo) { return campo->natureza() == "R"_t; });
    const VistaTexto numero = contador == campos_.end() ? VistaTexto() : textoNaLinha(**contador);
    return static_cast<std::int64_t>(numeroDeDigitos(semBrancos(numero)).value_or(0));
}

char RegistroRemessa::letra() const noexcept {
    const auto indice = indiceDoCampo(identificador_);
    const VistaTexto letra = indice ? textoNaLinha(*campos_[*indice]) : VistaTexto();
    return letra.size() == 1 ? letra.front() : '\0';
}

RegistroRemessa RegistroRemessa::copia() const {
    RegistroRemessa nova;
    nova.nome_ = nome_;
    nova.tamanho_ = tamanho_;
    nova.identificador_ = identificador_;
    for (const auto& campo : campos_)
        nova.add(campo->copia());
    nova.linha_ = linha_;
    nova.lugar_ = lugar_;
    nova.tamanhoAtual_ = tamanhoAtual_;
    nova.relogio_ = relogio_;
    nova.arquivo_ = arquivo_;
    return nova;
}

void RegistroRemessa::copiar(RegistroRemessa& destino) const {
    destino.linha_ = linha_;
    destino.lugar_ = lugar_;
    if (!linha_.empty()) return;
    for (const auto& campo : campos_)
        destino.setValorCampo(campo->nome(), campo->Valor());
}

} // namespace quilatador
