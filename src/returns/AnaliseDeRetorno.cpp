#include "returns/AnaliseDeRetorno.h"

#include "common/Falha.h"
#include "returns/TipoDoRetorno.h"

#include <algorithm>

namespace quilatador {

namespace {

constexpr std::uint64_t bytesPorRegistro = 240;

std::int64_t registrosEstimados(std::uint64_t bytes) noexcept {
    return static_cast<std::int64_t>(bytes / bytesPorRegistro);
}

} // namespace

AnaliseDeRetorno::AnaliseDeRetorno(TipoArquivo tipo, Rodada& rodada, const modVariaveis& globais)
    : tipo_(tipo), rodada_(rodada), consultas_(globais.bancoDeDados) {}

std::optional<Texto> AnaliseDeRetorno::preparar() {
    Ambiente& ambiente = rodada_.ambiente();
    try {
        leitor_.emplace(ambiente.arquivos.abrirEntrada(rodada_.nomeArquivo()), rodada_.desistencia());
        rodada_.entradaAberta(leitor_->versao());
        return std::nullopt;
    } catch (const Falha& falha) {
        ambiente.painel.mensagem({.texto = Texto("Erro na abertura do arquivo"_t),
                                  .titulo = Texto("Erro!"_t),
                                  .icone = Mensagem::Icone::Exclamacao,
                                  .assunto = Mensagem::Assunto::FimDaRodada});
        return falha.descricao();
    }
}

Desfecho AnaliseDeRetorno::analisar() {
    Progresso& progresso = rodada_.progresso();
    rodada_.iniciarFase(registrosEstimados(rodada_.ambiente().arquivos.tamanho(rodada_.nomeArquivo())));
    while (!rodada_.cancelada()) {
        const auto linha = leitor_->proxima();
        if (rodada_.cancelada()) break; // it may have been asked in the middle of a line without end
        if (!linha) {
            rodada_.conferirEntrada();
            escreverTotais();
            progresso.barra = progresso.totalRegistros;
            return Desfecho::Concluida;
        }
        progresso.registroAtual = ++rodada_.resumo().totalRegistros;
        progresso.barra = std::min(progresso.registroAtual, progresso.totalRegistros);
        if (linhaAtual() == 1) {
            if (const auto recusa = recusaDoTipo(tipo_, *linha)) return recusar(*recusa);
            tratarHeader(*linha);
        }
        tratarLinha(*linha);
        rodada_.painel().avancar(progresso);
    }
    return Desfecho::Cancelada;
}

/// The log of a file of another type ends like that of a cancelled run.
Desfecho AnaliseDeRetorno::recusar(const Achado& achado) {
    rodada_.conferirEntrada();
    rodada_.escreverErro(achado);
    rodada_.resumo().descricao = achado.mensagem;
    rodada_.escreverCancelamento();
    return Desfecho::Falhou;
}

void AnaliseDeRetorno::mostrar(Rotulo rotulo, VistaTexto texto) {
    rodada_.painel().rotulo(rotulo, texto);
    rodada_.painel().processarEventos();
}

} // namespace quilatador
