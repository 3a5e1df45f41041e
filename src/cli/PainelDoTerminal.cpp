#include "cli/PainelDoTerminal.h"

#include "cli/TextoNoTerminal.h"

#include <algorithm>

namespace quilatador {

namespace {

using namespace std::chrono_literals;
constexpr Relogio::Instante intervaloDoDesenho = 100ms;
/// Reading the clock takes longer than a record does, so it is read only once per this many records.
constexpr std::int32_t registrosPorLeitura = 512;

} // namespace

PainelDoTerminal::PainelDoTerminal(std::ostream& saida, const Relogio& relogio, Opcoes opcoes)
    : saida_(saida), relogio_(relogio), opcoes_(std::move(opcoes)) {}

void PainelDoTerminal::iniciarProgresso(const Progresso& progresso) {
    if (opcoes_.comProgresso) desenhar(progresso, progresso.inicio);
}

void PainelDoTerminal::avancar(const Progresso& progresso) {
    processarEventos();
    if (!opcoes_.comProgresso || progresso.registroAtual % registrosPorLeitura != 0) return;
    const auto agora = relogio_.agora();
    if (agora - ultimoDesenho_ >= intervaloDoDesenho) desenhar(progresso, agora);
}

void PainelDoTerminal::concluirProgresso(const Progresso&) {
    apagar();
}

void PainelDoTerminal::processarEventos() {
    if (opcoes_.aoAtender) opcoes_.aoAtender();
}

void PainelDoTerminal::mensagem(const Mensagem& mensagem) {
    apagar();
    // The summary of the run tells why it could not be made, and the end of the program that an analysis is over.
    if (mensagem.assunto != Mensagem::Assunto::Problema) return;
    saida_ << paraTerminal(mensagem.texto) << std::endl;
}

void PainelDoTerminal::desenhar(const Progresso& progresso, Relogio::Instante agora) {
    const std::int64_t total = std::max(progresso.totalRegistros, progresso.registroAtual);
    const std::int64_t porCento = total == 0 ? 0 : std::int64_t{100} * progresso.registroAtual / total;
    std::string linha =
        paraTerminal(junta("Registro "_t, textoDe(progresso.registroAtual), " de "_t, textoDe(total), " ("_t,
                           textoDe(porCento), "%)  decorrido "_t, formatarTempo(tempoDecorrido(progresso, agora)),
                           "  restante "_t, formatarTempo(tempoRestante(progresso, agora))));
    linha.resize(std::min(linha.size(), static_cast<std::size_t>(std::max(opcoes_.largura - 1, 0))));
    saida_ << '\r' << linha << "\x1b[K" << std::flush;
    ultimoDesenho_ = agora;
    desenhado_ = true;
}

void PainelDoTerminal::apagar() {
    if (desenhado_) saida_ << "\r\x1b[K" << std::flush;
    desenhado_ = false;
}

} // namespace quilatador
