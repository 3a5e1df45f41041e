#include "cli/Programa.h"

#include "cli/PainelDoTerminal.h"
#include "cli/RelatorJson.h"
#include "frontend/Trabalho.h"

#include <algorithm>
#include <atomic>
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

Resumo naoRodou() {
    Resumo resumo;
    resumo.desfecho = Desfecho::NaoRodou;
    return resumo;
}

Texto contagem(std::int64_t numero, VistaTexto singular, VistaTexto plural) {
    return junta(textoDe(numero), " "_t, numero == 1 ? singular : plural);
}

/// The summary of a completed analysis.
Texto achadosDe(TipoArquivo tipo, const Resumo& resumo) {
    switch (tipo) {
    case TipoArquivo::ZUL702:
        return junta(contagem(resumo.totalErros, "erro"_t, "erros"_t), "; "_t,
                     contagem(resumo.guiasDepuradas, "guia lida"_t, "guias lidas"_t));
    case TipoArquivo::ZUL708:
        return contagem(resumo.totalErros, "registro com ocorrência"_t, "registros com ocorrência"_t);
    case TipoArquivo::TAV001:
        return contagem(resumo.totalRegistros, "registro lido"_t, "registros lidos"_t);
    }
    return {};
}

/// Carries out one command line.
class Chamada {
  public:
    Chamada(const Argumentos& argumentos, const Maquina& maquina)
        : argumentos_(argumentos)
        , maquina_(maquina)
        , painel_(maquina.erros, maquina.relogio,
                  {.comProgresso = maquina.errosNoTerminal && !argumentos.silencioso,
                   .largura = maquina.larguraDoTerminal,
                   .primeiras = argumentos.primeiras,
                   .aoAtender = [this] { atenderInterrupcao(); }})
        , ambiente_{painel_,          maquina.relogio,  maquina.localidade,
                    maquina.lancador, maquina.arquivos, argumentos.pasta.value_or(maquina.pastaDoPrograma)}
        , trabalho_(ambiente_, globais_, cancelado_)
        , json_(maquina.saida) {
        if (argumentos_.json) trabalho_.adicionarRelator(json_);
    }
    Chamada(const Chamada&) = delete;
    Chamada& operator=(const Chamada&) = delete;

    int analisarTodos() {
        if (!trabalho_.iniciar() || (argumentos_.comData && recusarPosicao())) return situacao::naoRodou;
        int maior = situacao::nadaEncontrado;
        for (const std::filesystem::path& arquivo : argumentos_.arquivos) {
            if (maquina_.interrompido()) break;
            maior = std::max(maior, analisar(arquivo));
            if (!maquina_.saida.good()) return situacao::naoRodou; // nobody would read the results of the other files
        }
        return maquina_.interrompido() ? situacao::interrompido : maior;
    }

  private:
    void atenderInterrupcao() {
        if (maquina_.interrompido()) cancelado_ = true;
    }

    bool recusarPosicao() {
        const auto motivo = recusaDaPosicao(argumentos_.posicao);
        if (motivo) painel_.mensagem({.texto = *motivo, .titulo = Texto(tituloDoPrograma)});
        return motivo.has_value();
    }

    int analisar(const std::filesystem::path& arquivo) {
        Pedido pedido;
        // A file of unknown type is taken for a remittance, whose first finding says that it is none.
        pedido.tipoArquivo = argumentos_.tipo
                                 ? *argumentos_.tipo
                                 : reconhecerTipo(arquivo, maquina_.arquivos).value_or(TipoArquivo::ZUL702);
        pedido.nomeArquivo = arquivo;
        pedido.comData = argumentos_.comData;
        pedido.FormatoDataBarra = argumentos_.formato;
        pedido.PosicaoDataBarra = argumentos_.posicao;
        pedido.nomeArquivoLog = argumentos_.log;
        pedido.abrirLog = argumentos_.abrir;
        Rodada rodada = trabalho_.comecar(pedido);
        if (argumentos_.json) json_.iniciar(rodada.nomeArquivo(), nomeDo(pedido.tipoArquivo), rodada.nomeArquivoLog());
        const Resumo resumo = analisar(rodada, pedido);
        const int situacaoDoArquivo = situacaoDe(resumo);
        if (argumentos_.json)
            json_.terminar(resumo, situacaoDoArquivo);
        else if (!argumentos_.silencioso)
            resumir(rodada, pedido.tipoArquivo, resumo);
        return situacaoDoArquivo;
    }

    Resumo analisar(Rodada& rodada, const Pedido& pedido) {
        const auto motivo = Trabalho::recusa(pedido);
        if (!motivo) return trabalho_.analisar(rodada, pedido);
        painel_.mensagem({.texto = *motivo, .titulo = Texto(tituloDoPrograma)});
        return naoRodou();
    }

    void resumir(const Rodada& rodada, TipoArquivo tipo, const Resumo& resumo) {
        Texto texto;
        switch (resumo.desfecho) {
        case Desfecho::Concluida:
            texto = achadosDe(tipo, resumo);
            break;
        case Desfecho::Cancelada:
            texto = "análise cancelada"_t;
            break;
        case Desfecho::Falhou:
            texto = "análise interrompida por erro no arquivo"_t;
            if (resumo.linhaDaParada > 0) texto += junta(", linha "_t, textoDe(resumo.linhaDaParada));
            break;
        case Desfecho::NaoRodou:
            texto = "não foi possível analisar"_t;
            break;
        }
        if (!resumo.descricao.empty()) texto += junta(": "_t, resumo.descricao);
        maquina_.saida << paraTerminal(textoDoCaminho(rodada.nomeArquivo())) << ": " << paraTerminal(texto) << '\n'
                       << "  log: " << paraTerminal(textoDoCaminho(rodada.nomeArquivoLog())) << std::endl;
    }

    const Argumentos& argumentos_;
    const Maquina& maquina_;
    modVariaveis globais_;
    std::atomic<bool> cancelado_ = false;
    PainelDoTerminal painel_;
    Ambiente ambiente_;
    Trabalho trabalho_;
    RelatorJson json_;
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
        break;
    }
    return Chamada(argumentos, maquina).analisarTodos();
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
