#pragma once

#include "run/Relator.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quilatador {

/// The slips that are not right, as a report shows them. It takes no more memory than a few thousand of them ask for:
/// of the others only the number is known, from the summary of the check.
class GuiasDoLaudo {
  public:
    static constexpr std::size_t maisGuias = 2000; ///< that are kept one by one

    /// Slips in a row, by their ordinals (1-based, inclusive).
    struct Faixa {
        std::int64_t primeira = 0;
        std::int64_t ultima = 0;

        bool operator==(const Faixa&) const = default;
    };

    /// Takes a slip, in the order of their ordinals. Those that were not checked are kept as ranges only.
    void somar(const GuiaConferida& guia);

    /// The first slips with an error and those that could be checked in part only.
    [[nodiscard]] const std::vector<GuiaConferida>& erradas() const noexcept { return erradas_; }
    /// The right ones among the slips 1 to `lidas`, as far as all others were kept.
    [[nodiscard]] std::vector<Faixa> certas(std::int64_t lidas) const;
    /// How far (1-based ordinal, inclusive) is known of each slip whether it is right.
    [[nodiscard]] std::int64_t conhecidasAte(std::int64_t lidas) const noexcept;
    /// The first and the last slip that was left out; both 0 if none was.
    [[nodiscard]] const Faixa& naoConferidas() const noexcept { return naoConferidas_; }

  private:
    std::vector<GuiaConferida> erradas_;
    Faixa naoConferidas_;
    std::int64_t primeiraForaDaLista_ = 0; ///< the first that is wrong and was not kept; 0 if all were
};

} // namespace quilatador
