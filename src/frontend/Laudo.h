#pragma once

#include "frontend/GruposDeAchados.h"
#include "frontend/laudo/GuiasDoLaudo.h"
#include "frontend/Pedido.h"
#include "run/Ambiente.h"
#include "run/ResumoCompleto.h"

#include <atomic>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace quilatador {

/// What a report shows of a complete check: listens to it, and takes no more memory than the rules and a few thousand
/// slips ask for.
class AchadosDoLaudo final : public Relator {
  public:
    void achado(const Achado& achado) override { grupos_.achado(achado); }
    void guia(const GuiaConferida& guia) override { guias_.somar(guia); }

    [[nodiscard]] const GruposDeAchados& grupos() const noexcept { return grupos_; }
    [[nodiscard]] const GuiasDoLaudo& guias() const noexcept { return guias_; }

  private:
    GruposDeAchados grupos_;
    GuiasDoLaudo guias_;
};

/// What a report is about, besides the findings. What it refers to must outlive it.
struct DadosDoLaudo {
    const Pedido& pedido;
    const Resumo& resumo; ///< of the analysis, which came to an end of its own
    const ResumoCompleto& completa;
    std::optional<VersaoDoArquivo> versao{}; ///< the state of the file that both are about; nothing for any
    std::filesystem::path log{};
    std::optional<double> primeiras{}; ///< number of slips that were asked for; nothing for all
    VistaTexto programa{};             ///< the program's version
};

/// No report has more bytes. What does not fit is left out from the details of the later findings on, and it says so.
inline constexpr std::size_t maiorLaudo = 2'000'000;

/// Where the report of a file lies, unless the user says otherwise: beside the log, under its name with ".laudo.html"
/// behind it.
[[nodiscard]] std::filesystem::path caminhoDoLaudo(const std::filesystem::path& log);

/// Writes the report of a file: one HTML document in UTF-8 that needs nothing else, for the screen and for paper. It
/// reads the file once more for the lines of the first findings; that file must still be the one of the check. Nothing
/// if the user cancels; `cancelado` is that of `Rodada`. Raises the failures of `lerReguas`.
[[nodiscard]] std::optional<std::string> fazerLaudo(const Ambiente& ambiente, const AchadosDoLaudo& achados,
                                                    const DadosDoLaudo& dados, const std::atomic<bool>& cancelado);

/// The SHA-256 of the file that a report is about, in lower-case hexadecimal; "" if the report does not tell it.
/// Nothing if the file is no report. Raises the failures of `Arquivos::abrirEntrada` and `ArquivoEntrada::ler`.
[[nodiscard]] std::optional<std::string> somaNoLaudo(const std::filesystem::path& laudo, Arquivos& arquivos);

} // namespace quilatador
