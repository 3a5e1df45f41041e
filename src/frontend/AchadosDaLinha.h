#pragma once

#include "layout/Regua.h"
#include "run/Relator.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

namespace quilatador {

/// Keeps what a complete check says about one line, and from what it follows. However many findings there are, this
/// takes little memory: at most `maisAchados` of them are kept, and of the causes the first and the latest are known.
class AchadosDaLinha : public Relator {
  public:
    static constexpr std::size_t maisAchados = 100;

    /// What is known of a finding from which one about the line follows.
    struct Causa {
        std::int64_t n = 0;     ///< as in `Achado`
        std::int64_t linha = 0; ///< as in `Achado`
        Texto mensagem;
    };

    /// `linha` is 1-based.
    explicit AchadosDaLinha(std::int64_t linha);

    void achado(const Achado& achado) override;

    /// The findings about the line, by their numbers.
    [[nodiscard]] const std::vector<Achado>& achados() const noexcept { return achados_; }
    /// How many more there are that were not kept.
    [[nodiscard]] std::int64_t outros() const noexcept { return outros_; }
    /// The cause of one of `achados`. Null if it is a cause itself, or if its cause is not known any more.
    [[nodiscard]] const Causa* causaDe(const Achado& achado) const;

  private:
    void lembrar(const Achado& causa);
    [[nodiscard]] const Causa* lembrada(std::int64_t n) const;

    std::int64_t linha_;
    std::vector<Achado> achados_;
    std::int64_t outros_ = 0;
    std::map<std::int64_t, Causa> causas_; ///< of `achados_`, by their numbers
    std::vector<Causa> primeiras_;         ///< of the file, in their order: those of the definitions stand there
    std::vector<Causa> ultimas_;           ///< the latest cause of each remainder of its number
};

/// A piece of a line, and the findings about it.
struct PedacoMarcado {
    PedacoDaRegua pedaco;
    std::vector<const Achado*> achados;
};

/// Puts each of `achados`, which are about one line and must outlive the result, to the pieces of that line which its
/// field covers at least in part. A finding about no field is with no piece.
[[nodiscard]] std::vector<PedacoMarcado> marcar(std::vector<PedacoDaRegua> regua, std::span<const Achado> achados);

} // namespace quilatador
