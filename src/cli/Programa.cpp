#include "cli/Programa.h"

#include "cli/ComandoConferir.h"
#include "cli/ComandoData.h"
#include "cli/ComandoLinha.h"
#include "cli/Laudos.h"
#include "cli/RelatorDoTerminal.h"
#include "cli/RelatorJson.h"
#include "cli/Sessao.h"
#include "cli/TabelaDeAchados.h"
#include "cli/TextoNoTerminal.h"
#include "cli/TextosDoResumo.h"
#include "frontend/PlanoDeLogs.h"
#include "frontend/TextosDaConferencia.h"
#include "frontend/Trabalho.h"

#include <algorithm>
#include <new>

namespace quilatador {

namespace {

int situacaoDe(const Resumo& resumo) {
    switch (resumo.desfecho) {
    case Desfecho::Concluida:
        return resumo.totalErros == 0 ? situacao::nadaEncontrado : situacao::haAchados;
    case Desfecho::Cancelada:
        return situacao::interrompido;
    case Desfecho::Falhou:
        return situacao::haAchados;
    case Desfecho::NaoRodou:
        return situacao::naoRodou;
    }
    return situacao::naoRodou;
}

int situacaoDe(const ResumoCompleto& completa) {
    switch (completa.desfecho) {
    case Desfecho::Cancelada:
        return situacao::interrompido;
    case Desfecho::NaoRodou:
        return situacao::naoRodou;
    case Desfecho::Concluida:
    case Desfecho::Falhou:
        break;
    }
    return completa.erros + completa.ocorrencias == 0 ? situacao::nadaEncontrado : situacao::haAchados;
}

Resumo naoRodou(VistaTexto motivo) {
    Resumo resumo;
    resumo.desfecho = Desfecho::NaoRodou;
    resumo.descricao = motivo;
    return resumo;
}

/// The reason why a file cannot be analysed as requested; nothing if it can.
std::optional<Texto> recusaDe(const Pedido& pedido) {
    if (auto doNome = recusaDoNome(pedido.nomeArquivo)) return doNome;
    const bool temData = pedido.tipoArquivo == TipoArquivo::ZUL702 && pedido.comData;
    const auto daPosicao = temData ? recusaDaPosicao(pedido.PosicaoDataBarra) : std::nullopt;
    return daPosicao ? daPosicao : Trabalho::recusa(pedido);
}

/// Carries out a command line that asks for analyses.
class Chamada {
  public:
    explicit Chamada(Sessao& sessao)
        : sessao_(sessao)
        , argumentos_(sessao.argumentos())
        , maquina_(sessao.maquina())
        , trabalho_(sessao.ambiente(), globais_, sessao.cancelado())
        , json_(maquina_.saida)
        , noTerminal_(sessao)
        , tabela_(sessao)
        , laudos_(sessao) {
        if (argumentos_.json) trabalho_.adicionarRelator(json_);
    }
    Chamada(const Chamada&) = delete;
    Chamada& operator=(const Chamada&) = delete;

    int analisarTodos() {
        if (!trabalho_.iniciar() || recusarPastaDeLogs()) return situacao::naoRodou;
        const PlanoDeLogs plano = planejarLogs(
            argumentos_.arquivos, {.log = argumentos_.log, .pasta = argumentos_.pastaDeLogs},
            [this](const auto& arquivo) { return sessao_.tipoDe(arquivo); }, maquina_.arquivos);
        if (!laudos_.planejar(plano) || !tabela_.abrir(plano)) return situacao::naoRodou;
        int maior = situacao::nadaEncontrado;
        for (const LogPlanejado& planejado : plano.logs) {
            if (maquina_.interrompido()) break;
            maior = std::max(maior, analisar(planejado, plano.entradas));
            if (!maquina_.saida.good()) return situacao::naoRodou; // nobody would read the results of the other files
        }
        if (comResumo() && plano.logs.size() > 1) concluir(plano.logs);
        const bool interrompida = maquina_.interrompido();
        if (!tabela_.concluir(interrompida)) maior = std::max(maior, situacao::naoRodou);
        return interrompida ? situacao::interrompido : maior;
    }

  private:
    [[nodiscard]] bool comResumo() const { return !argumentos_.json && !argumentos_.silencioso; }

    bool recusarPastaDeLogs() {
        if (!argumentos_.pastaDeLogs || maquina_.arquivos.ehPasta(*argumentos_.pastaDeLogs)) return false;
        sessao_.dizer(
            junta("A pasta dos logs não existe ou não é uma pasta: "_t, textoDoCaminho(*argumentos_.pastaDeLogs)));
        return true;
    }

