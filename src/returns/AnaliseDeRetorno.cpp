#include "returns/AnaliseDeRetorno.h"

#include "common/Falha.h"
#include "run/NomesDeArquivo.h"

#include <algorithm>
#include <limits>
#include <new>

namespace quilatador {

namespace {

constexpr VistaTexto tituloDasMensagens = "Erro!";
constexpr std::uint64_t bytesPorRegistro = 240;

std::int32_t registrosEstimados(std::uint64_t bytes) noexcept {
    constexpr std::uint64_t maximo = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::min(bytes / bytesPorRegistro, maximo));
}

} // namespace

AnaliseDeRetorno::AnaliseDeRetorno(Ambiente& ambiente, const modVariaveis& globais, const PedidoDeRetorno& pedido)
    : ambiente_(ambiente)
    , pedido_(pedido)
    , nomeArquivoLog_(pedido.log ? *pedido.log : caminhoDoLog(pedido.nomeArquivo, ".log"))
    , consultas_(globais.bancoDeDados) {}

ResultadoRetorno AnaliseDeRetorno::executar(const std::atomic<bool>& cancelado) {
    resumo_.desfecho = Desfecho::NaoRodou;
    try {
        rodar(cancelado);
    } catch (const std::bad_alloc&) {
        resumo_.desfecho = Desfecho::NaoRodou;
        resumo_.descricao = memoriaInsuficiente;
        avisarFaltaDeMemoria(ambiente_.painel, tituloDasMensagens);
    }
    for (Relator* const ouvinte : pedido_.ouvintes)
        ouvinte->resumo(resumo_);
    return {resumo_};
}

void AnaliseDeRetorno::rodar(const std::atomic<bool>& cancelado) {
    auto leitor = abrirEntrada(cancelado);
    if (!leitor) return;
    log_ = criarLog(ambiente_, pedido_.nomeArquivo, nomeArquivoLog_, tituloDasMensagens);
    if (!log_) return;
    try {
        escrever(tituloDoLog(pedido_.nomeArquivo, formatarData(ambiente_.relogio.hoje(), "DD/MM/YYYY")));
        escrever("");
        analisar(*leitor, cancelado);
        log_->fechar();
        ambiente_.lancador.abrirTexto(nomeArquivoLog_);
    } catch (const FalhaDoLog& falha) {
        resumo_.desfecho = Desfecho::NaoRodou;
        resumo_.descricao = falha.descricao();
        avisarFalhaDoLog(ambiente_.painel, nomeArquivoLog_, falha, tituloDasMensagens);
    }
}

std::optional<LeitorDeLinhas> AnaliseDeRetorno::abrirEntrada(const std::atomic<bool>& cancelado) {
    try {
        return LeitorDeLinhas(ambiente_.arquivos.abrirEntrada(pedido_.nomeArquivo), [this, &cancelado] {
            ambiente_.painel.processarEventos();
            return cancelado.load();
        });
    } catch (const Falha& falha) {
        resumo_.descricao = falha.descricao();
        ambiente_.painel.mensagem({.texto = "Erro na abertura do arquivo",
                                   .titulo = Texto(tituloDasMensagens),
                                   .icone = Mensagem::Icone::Exclamacao});
        return std::nullopt;
    }
}

void AnaliseDeRetorno::analisar(LeitorDeLinhas& leitor, const std::atomic<bool>& cancelado) {
    Progresso progresso{.totalRegistros = registrosEstimados(ambiente_.arquivos.tamanho(pedido_.nomeArquivo)),
                        .inicio = ambiente_.relogio.agora()};
    ambiente_.painel.iniciarProgresso(progresso);
    try {
        resumo_.desfecho = percorrer(leitor, progresso, cancelado);
    } catch (const FalhaDoLog&) {
        throw;
    } catch (const Falha& falha) {
        naoCompletar(falha);
    } catch (const std::bad_alloc&) {
        naoCompletar(Falha(numeroDeFalha::memoriaInsuficiente, "AnaliseDeRetorno", Texto(memoriaInsuficiente)));
    }
    ambiente_.painel.concluirProgresso(progresso);
}

Desfecho AnaliseDeRetorno::percorrer(LeitorDeLinhas& leitor, Progresso& progresso, const std::atomic<bool>& cancelado) {
    const auto cancelar = [&](Desfecho desfecho) {
        escrever("");
        escrever("TRATAMENTO CANCELADO!!!");
        return desfecho;
    };
    const VersaoDoArquivo versao = leitor.versao();
    while (!cancelado) {
        const auto linha = leitor.proxima();
        if (!linha) {
            if (leitor.versao() != versao)
                throw Falha(numeroDeFalha::arquivoAlterado, "AnaliseDeRetorno", Texto(arquivoAlterado));
            escreverTotais();
            progresso.registroAtual = progresso.totalRegistros;
            return Desfecho::Concluida;
        }
        progresso.registroAtual = ++resumo_.totalRegistros;
        if (linhaAtual() == 1) {
            if (const auto recusa = tratarHeader(*linha)) {
                escrever(*recusa);
                resumo_.descricao = recusa->mensagem;
                return cancelar(Desfecho::Falhou);
            }
        }
        tratarLinha(*linha);
        ambiente_.painel.avancar(progresso);
    }
    return cancelar(Desfecho::Cancelada);
}

void AnaliseDeRetorno::naoCompletar(const Falha& falha) {
    escrever(falha.descricao());
    resumo_.desfecho = falha.doAmbiente() ? Desfecho::NaoRodou : Desfecho::Falhou;
    resumo_.descricao = falha.descricao();
}

void AnaliseDeRetorno::escrever(VistaTexto linha) {
    log_->linha(linha);
    for (Relator* const ouvinte : pedido_.ouvintes)
        ouvinte->linha(linha);
}

void AnaliseDeRetorno::escrever(const Achado& achado) {
    log_->achado(achado);
    for (Relator* const ouvinte : pedido_.ouvintes)
        ouvinte->achado(achado);
}

void AnaliseDeRetorno::entregarLinhas(VistaTexto linhas) {
    constexpr VistaTexto fimDeLinha = "\r\n";
    while (!linhas.empty()) {
        const VistaTexto linha = linhas.substr(0, linhas.find(fimDeLinha));
        for (Relator* const ouvinte : pedido_.ouvintes)
            ouvinte->linha(linha);
        linhas.remove_prefix(std::min(linha.size() + fimDeLinha.size(), linhas.size()));
    }
}

void AnaliseDeRetorno::mostrar(Rotulo rotulo, VistaTexto texto) {
    ambiente_.painel.rotulo(rotulo, texto);
    ambiente_.painel.processarEventos();
}

} // namespace quilatador
