#include "run/RelatorLog.h"

namespace quilatador {

namespace {
/// Room for what the line that fills a block has beyond it.
constexpr std::size_t folga = 64 * 1024;
} // namespace

RelatorLog::RelatorLog(std::unique_ptr<ArquivoSaida> arquivo) : arquivo_(std::move(arquivo)), pendente_(bloco + folga) {
    static_assert(bloco % tamanhoDaPagina == 0);
}

void RelatorLog::linha(VistaTexto texto) {
    escrever(texto);
}

void RelatorLog::achado(const Achado& achado) {
    if (achado.gravidade == Gravidade::Erro)
        escrever("** ERRO -> Linha "_t, comZeros(achado.linha, 6), " - "_t, achado.mensagem);
    else
        escrever(achado.mensagem);
}

template <typename... Pedacos>
void RelatorLog::escrever(const Pedacos&... pedacos) {
    constexpr VistaTexto fimDeLinha = "\r\n"_t;
    Bloco::Caneta caneta = comecar((VistaTexto(pedacos).size() + ...) + fimDeLinha.size());
    caneta.append(pedacos..., fimDeLinha);
    terminar(caneta);
}

void RelatorLog::resumo(const Resumo&) {} // the run's own plain lines are the log's summary

void RelatorLog::gravarBlocos() {
    while (pendente_.texto().size() >= bloco) {
        gravar([&] { arquivo_->escrever(bytesDoTexto(pendente_.texto().substr(0, bloco))); });
        pendente_.descartar(bloco);
    }
}

template <typename Operacao>
void RelatorLog::gravar(Operacao operacao) {
    try {
        operacao();
    } catch (const Falha& falha) {
        throw FalhaDoLog(falha.numero(), "RelatorLog"_t, falha.descricao());
    }
}

void RelatorLog::fechar() {
    if (const VistaTexto resto = pendente_.texto(); !resto.empty())
        gravar([&] { arquivo_->escrever(bytesDoTexto(resto)); });
    pendente_.descartar(pendente_.texto().size());
    gravar([&] { arquivo_->fechar(); });
}

void avisarFaltaDeMemoria(Painel& painel, VistaTexto titulo) {
    painel.mensagem(
        {.texto = Texto(memoriaInsuficiente), .titulo = Texto(titulo), .icone = Mensagem::Icone::Exclamacao});
}

void avisarFalhaDoLog(Painel& painel, const std::filesystem::path& log, const FalhaDoLog& falha, VistaTexto titulo) {
    painel.mensagem({.texto = junta("Erro na gravação do arquivo de log: "_t, textoDoCaminho(log), " ("_t,
                                    falha.descricao(), ")"_t),
                     .titulo = Texto(titulo),
                     .icone = Mensagem::Icone::Exclamacao});
}

std::unique_ptr<RelatorLog> criarLog(Ambiente& ambiente, const std::filesystem::path& analisado,
                                     const std::filesystem::path& log, VistaTexto titulo) {
    const auto recusar = [&](VistaTexto motivo) {
        ambiente.painel.mensagem({.texto = junta(motivo, textoDoCaminho(log)),
                                  .titulo = Texto(titulo),
                                  .icone = Mensagem::Icone::Exclamacao});
        return nullptr;
    };
    if (ambiente.arquivos.mesmoArquivo(analisado, log))
        return recusar("O arquivo de log seria o próprio arquivo analisado: "_t);
    for (const std::filesystem::path& doPrograma : {ambiente.leiaute(), ambiente.bancoDeDados()})
        if (ambiente.arquivos.mesmoArquivo(doPrograma, log))
            return recusar("O arquivo de log seria um arquivo do próprio programa: "_t);
    try {
        return std::make_unique<RelatorLog>(ambiente.arquivos.criarSaida(log));
    } catch (const Falha&) {
        return recusar("Erro na criacao do arquivo de log: "_t);
    }
}

} // namespace quilatador