    [[nodiscard]] Pedido pedidoDe(const LogPlanejado& planejado, const std::set<Destino>& entradas) const {
        Pedido pedido;
        pedido.tipoArquivo = planejado.tipo;
        pedido.nomeArquivo = planejado.arquivo;
        pedido.comData = argumentos_.comData;
        pedido.FormatoDataBarra = argumentos_.formato;
        pedido.PosicaoDataBarra = argumentos_.posicao;
        pedido.nomeArquivoLog = planejado.log;
        pedido.entradas = &entradas;
        pedido.completa = argumentos_.completa;
        pedido.abrirLog = argumentos_.abrir;
        return pedido;
    }

    /// The reason to refuse a file whose log is that of an earlier one, with the way out. Nothing if it is its own.
    [[nodiscard]] std::optional<Texto> recusaDoLog(const LogPlanejado& planejado) const {
        if (!planejado.dono) return std::nullopt;
        return junta("O log seria também o de "_t, textoDoCaminho(*planejado.dono), ": "_t,
                     textoDoCaminho(planejado.log),
                     argumentos_.pastaDeLogs ? ". Analise-o em outra chamada, com outra --pasta-de-logs."_t
                                             : ". Com --pasta-de-logs PASTA cada um tem o seu."_t);
    }

    int analisar(const LogPlanejado& planejado, const std::set<Destino>& entradas) {
        const Pedido pedido = pedidoDe(planejado, entradas);
        Rodada rodada = trabalho_.comecar(pedido);
        if (argumentos_.json) json_.iniciar(pedido, argumentos_.primeiras, rodada.nomeArquivoLog());
        auto motivo = recusaDe(pedido);
        if (!motivo) motivo = recusaDoLog(planejado);
        const Resumo resumo = motivo ? naoRodou(*motivo) : trabalho_.analisar(rodada, pedido);
        totais_.somar(pedido.tipoArquivo, resumo);
        if (argumentos_.json) json_.terminarRodada(resumo);
        resumir(rodada, pedido.tipoArquivo, resumo);
        int situacaoDoArquivo = situacaoDe(resumo);
        const int semLaudo = laudos_.faltas();
        if (argumentos_.completa) situacaoDoArquivo = std::max(situacaoDoArquivo, completar(rodada, pedido, resumo));
        if (laudos_.faltas() > semLaudo) situacaoDoArquivo = std::max(situacaoDoArquivo, situacao::naoRodou);
        if (argumentos_.json) json_.terminar(situacaoDoArquivo);
        return situacaoDoArquivo;
    }

    /// The complete check behind an analysis, if that came to an end of its own, and its status.
    int completar(const Rodada& rodada, const Pedido& pedido, const Resumo& resumo) {
        const bool podeConferir = resumo.desfecho == Desfecho::Concluida || resumo.desfecho == Desfecho::Falhou;
        const ResumoCompleto completa = podeConferir ? conferirTudo(rodada, pedido) : ResumoCompleto();
        if (!podeConferir && argumentos_.json) json_.semCompleta();
        if (podeConferir) gravarLaudo(rodada, pedido, resumo, completa);
        vereditos_.push_back(veredito(resumo, completa, maquina_.localidade.separadorDeMilhar()));
        return situacaoDe(completa);
    }

    void gravarLaudo(const Rodada& rodada, const Pedido& pedido, const Resumo& resumo, const ResumoCompleto& completa) {
        const auto laudo = laudos_.gravar({.pedido = pedido,
                                           .resumo = resumo,
                                           .completa = completa,
                                           .versao = rodada.versaoDaEntrada(),
                                           .log = rodada.nomeArquivoLog(),
                                           .primeiras = argumentos_.primeiras,
                                           .programa = QUILATADOR_VERSAO ""_t});
        if (!laudo || !comResumo()) return;
        sessao_.limparTela();
        maquina_.saida << paraTerminal(junta("  laudo: "_t, textoDoCaminho(*laudo))) << std::endl;
    }

