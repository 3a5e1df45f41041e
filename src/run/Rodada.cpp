#include "run/Rodada.h"

#include "run/NomesDeArquivo.h"

#include <algorithm>
#include <new>
#include <utility>

namespace quilatador {

namespace {

/// The texts in which the types of files differ.
struct Dizeres {
    VistaTexto tituloDoErro;
    VistaTexto cancelada;
    VistaTexto terminada; ///< last line of the log, or "" for none
};

constexpr Dizeres dizeresDaRemessa{tituloDeErro, "DEPURACAO CANCELADA!"_t, "Depuração terminada!"_t};
constexpr Dizeres dizeresDoRetorno{"Erro!"_t, "TRATAMENTO CANCELADO!!!"_t, {}};

const Dizeres& dizeresDe(TipoArquivo tipo) {
    return tipo == TipoArquivo::ZUL702 ? dizeresDaRemessa : dizeresDoRetorno;
}

Falha falhaDeAlteracao() {
    return {numeroDeFalha::arquivoAlterado, "Rodada"_t, arquivoAlterado};
}

} // namespace

Rodada::Rodada(Ambiente& ambiente, PedidoDeRodada pedido, std::atomic<bool>& cancelado)
    : ambiente_(ambiente)
    , pedido_(std::move(pedido))
    , nomeArquivoLog_(pedido_.log ? *pedido_.log : caminhoDoLog(pedido_.nomeArquivo, pedido_.tipoArquivo))
    , cancelado_(cancelado)
    , hoje_(ambiente.relogio.hoje()) {
    cancelado_ = false;
    resumo_.desfecho = Desfecho::NaoRodou;
    progresso_.inicio = ambiente.relogio.agora();
}

Resumo Rodada::executar(Analise& analise) {
    try {
        if (const auto motivo = analise.preparar())
            resumo_.descricao = *motivo;
        else if (criarLog())
            rodar(analise);
    } catch (const FalhaDoLog& falha) {
        naoRodar(junta("Erro na gravação do arquivo de log: "_t, textoDoCaminho(nomeArquivoLog_), " ("_t,
                       falha.descricao(), ")"_t));
    } catch (const std::bad_alloc&) {
        naoRodar(memoriaInsuficiente);
    }
    analise.fecharEntrada();
    log_.reset();
    for (Relator* const ouvinte : pedido_.ouvintes)
        ouvinte->resumo(resumo_);
    return resumo_;
}

/// Returns false if the log cannot be created and the user chooses no other place for it.
bool Rodada::criarLog() {
    while (const auto motivo = tentarCriarLog()) {
        const auto outro = ambiente_.painel.outroLugarParaOLog(fim(*motivo), nomeArquivoLog_);
        if (!outro) {
            resumo_.descricao = *motivo;
            return false;
        }
        nomeArquivoLog_ = *outro;
    }
    return true;
}

/// Returns the reason if the log could not be created.
std::optional<Texto> Rodada::tentarCriarLog() {
    const auto recusa = [&](VistaTexto motivo) { return junta(motivo, textoDoCaminho(nomeArquivoLog_)); };
    if (const VistaTexto proibicao = proibicaoDoLog(); !proibicao.empty()) return recusa(proibicao);
    try {
        log_ = std::make_unique<RelatorLog>(ambiente_.arquivos.criarSaida(nomeArquivoLog_));
        return std::nullopt;
    } catch (const Falha& falha) {
        return recusa(falha.numero() == numeroDeFalha::arquivoJaAberto
                          ? "O arquivo de log está em uso por outra análise ou por outro programa: "_t
                          : "Erro na criacao do arquivo de log: "_t);
    }
}

/// Why the log must not even be tried at its place, where it would overwrite a file that must not be lost; "" if it
/// may.
VistaTexto Rodada::proibicaoDoLog() const {
    const Destino log = ambiente_.arquivos.destino(nomeArquivoLog_);
    const auto cairiaSobre = [&](const auto& caminho) { return log == ambiente_.arquivos.destino(caminho); };
    if (cairiaSobre(pedido_.nomeArquivo)) return "O arquivo de log seria o próprio arquivo analisado: "_t;
    if (pedido_.intocaveis && pedido_.intocaveis->contains(log))
        return "O arquivo de log seria outro dos arquivos a analisar: "_t;
    if (std::ranges::any_of(ambiente_.arquivosDoPrograma(), cairiaSobre))
        return "O arquivo de log seria um arquivo do próprio programa: "_t;
    return {};
}

void Rodada::rodar(Analise& analise) {
    escreverLog(tituloDoLog(pedido_.nomeArquivo, formatarData(hoje_, "DD/MM/YYYY"_t)));
    escreverLog(""_t);
    resumo_.desfecho = percorrer(analise);
    progresso_.guias = resumo_.guiasDepuradas;
    ambiente_.painel.concluirProgresso(progresso_);
    const Dizeres& dizeres = dizeresDe(pedido_.tipoArquivo);
    if (!dizeres.terminada.empty()) escreverLog(dizeres.terminada);
    analise.fecharEntrada();
    log_->fechar();
    logGravado_ = true;
    if (pedido_.abrirLog) ambiente_.lancador.abrirTexto(nomeArquivoLog_);
}

Desfecho Rodada::percorrer(Analise& analise) {
    try {
        const Desfecho desfecho = analise.analisar();
        if (desfecho == Desfecho::Cancelada) escreverCancelamento();
        return desfecho;
    } catch (const ParadaEstrutural& parada) {
        if (entradaAlterada()) return naoCompletar(Desfecho::NaoRodou, arquivoAlterado);
        return parar(parada);
    } catch (const FalhaDoLog&) {
        throw;
    } catch (const Falha& falha) {
        if (entradaAlterada()) return naoCompletar(Desfecho::NaoRodou, arquivoAlterado);
        return naoCompletar(falha.doAmbiente() ? Desfecho::NaoRodou : Desfecho::Falhou, falha.descricao());
    } catch (const std::bad_alloc&) {
        return naoCompletar(Desfecho::NaoRodou, memoriaInsuficiente); // the analysis has freed its memory
    }
}

/// A fault without a line of its own is about the record in hand.
Desfecho Rodada::parar(const ParadaEstrutural& parada) {
    Achado achado = parada.achado();
    if (achado.linha == 0) achado.linha = progresso_.registroAtual;
    escreverErro(achado);
    resumo_.descricao = parada.descricao();
    return Desfecho::Falhou;
}

Desfecho Rodada::naoCompletar(Desfecho desfecho, VistaTexto descricao) {
    escreverLog(descricao);
    resumo_.descricao = descricao;
    return desfecho;
}

void Rodada::escreverCancelamento() {
    escreverLog(""_t);
    escreverLog(dizeresDe(pedido_.tipoArquivo).cancelada);
}

void Rodada::escreverLog(VistaTexto texto) {
    if (log_) log_->linha(texto);
    for (Relator* const ouvinte : pedido_.ouvintes)
        ouvinte->linha(texto);
}

void Rodada::escreverErro(const Achado& achado) {
    if (log_) log_->achado(achado);
    for (Relator* const ouvinte : pedido_.ouvintes)
        ouvinte->achado(achado);
    if (achado.gravidade == Gravidade::Erro) ++resumo_.totalErros;
    if (achado.gravidade == Gravidade::Estrutural) resumo_.linhaDaParada = achado.linha;
}

void Rodada::entregarLinhas(VistaTexto linhas) {
    constexpr VistaTexto fimDeLinha = "\r\n"_t;
    while (!linhas.empty()) {
        const VistaTexto linha = linhas.substr(0, linhas.find(fimDeLinha));
        for (Relator* const ouvinte : pedido_.ouvintes)
            ouvinte->linha(linha);
        linhas.remove_prefix(std::min(linha.size() + fimDeLinha.size(), linhas.size()));
    }
}

bool Rodada::canceladaAgora() {
    ambiente_.painel.processarEventos();
    return cancelada();
}

LeitorDeLinhas::Desistencia Rodada::desistencia() {
    return [this] { return canceladaAgora(); };
}

void Rodada::entradaAberta(const VersaoDoArquivo& aberta) {
    if (!versao_) versao_ = aberta;
    if (aberta != *versao_) throw falhaDeAlteracao();
}

bool Rodada::entradaAlterada() const {
    return versao_ && ambiente_.arquivos.versao(pedido_.nomeArquivo) != versao_;
}

void Rodada::conferirEntrada() const {
    if (entradaAlterada()) throw falhaDeAlteracao();
}

void Rodada::iniciarFase(std::int64_t total) {
    progresso_.inicio = ambiente_.relogio.agora();
    progresso_.totalRegistros = total;
    progresso_.barra = 0;
    ambiente_.painel.iniciarProgresso({.totalRegistros = total, .inicio = progresso_.inicio});
}

Mensagem Rodada::fim(VistaTexto motivo) const {
    return {.texto = Texto(motivo),
            .titulo = Texto(dizeresDe(pedido_.tipoArquivo).tituloDoErro),
            .icone = Mensagem::Icone::Exclamacao,
            .assunto = Mensagem::Assunto::FimDaRodada};
}

/// Notes why the run was not completed, and tells the user.
void Rodada::naoRodar(VistaTexto motivo) {
    resumo_.desfecho = Desfecho::NaoRodou;
    resumo_.descricao = motivo;
    ambiente_.painel.mensagem(fim(motivo));
}

} // namespace quilatador
