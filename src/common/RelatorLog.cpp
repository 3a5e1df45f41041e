#include "common/RelatorLog.h"

namespace quilatador {

namespace {
/// Large enough that the system is called rarely, small enough to stay in the processor's cache.
constexpr std::size_t bloco = 64 * 1024;
} // namespace

RelatorLog::RelatorLog(std::unique_ptr<ArquivoSaida> arquivo) : arquivo_(std::move(arquivo)) {
    pendente_.reserve(bloco);
}

void RelatorLog::linha(VistaTexto texto) {
    bytes(texto);
    bytes("\r\n");
}

void RelatorLog::achado(const Achado& achado) {
    if (achado.gravidade == Gravidade::Erro) {
        bytes("** ERRO -> Linha ");
        bytes(comZeros(achado.linha, 6));
        bytes(" - ");
    }
    linha(achado.mensagem);
}

void RelatorLog::resumo(const Resumo&) {} // the run's own plain lines are the log's summary

void RelatorLog::bytes(VistaTexto bytes) {
    if (pendente_.size() + bytes.size() > bloco) esvaziar();
    if (bytes.size() >= bloco) {
        gravar([&] { arquivo_->escrever(bytes); });
    } else {
        pendente_.append(bytes);
    }
}

template <typename Operacao>
void RelatorLog::gravar(Operacao operacao) {
    try {
        operacao();
    } catch (const Falha& falha) {
        throw FalhaDoLog(falha.numero(), "RelatorLog", falha.descricao());
    }
}

void RelatorLog::esvaziar() {
    if (!pendente_.empty()) gravar([&] { arquivo_->escrever(pendente_); });
    pendente_.clear();
}

void RelatorLog::fechar() {
    esvaziar();
    gravar([&] { arquivo_->fechar(); });
}

void avisarFalhaDoLog(Painel& painel, const std::filesystem::path& log, const FalhaDoLog& falha, VistaTexto titulo) {
    painel.mensagem(
        {.texto = junta("Erro na gravação do arquivo de log: "_t, textoDoCaminho(log), " (", falha.descricao(), ")"),
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
    try {
        return std::make_unique<RelatorLog>(ambiente.arquivos.criarSaida(log));
    } catch (const Falha&) {
        return recusar("Erro na criacao do arquivo de log: ");
    }
}

} // namespace quilatador
