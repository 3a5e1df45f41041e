#include "cli/Laudos.h"

#include "common/Falha.h"
#include "frontend/Acompanhante.h"

#include <algorithm>

namespace quilatador {

std::filesystem::path Laudos::caminho(const std::filesystem::path& log) const {
    return sessao_.argumentos().caminhoDoLaudo.value_or(caminhoDoLaudo(log));
}

std::optional<Texto> Laudos::recusaDo(const std::filesystem::path& laudo, const PlanoDeLogs& plano,
                                      const std::set<Destino>& logs) {
    auto& ambiente = sessao_.ambiente();
    const auto& csv = sessao_.argumentos().csv;
    if (csv && ambiente.arquivos.destino(*csv) == ambiente.arquivos.destino(laudo))
        return junta("O laudo cairia sobre a tabela de achados: "_t, textoDoCaminho(laudo));
    return recusaDoAcompanhante("O laudo"_t, laudo, plano.entradas, logs, ambiente);
}

bool Laudos::planejar(const PlanoDeLogs& plano) {
    if (!sessao_.argumentos().laudo) return true;
    std::set<Destino> logs;
    for (const LogPlanejado& planejado : plano.logs)
        logs.insert(sessao_.ambiente().arquivos.destino(planejado.log));
    return std::ranges::all_of(plano.logs, [&](const LogPlanejado& planejado) {
        const auto recusa = recusaDo(caminho(planejado.log), plano, logs);
        if (recusa) sessao_.dizer(*recusa);
        return !recusa;
    });
}

Relator* Laudos::iniciar() {
    if (!sessao_.argumentos().laudo) return nullptr;
    return &achados_.emplace();
}

std::optional<std::filesystem::path> Laudos::gravar(const DadosDoLaudo& dados) {
    if (!achados_) return std::nullopt;
    const auto semLaudo = [&](VistaTexto motivo) {
        naoGravar(dados.log, motivo);
        return std::nullopt;
    };
    if (dados.completa.desfecho == Desfecho::Cancelada) return semLaudo("interrompido"_t);
    if (dados.completa.desfecho == Desfecho::NaoRodou) return semLaudo("a conferência não chegou ao fim"_t);
    const std::filesystem::path destino = caminho(dados.log);
    try {
        const auto laudo = fazerLaudo(sessao_.ambiente(), *achados_, dados, sessao_.cancelado());
        if (!laudo) return semLaudo("interrompido"_t);
        const auto saida = sessao_.ambiente().arquivos.criarProvisorio(destino);
        saida->escrever(*laudo);
        saida->confirmar();
    } catch (const Falha& falha) {
        return semLaudo(falha.descricao());
    }
    return destino;
}

void Laudos::naoGravar(const std::filesystem::path& log, VistaTexto motivo) {
    ++faltas_;
    sessao_.dizer(junta("O laudo não foi gravado: "_t, textoDoCaminho(caminho(log)), " ("_t, motivo, ")"_t));
}

} // namespace quilatador
