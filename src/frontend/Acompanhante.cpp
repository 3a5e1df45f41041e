#include "frontend/Acompanhante.h"

#include "frontend/Pedido.h"

#include <algorithm>

namespace quilatador {

std::optional<Texto> recusaDoAcompanhante(VistaTexto nome, const std::filesystem::path& caminho,
                                          const std::set<Destino>& entradas, const std::set<Destino>& logs,
                                          const Ambiente& ambiente) {
    const Destino lugar = ambiente.arquivos.destino(caminho);
    const auto recusa = [&](VistaTexto vitima) {
        return junta(nome, " cairia sobre "_t, vitima, ": "_t, textoDoCaminho(caminho));
    };
    const auto ehDele = [&](const auto& outro) { return lugar == ambiente.arquivos.destino(outro); };
    if (entradas.contains(lugar)) return recusa("um dos arquivos a analisar"_t);
    if (logs.contains(lugar)) return recusa("o log de um dos arquivos a analisar"_t);
    if (std::ranges::any_of(ambiente.arquivosDoPrograma(), ehDele)) return recusa("um arquivo do próprio programa"_t);
    if (const auto tipo = reconhecerTipo(caminho, ambiente.arquivos))
        return recusa(junta("um arquivo "_t, nomeDo(*tipo)));
    return std::nullopt;
}

} // namespace quilatador
