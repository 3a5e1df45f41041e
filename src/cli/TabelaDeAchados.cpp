#include "cli/TabelaDeAchados.h"

#include "frontend/Acompanhante.h"

namespace quilatador {

bool TabelaDeAchados::abrir(const PlanoDeLogs& plano) {
    const auto& caminho = sessao_.argumentos().csv;
    if (!caminho) return true;
    Arquivos& arquivos = sessao_.ambiente().arquivos;
    std::set<Destino> logs;
    for (const LogPlanejado& planejado : plano.logs)
        logs.insert(arquivos.destino(planejado.log));
    const auto recusa =
        recusaDoAcompanhante("A tabela de achados"_t, *caminho, plano.entradas, logs, sessao_.ambiente());
    if (recusa) {
        sessao_.dizer(*recusa);
        return false;
    }
    try {
        saida_ = arquivos.criarProvisorio(*caminho);
    } catch (const Falha& falha) {
        return recusar(falha.descricao());
    }
    relator_.emplace(*saida_);
    return true;
}

Relator* TabelaDeAchados::arquivo(const std::filesystem::path& caminho) {
    if (!relator_) return nullptr;
    relator_->arquivo(caminho);
    return &*relator_;
}

bool TabelaDeAchados::concluir(bool interrompida) {
    if (!relator_) return true;
    if (interrompida) return recusar("interrompida"_t);
    if (!algumConferido_) return recusar("nenhum arquivo pôde ser conferido"_t);
    try {
        relator_->terminar();
        saida_->confirmar();
        return true;
    } catch (const Falha& falha) {
        return recusar(falha.descricao());
    }
}

bool TabelaDeAchados::recusar(VistaTexto motivo) {
    sessao_.dizer(junta("A tabela de achados não foi gravada: "_t, textoDoCaminho(*sessao_.argumentos().csv), " ("_t,
                        motivo, ")"_t));
    return false;
}

} // namespace quilatador
