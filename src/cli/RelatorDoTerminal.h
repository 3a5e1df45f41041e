#pragma once

#include "cli/Sessao.h"
#include "frontend/GruposDeAchados.h"
#include "frontend/TextosDaConferencia.h"
#include "run/ResumoCompleto.h"

#include <ostream>
#include <string>
#include <string_view>

namespace quilatador {

/// Prints the findings of complete checks for a person: summed up at the end of each check, 50 blocks at most, or with
/// `--todos` each finding as it comes. Colours are used where the output is a terminal that has them.
///
/// Order of use for each file: the check with this as a listener, then `terminar`. `escreverVeredito` at the end.
class RelatorDoTerminal : public Relator {
  public:
    /// Keeps a reference, which must outlive this object.
    explicit RelatorDoTerminal(Sessao& sessao);

    void achado(const Achado& achado) override;
    /// Prints what is left of the findings, and the summary.
    void terminar(const ResumoCompleto& completa);
    /// Prints the line of a file in the list of all of them.
    void escreverVeredito(VistaTexto arquivo, const Veredito& julgado);

  private:
    void escreverBloco(const Achado& achado);
    void escreverGrupo(const GrupoDeAchados& grupo);
    void escreverLugares(const GrupoDeAchados& grupo);
    void escreverConsequencias(const GrupoDeAchados& grupo);
    void escreverGrupos();
    [[nodiscard]] std::string pintado(std::string_view texto, std::string_view cor) const;

    Sessao& sessao_;
    std::ostream& saida_;
    Texto milhar_;
    GruposDeAchados grupos_;
};

} // namespace quilatador
