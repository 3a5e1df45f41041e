#pragma once

#include "common/Arquivos.h"
#include "common/Texto.h"
#include "run/TipoArquivo.h"

#include <filesystem>
#include <optional>
#include <set>

namespace quilatador {

/// The formats of the due date in the barcode that the programs offer besides `formatoInicial`. The user may enter
/// another.
inline constexpr VistaTexto formatosOferecidos[] = {"AAAAMMDD"_t, "AAMMDD"_t, "DDMMAAAA"_t,
                                                    "DDMMAA"_t,   "DDDA"_t,   "AADDD"_t};
inline constexpr VistaTexto formatoInicial = "ADDD"_t;
inline constexpr VistaTexto posicaoInicial = "20"_t;
inline constexpr VistaTexto numeroDeGuiasInicial = "50"_t;

/// One analysis as the user requests it. How many slips to check is not part of it: the run asks the display.
struct Pedido {
    TipoArquivo tipoArquivo = TipoArquivo::ZUL702;
    std::filesystem::path nomeArquivo; ///< passed on unchanged; the analysis reports a missing file
    bool comData = false;              ///< whether the barcodes of the slips carry a due date
    Texto FormatoDataBarra = Texto(formatoInicial);
    double PosicaoDataBarra = 20;                        ///< 1-based position of that date in the barcode
    std::optional<std::filesystem::path> nomeArquivoLog; ///< replaces the usual log beside the file
    /// All files of the call, if there are more: see `PedidoDeRodada::intocaveis`.
    const std::set<Destino>* entradas = nullptr;
    /// Whether the complete check will follow: the sum of the file then begins with the analysis.
    bool completa = false;
    bool abrirLog = true; ///< whether the log is opened in the system's editor at the end
};

/// The reason to refuse a position of the date in the barcode: it lies outside the free field, 20 to 41 (1-based).
/// Nothing if the position is accepted.
[[nodiscard]] std::optional<Texto> recusaDaPosicao(double posicao);
/// The reason to refuse a date of this format at this position: it would go beyond position 43. Nothing if it fits.
[[nodiscard]] std::optional<Texto> recusaDoFormato(double posicao, VistaTexto formato);
/// The reason to refuse a date in the barcode for its position or its format. Nothing if both are accepted.
[[nodiscard]] std::optional<Texto> recusaDaData(double posicao, VistaTexto formato);

/// Recognises the type of a file by its first line: by the name at positions 12 to 17, or by "A2" at the start, which
/// is that of a settlement return. Nothing if the line tells no type or cannot be read.
[[nodiscard]] std::optional<TipoArquivo> reconhecerTipo(const std::filesystem::path& arquivo, Arquivos& arquivos);

} // namespace quilatador
