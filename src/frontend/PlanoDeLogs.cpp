#include "frontend/PlanoDeLogs.h"

#include "run/NomesDeArquivo.h"

#include <map>
#include <utility>

namespace quilatador {

namespace {

std::filesystem::path logDe(const std::filesystem::path& arquivo, TipoArquivo tipo, const EscolhaDosLogs& escolha) {
    if (escolha.log) return *escolha.log;
    return escolha.pasta ? caminhoDoLogNaPasta(arquivo, *escolha.pasta) : caminhoDoLog(arquivo, tipo);
}

} // namespace

PlanoDeLogs planejarLogs(std::span<const std::filesystem::path> arquivos, const EscolhaDosLogs& escolha,
                         const std::function<TipoArquivo(const std::filesystem::path&)>& tipoDe,
                         const Arquivos& sistema) {
    PlanoDeLogs plano;
    for (const std::filesystem::path& arquivo : arquivos)
        plano.entradas.insert(sistema.destino(arquivo));
    std::set<std::pair<Destino, Destino>> vistos;   // file and log
    std::map<Destino, std::filesystem::path> donos; // by log
    for (const std::filesystem::path& arquivo : arquivos) {
        const TipoArquivo tipo = tipoDe(arquivo);
        LogPlanejado novo{.arquivo = arquivo, .tipo = tipo, .log = logDe(arquivo, tipo, escolha)};
        const Destino log = sistema.destino(novo.log);
        if (!vistos.emplace(sistema.destino(arquivo), log).second) continue;
        const auto [dono, primeiro] = donos.try_emplace(log, arquivo);
        if (!primeiro && !plano.entradas.contains(log)) novo.dono = dono->second;
        plano.logs.push_back(std::move(novo));
    }
    return plano;
}

} // namespace quilatador
