#pragma once

#include "run/Relator.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <tuple>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quilatador {

/// A place where a finding was made. Its members are those of `Achado`.
struct LugarDoAchado {
    std::int64_t n = 0;
    std::int64_t linha = 0;
    std::int64_t guia = 0;
    Texto idGuia;
};

/// All findings of one rule about one field that are of the same kind: causes, or consequences of one group of causes.
/// Of occurrences it is one code, in whichever field of a record it stands.
struct GrupoDeAchados {
    static constexpr std::size_t maisLugares = 25; ///< that a group keeps

    Achado primeiro;                    ///< the first of them, whole
    std::int64_t quantidade = 0;        ///< of all of them
    std::vector<LugarDoAchado> lugares; ///< of the first of them, in their order
    /// The group of the cause from which they follow. Null if they are causes, or if that cause is not known any more.
    const GrupoDeAchados* causa = nullptr;
    std::vector<const GrupoDeAchados*> consequencias; ///< groups whose `causa` is this one, in the order of their first

    /// Whether they follow from other findings, known or not.
    [[nodiscard]] bool deConsequencias() const noexcept { return primeiro.causa != 0; }
};

/// Sums up the findings of a complete check by rule and field, and puts the consequences with their causes: a
/// consequence of a consequence belongs to the cause of both. However many findings there are, this takes no more
/// memory than the rules, fields and codes ask for: of the causes themselves only the numbers of the first places of
/// each group and of the latest few thousand are known. A cause that is known no more counts as another one.
class GruposDeAchados : public Relator {
  public:
    GruposDeAchados();
    GruposDeAchados(const GruposDeAchados&) = delete;
    GruposDeAchados& operator=(const GruposDeAchados&) = delete;

    void achado(const Achado& achado) override;

    /// The groups that are not put with another one, as a reader wants them: errors and occurrences, then consequences
    /// whose cause is not known, warnings, and what is disputed; the first finding decides within each. They live as
    /// long as this object, or up to `limpar`.
    [[nodiscard]] std::vector<const GrupoDeAchados*> emOrdem() const;
    /// Forgets all findings.
    void limpar();

  private:
    /// Rule, field or code, gravity, whether disputed, whether of consequences, and the cause. The views are those of
    /// the group's first finding.
    using Chave = std::tuple<VistaTexto, VistaTexto, Gravidade, bool, bool, const GrupoDeAchados*>;
    using Numerado = std::pair<std::int64_t, GrupoDeAchados*>; ///< number of a finding, and its group of causes

    [[nodiscard]] GrupoDeAchados* causaDe(const Achado& achado) const;
    [[nodiscard]] GrupoDeAchados& grupoDe(const Achado& achado, GrupoDeAchados* causa);

    std::deque<GrupoDeAchados> grupos_; ///< whose elements stay where they are
    std::map<Chave, GrupoDeAchados*> porChave_;
    std::unordered_map<std::int64_t, GrupoDeAchados*> dosLugares_;
    std::vector<Numerado> recentes_; ///< the latest finding of each remainder
};

} // namespace quilatador