    ResumoCompleto conferirTudo(const Rodada& rodada, const Pedido& pedido) {
        std::vector<Relator*> ouvintes;
        if (argumentos_.json) {
            json_.iniciarCompleta();
            ouvintes.push_back(&json_);
        } else if (comResumo()) {
            ouvintes.push_back(&noTerminal_);
        }
        if (Relator* const tabela = tabela_.arquivo(rodada.nomeArquivo())) ouvintes.push_back(tabela);
        if (Relator* const laudo = laudos_.iniciar()) ouvintes.push_back(laudo);
        ResumoCompleto completa = trabalho_.conferirTudo(rodada, pedido, ouvintes);
        if (completa.desfecho != Desfecho::NaoRodou) tabela_.arquivoConferido();
        if (argumentos_.json) json_.terminarCompleta(completa);
        if (comResumo()) noTerminal_.terminar(completa);
        if (completa.desfecho == Desfecho::NaoRodou)
            sessao_.dizer(junta(nomeParaMensagem(rodada.nomeArquivo()), ": não foi possível conferir tudo: "_t,
                                completa.descricao));
        return completa;
    }

    /// What is said of several files together.
    void concluir(const std::vector<LogPlanejado>& planejados) {
        separar();
        maquina_.saida << paraTerminal(totais_.texto(planejados.size(), argumentos_.completa)) << std::endl;
        if (!argumentos_.completa) return;
        vereditos_.resize(planejados.size(), {.sinal = Veredito::Sinal::Atencao, .texto = Texto("Não analisado"_t)});
        for (std::size_t i = 0; i < planejados.size(); ++i)
            noTerminal_.escreverVeredito(nomeParaMensagem(planejados[i].arquivo), vereditos_[i]);
    }

    /// Sets what comes now off from the findings of the file before.
    void separar() {
        if (!vereditos_.empty()) maquina_.saida << '\n';
    }

    /// What could not be analysed is told on standard error, even to a user who wants no summary.
    void resumir(const Rodada& rodada, TipoArquivo tipo, const Resumo& resumo) {
        const bool rodou = resumo.desfecho != Desfecho::NaoRodou;
        if (rodou && !comResumo()) return;
        if (rodou) separar();
        const auto escrever = [&](VistaTexto linha) {
            if (rodou)
                maquina_.saida << paraTerminal(linha) << std::endl;
            else
                sessao_.dizer(linha);
        };
        escrever(
            junta(nomeParaMensagem(rodada.nomeArquivo()), ": "_t, textoDoResumo(tipo, resumo, argumentos_.completa)));
        if (comResumo() && rodada.logGravado()) escrever(junta("  log: "_t, textoDoCaminho(rodada.nomeArquivoLog())));
    }

    Sessao& sessao_;
    const Argumentos& argumentos_;
    const Maquina& maquina_;
    modVariaveis globais_;
    Trabalho trabalho_;
    RelatorJson json_;
    RelatorDoTerminal noTerminal_;
    TabelaDeAchados tabela_;
    Laudos laudos_;
    Totais totais_;
    std::vector<Veredito> vereditos_; ///< of the files so far, in their order
};

int atender(const Argumentos& argumentos, const Maquina& maquina) {
    switch (argumentos.acao) {
    case Argumentos::Acao::MostrarAjuda:
        maquina.saida << utf8DeTexto(textoDeAjuda()) << std::flush;
        return situacao::nadaEncontrado;
    case Argumentos::Acao::MostrarVersao:
        maquina.saida << utf8DeTexto(textoDaVersao()) << std::flush;
        return situacao::nadaEncontrado;
    case Argumentos::Acao::Recusar:
        maquina.erros << paraTerminal(argumentos.motivo) << "\nUse --ajuda para ver o uso." << std::endl;
        return situacao::naoRodou;
    case Argumentos::Acao::Analisar:
    case Argumentos::Acao::MostrarLinha:
    case Argumentos::Acao::SugerirData:
    case Argumentos::Acao::Conferir:
        break;
    }
    Sessao sessao(argumentos, maquina);
    if (argumentos.acao == Argumentos::Acao::MostrarLinha) return mostrarLinha(sessao);
    if (argumentos.acao == Argumentos::Acao::SugerirData) return sugerirData(sessao);
    if (argumentos.acao == Argumentos::Acao::Conferir) return conferirLaudo(sessao);
    return Chamada(sessao).analisarTodos();
}

} // namespace

int executar(std::vector<std::string> argumentos, const Maquina& maquina) {
    try {
        const int resultado = atender(lerArgumentos(std::move(argumentos)), maquina);
        return maquina.saida.good() ? resultado : std::max(resultado, situacao::naoRodou);
    } catch (const std::bad_alloc&) {
        maquina.erros << paraTerminal(memoriaInsuficiente) << std::endl;
        return situacao::naoRodou;
    }
}

} // namespace quilatador
