#pragma once

#include "run/Relator.h"
#include "run/ResumoCompleto.h"
#include "validator/Apontador.h"
#include "validator/completa/Deslize.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <span>
#include <vector>

namespace quilatador {

/// What the checks and the walk over the file report to in a complete check. It numbers the findings, tells each one's
/// cause, counts errors and slips, and hands everything on as it comes. What it remembers to find causes does not grow
/// with the file: faults of the definitions by their fields, and those of the slip in hand.
///
/// Order of use for each slip: `iniciarGuia`, its findings, `encerrarGuia`.
class Coletor final : public Apontador {
  public:
    /// Everything passed here must outlive this object. `cancelada` tells whether the user wants to stop.
    Coletor(const Data& hoje, std::span<Relator* const> ouvintes, std::function<bool()> cancelada)
        : hoje_(hoje), ouvintes_(ouvintes), cancelada_(std::move(cancelada)) {}

    /// Takes a finding whose cause is known: the number of an earlier one, or 0. Returns the number of the cause from
    /// which all of it follows: that of the finding itself, if it has none.
    std::int64_t contar(Achado achado, std::int64_t causa);
    void apontar(Achado achado, std::span<const Fundamento> fundamentos) override;
    void naoLido(const FalhaDeLeitura& falha, const RegistroRemessa& emVerificacao, const Fundamento& campo) override;
    [[nodiscard]] bool falta(const Fundamento& fundamento) override;
    [[nodiscard]] bool naoConferido(char letra) const noexcept override;
    [[nodiscard]] bool completo() const noexcept override { return true; }
    [[nodiscard]] const Data& hoje() const override { return hoje_; }
    [[nodiscard]] bool canceladaAgora() override { return cancelada_(); }

    /// Takes the finding for a whole line that has slipped, from which everything about the line follows, and returns
    /// its number.
    std::int64_t acusarDeslize(const RegistroRemessa& registro, const Deslize& deslize);
    /// Notes that what follows about this part of the file is due to the finding with this number.
    void marcar(const Fundamento& onde, std::int64_t causa) { anotar(onde, causa, Estado::Errado); }
    /// The same for a definition that the file lacks or that cannot be checked: steps that need it are left out.
    void marcarAusente(char letra, std::int64_t causa) { anotar({.letra = letra}, causa, Estado::Ausente); }
    /// The number of the finding from which faults of this part of the file follow; 0 if there is none.
    [[nodiscard]] std::int64_t causaDe(const Fundamento& onde) noexcept;

    /// The line (1-based) that is being looked at, for findings that have none of their own.
    void irParaLinha(std::int64_t linha) noexcept { linhaEmMaos_ = linha; }
    /// Begins a slip: `idGuia` is its identification as it stands in the file, `linha` its first line (1-based).
    void iniciarGuia(std::int64_t ordinal, VistaTexto idGuia, std::int64_t linha);
    /// Leaves a record of the slip in hand out of the check, and so part of the slip.
    void deixarDeConferir(char letra) { naoConferidos_.insert(letra); }
    /// The slip in hand can be checked in part only.
    void conferirEmParte() noexcept { guiaEmParte_ = true; }
    /// Ends the slip in hand and counts it. `conferida` tells whether its content was to be checked.
    void encerrarGuia(bool conferida);
    [[nodiscard]] bool temGuia() const noexcept { return guia_ != 0; }

    [[nodiscard]] ResumoCompleto& resumo() noexcept { return resumo_; }

  private:
    enum class Estado { Errado, Ilegivel, Ausente };
    /// A fault that others may follow from.
    struct Falta {
        Fundamento onde;
        std::int64_t causa;
        Estado estado;
        Texto campo{}; ///< the name of a field that cannot be read
    };

    [[nodiscard]] std::vector<Falta>& faltasDe(char letra) noexcept;
    [[nodiscard]] std::int64_t causaEntre(std::span<const Fundamento> fundamentos);
    void anotar(const Fundamento& onde, std::int64_t causa, Estado estado, VistaTexto campo = {});
    void somar(const Achado& achado);
    /// Counts the slip in hand, and tells that it is not right.
    void contarGuia(std::int64_t& contagem, GuiaConferida::Estado estado);
    void dizerQueFalta(const Falta& falta);

    const Data& hoje_;
    std::span<Relator* const> ouvintes_;
    std::function<bool()> cancelada_;
    ResumoCompleto resumo_;
    std::int64_t n_ = 0;
    std::array<std::vector<Falta>, 27> faltas_;           ///< by the letter of the segment; the last one for any other
    std::set<std::pair<char, std::int16_t>> faltasDitas_; ///< segment and field of what steps were left out for
    std::int64_t guia_ = 0;                               ///< ordinal of the slip in hand; 0 outside of slips
    std::int64_t linhaDaGuia_ = 0;
    std::int64_t linhaEmMaos_ = 1;
    std::int64_t semDeslize_ = 0; ///< the latest line that was found not to have slipped, so as not to search it again
    Texto idGuia_;
    std::set<char> naoConferidos_;
    bool guiaComErro_ = false;
    bool guiaEmParte_ = false;
};

} // namespace quilatador
