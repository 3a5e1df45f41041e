#include "frontend/GruposDeAchados.h"

#include <algorithm>

namespace quilatador {

namespace {

constexpr std::size_t numerosRecentes = 4096;

int ordemDo(const GrupoDeAchados& grupo) {
    if (grupo.primeiro.discutido) return 3;
    if (grupo.primeiro.gravidade == Gravidade::Aviso) return 2;
    return grupo.deConsequencias() ? 1 : 0;
}

/// What findings of one rule have in common within a group. A view of the finding.
VistaTexto assuntoDo(const Achado& achado) {
    if (!achado.campo) return {};
    return achado.gravidade == Gravidade::Ocorrencia ? achado.campo->encontrado : achado.campo->nome;
}

} // namespace

GruposDeAchados::GruposDeAchados() : recentes_(numerosRecentes) {}

void GruposDeAchados::achado(const Achado& achado) {
    GrupoDeAchados* const causa = causaDe(achado);
    GrupoDeAchados& grupo = grupoDe(achado, causa);
    ++grupo.quantidade;
    GrupoDeAchados* const raiz = grupo.deConsequencias() ? causa : &grupo;
    if (grupo.lugares.size() < GrupoDeAchados::maisLugares) {
        grupo.lugares.push_back({achado.n, achado.linha, achado.guia, achado.idGuia});
        dosLugares_[achado.n] = raiz;
    }
    recentes_[static_cast<std::size_t>(achado.n) % numerosRecentes] = {achado.n, raiz};
}

GrupoDeAchados* GruposDeAchados::causaDe(const Achado& achado) const {
    if (achado.causa == 0) return nullptr;
    const auto& [n, recente] = recentes_[static_cast<std::size_t>(achado.causa) % numerosRecentes];
    if (n == achado.causa) return recente;
    const auto lugar = dosLugares_.find(achado.causa);
    return lugar == dosLugares_.end() ? nullptr : lugar->second;
}

GrupoDeAchados& GruposDeAchados::grupoDe(const Achado& achado, GrupoDeAchados* causa) {
    const auto chaveDo = [causa](const Achado& seu) {
        return Chave(seu.id, assuntoDo(seu), seu.gravidade, seu.discutido, seu.causa != 0, causa);
    };
    const auto existente = porChave_.find(chaveDo(achado));
    if (existente != porChave_.end()) return *existente->second;
    GrupoDeAchados& novo = grupos_.emplace_back();
    novo.primeiro = achado;
    novo.causa = causa;
    porChave_.emplace(chaveDo(novo.primeiro), &novo);
    if (causa) causa->consequencias.push_back(&novo);
    return novo;
}

std::vector<const GrupoDeAchados*> GruposDeAchados::emOrdem() const {
    std::vector<const GrupoDeAchados*> ordenados;
    for (const GrupoDeAchados& grupo : grupos_)
        if (!grupo.causa) ordenados.push_back(&grupo);
    std::ranges::stable_sort(ordenados, {}, [](const GrupoDeAchados* grupo) { return ordemDo(*grupo); });
    return ordenados;
}

void GruposDeAchados::limpar() {
    porChave_.clear();
    dosLugares_.clear();
    recentes_.assign(numerosRecentes, {});
    grupos_.clear();
}

} // namespace quilatador
