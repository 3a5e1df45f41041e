#include "cli/Programa.h"

#include "cli/ComandoData.h"
#include "cli/ComandoLinha.h"
#include "cli/RelatorJson.h"
#include "cli/Sessao.h"
#include "cli/TextosDoResumo.h"
#include "frontend/PlanoDeLogs.h"
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
        , json_(maquina_.saida) {
        if (argumentos_.json) trabalho_.adicionarRelator(json_);
    }
    Chamada(const Chamada&) = delete;
    Chamada& operator=(const Chamada&) = delete;

    int analisarTodos() {
        if (!trabalho_.iniciar() || recusarPastaDeLogs()) return situacao::naoRodou;
        const PlanoDeLogs plano = planejarLogs(
            argumentos_.arquivos, {.log = argumentos_.log, .pasta = argumentos_.pastaDeLogs},
            [this](const auto& arquivo) { return sessao_.tipoDe(arquivo); }, maquina_.arquivos);
        int maior = situacao::nadaEncontrado;
        for (const LogPlanejado& planejado : plano.logs) {
            if (maquina_.interrompido()) break;
            maior = std::max(maior, analisar(planejado, plano.entradas));
            if (!maquina_.saida.good()) return situacao::naoRodou; // nobody would read the results of the other files
        }
        if (comResumo() && plano.logs.size() > 1)
            maquina_.saida << paraTerminal(totais_.texto(plano.logs.size())) << std::endl;
        return maquina_.interrompido() ? situacao::interrompido : maior;
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
        if (argumentos_.json) json_.iniciar(rodada.nomeArquivo(), nomeDo(pedido.tipoArquivo), rodada.nomeArquivoLog());
        auto motivo = recusaDe(pedido);
        if (!motivo) motivo = recusaDoLog(planejado);
        const Resumo resumo = motivo ? naoRodou(*motivo) : trabalho_.analisar(rodada, pedido);
        const int situacaoDoArquivo = situacaoDe(resumo);
        totais_.somar(pedido.tipoArquivo, resumo);
        if (argumentos_.json) json_.terminar(resumo, situacaoDoArquivo);
        resumir(rodada, pedido.tipoArquivo, resumo);
        return situacaoDoArquivo;
    }

    /// What could not be analysed is told on standard error, even to a user who wants no summary.
    void resumir(const Rodada& rodada, TipoArquivo tipo, const Resumo& resumo) {
        const bool rodou = resumo.desfecho != Desfecho::NaoRodou;
        if (rodou && !comResumo()) return;
        const auto escrever = [&](VistaTexto linha) {
            if (rodou)
                maquina_.saida << paraTerminal(linha) << std::endl;
            else
                sessao_.dizer(linha);
        };
        escrever(junta(nomeParaMensagem(rodada.nomeArquivo()), ": "_t, textoDoResumo(tipo, resumo)));
        if (comResumo() && rodada.logGravado()) escrever(junta("  log: "_t, textoDoCaminho(rodada.nomeArquivoLog())));
    }

    Sessao& sessao_;
    const Argumentos& argumentos_;
    const Maquina& maquina_;
    modVariaveis globais_;
    Trabalho trabalho_;
    RelatorJson json_;
    Totais totais_;
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
        break;
    }
    Sessao sessao(argumentos, maquina);
    if (argumentos.acao == Argumentos::Acao::MostrarLinha) return mostrarLinha(sessao);
    if (argumentos.acao == Argumentos::Acao::SugerirData) return sugerirData(sessao);
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
