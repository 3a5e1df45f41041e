#pragma once

#include "frontend/laudo/Html.h"
#include "frontend/TextosDaConferencia.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace quilatador::laudo {

/// The sign of a class of the style sheet ("ruim", "atencao", "bom", "parte", "nada"), in whose colour it is drawn.
[[nodiscard]] std::string sinal(std::string_view classe);
/// The name of a file without its folder.
[[nodiscard]] Texto nomeSemPasta(const std::filesystem::path& caminho);
/// The place of a finding, capitalised; "" where it has none.
[[nodiscard]] std::string lugarEmHtml(std::int64_t linha, std::int64_t guia, VistaTexto idGuia = {});
/// The start of a table within a section, up to its rows. `titulos` are its headings, and a heading that begins with
/// "#" is that of a column of numbers.
[[nodiscard]] std::string inicioDaTabela(std::string_view nome, std::initializer_list<std::string_view> titulos);
inline constexpr std::string_view fimDaTabela = "</tbody></table></div>\n";

/// Writes the numbers of a report, all with the same separator of thousands.
class NumerosDoLaudo {
  public:
    explicit NumerosDoLaudo(VistaTexto milhar) : milhar_(milhar) {}

    [[nodiscard]] const Texto& milhar() const noexcept { return milhar_; }
    [[nodiscard]] std::string numero(std::int64_t numero) const;
    [[nodiscard]] std::string contar(std::int64_t numero, VistaTexto singular, VistaTexto plural) const;

  private:
    Texto milhar_;
};

} // namespace quilatador::laudo
