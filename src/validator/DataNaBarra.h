#pragma once

#include "common/Data.h"
#include "common/Texto.h"
#include "validator/CampoLivre.h"
#include "validator/FormatosDeData.h"

#include <array>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace quilatador {

/// Finds out where the barcodes of a remittance carry the due date, and in which format: it counts, for every one of
/// `formatosDeData` at every position of the free field, the installments whose barcode has exactly their due date
/// there.
///
/// Order of use: `parcela` for each installment, then `melhores`.
class DataNaBarra {
  public:
    /// One format at one position, and how many installments agree with it.
    struct Candidata {
        VistaTexto formato;
        int posicao = 0; ///< 1-based
        std::int64_t acertos = 0;
    };

    /// `anoCorrente` decides the decade of a year of one digit.
    explicit DataNaBarra(int anoCorrente) noexcept : anoCorrente_(anoCorrente) {}

    /// Counts an installment. `barra` is the barcode without its check digits, from its first position on.
    void parcela(VistaTexto barra, const Data& vencimento);
    /// Adds what another object has counted with the same year.
    void somar(const DataNaBarra& outra) noexcept;
    /// The number of installments counted.
    [[nodiscard]] std::int64_t parcelas() const noexcept { return parcelas_; }
    /// How many installments agree with a format at a position; 0 for one that is not tried.
    [[nodiscard]] std::int64_t acertos(VistaTexto formato, int posicao) const noexcept;
    /// Those with which the most installments agree, in the order of the formats and positions, but those in the format
    /// `preferido` first. Empty if no barcode has its date anywhere.
    [[nodiscard]] std::vector<Candidata> melhores(VistaTexto preferido = {}) const;

  private:
    static constexpr std::size_t posicoes = campoLivre::ultimaPosicao - campoLivre::primeiraPosicao + 1;
    /// A date as each format writes it; "" where it would be read as another date.
    using Escritas = std::array<Texto, formatosDeData.size()>;

    [[nodiscard]] const Escritas& escritasDe(const Data& data);

    int anoCorrente_;
    std::int64_t parcelas_ = 0;
    std::array<std::array<std::int64_t, posicoes>, formatosDeData.size()> acertos_{};
    std::unordered_map<int, Escritas> escritas_; ///< by the serial number of the date
};

} // namespace quilatador
