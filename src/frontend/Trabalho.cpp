#include "frontend/Trabalho.h"

#include "returns/ConferenciaDeRetorno.h"
#include "returns/modTrataTAV001.h"
#include "returns/modTrataZUL708.h"

namespace quilatador {

Trabalho::Trabalho(Ambiente& ambiente, modVariaveis& globais, std::atomic<bool>& cancelado)
    : ambiente_(ambiente), globais_(globais), cancelado_(cancelado) {}

Trabalho::~Trabalho() {
    globais_.bancoDeDados = nullptr;
}

bool Trabalho::iniciar() {
    try {
        banco_ = std::make_unique<BancoDeDados>(ambiente_.arquivos, ambiente_.bancoDeDados());
        globais_.bancoDeDados = banco_.get();
        return true;
    } catch (const Falha&) {
        ambiente_.painel.mensagem(
            {.texto = Texto("Não foi possível abrir o arquivo TabelaErrosZUL.mdb! Reinstale o aplicativo."_t),
             .titulo = Texto(tituloDeErro),
             .icone = Mensagem::Icone::Exclamacao});
        return false;
    }
}

std::optional<Texto> Trabalho::recusa(const Pedido& pedido) {
    const bool temData = pedido.tipoArquivo == TipoArquivo::ZUL702 && pedido.comData;
    return temData ? recusaDoFormato(pedido.PosicaoDataBarra, pedido.FormatoDataBarra) : std::nullopt;
}

Rodada Trabalho::comecar(const Pedido& pedido) {
    return {ambiente_,
            {.tipoArquivo = pedido.tipoArquivo,
             .nomeArquivo = pedido.nomeArquivo,
             .log = pedido.nomeArquivoLog,
             .intocaveis = pedido.entradas,
             .ouvintes = ouvintes_,
             .abrirLog = pedido.abrirLog},
            cancelado_};
}

Resumo Trabalho::analisar(Rodada& rodada, const Pedido& pedido) {
    // The sum of the file is made beside everything else, in a thread of its own. What has no length may be a pipe,
    // which only one may read.
    const bool somar = pedido.completa && ambiente_.arquivos.tamanho(pedido.nomeArquivo) > 0;
    soma_ = somar ? ambiente_.arquivos.somar(pedido.nomeArquivo) : nullptr;
    switch (pedido.tipoArquivo) {
    case TipoArquivo::ZUL708:
        return tratarRetornoZUL708(rodada, globais_);
    case TipoArquivo::TAV001:
        return tratarRetornoTAV001(rodada, globais_);
    case TipoArquivo::ZUL702:
        break;
    }
    prepararDepurador(pedido);
    return depurador_->depurar(rodada);
}

ResumoCompleto Trabalho::conferirTudo(const Rodada& rodada, const Pedido& pedido, std::span<Relator* const> ouvintes) {
    if (!soma_) soma_ = ambiente_.arquivos.somar(pedido.nomeArquivo);
    const auto soma = std::move(soma_);
    ResumoCompleto completa = conferir(rodada, pedido, ouvintes);
    if (completa.desfecho == Desfecho::Concluida)
        completa.sha256 = soma->hexadecimal([this] {
            ambiente_.painel.processarEventos();
            return cancelado_.load(std::memory_order_relaxed);
        });
    return completa;
}

ResumoCompleto Trabalho::conferir(const Rodada& rodada, const Pedido& pedido, std::span<Relator* const> ouvintes) {
    if (pedido.tipoArquivo != TipoArquivo::ZUL702)
        return conferirRetorno(pedido.tipoArquivo, ambiente_, pedido.nomeArquivo, globais_, ouvintes, cancelado_,
                               rodada.versaoDaEntrada());
    prepararDepurador(pedido);
    return depurador_->conferirTudo({.arquivo = pedido.nomeArquivo,
                                     .versao = rodada.versaoDaEntrada(),
                                     .primeiras = ambiente_.painel.primeirasGuias()},
                                    ouvintes);
}

/// Creates the validator for the first remittance, and gives it the choices of this one.
void Trabalho::prepararDepurador(const Pedido& pedido) {
    if (!depurador_) depurador_ = std::make_unique<Depurador>(ambiente_, globais_, cancelado_);
    if (pedido.comData) depurador_->FormatoDataBarra = pedido.FormatoDataBarra;
    depurador_->PosicaoDataBarra = pedido.comData ? Valor(pedido.PosicaoDataBarra).paraInteiro() : std::int16_t{0};
}

} // namespace quilatador
