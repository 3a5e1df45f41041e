#pragma once

#include "common/Arquivos.h"
#include "common/Texto.h"
#include "run/TipoArquivo.h"

#include <filesystem>
#include <optional>

namespace quilatador {

/// Formats of the due date in the barcode that are offered; the user may give another.
inline constexpr VistaTexto formatosOferecidos[] = {"AAAAMMDD"_t, "AAMMDD"_t, "DDMMAAAA"_t,
                                                    "DDMMAA"_t,   "DDDA"_t,   "AADDD"_t};
inline constexpr VistaTexto formatoInicial = "ADDD"_t;
inline constexpr VistaTexto posicaoInicial = "20"_t;
inline constexpr VistaTexto numeroDeGuiasInicial = "50"_t;

/// One analysis as the user asks for it. Which slips to check is not part of it: the run asks the display.
struct Pedido {
    TipoArquivo tipoArquivo = TipoArquivo::ZUL702;
    std::filesystem::path nomeArquivo; ///< taken unchanged; the analysers report a missing file
    bool comData = false;              ///< the slips' barcodes carry a due date
    Texto FormatoDataBarra = Texto(formatoInicial);
    double PosicaoDataBarra = 20;                        ///< 1-based position of that date
    std::optional<std::filesystem::path> nomeArquivoLog; ///< in place of the usual log beside the file
    bool abrirLog = true;                                ///< in the system's editor, at the end
};

/// Why a position is no place for a date in the barcode: outside its free field, 20 to 41. None where it is one.
[[nodiscard]] std::optional<Texto> recusaDaPosicao(double posicao);
/// Why a date of this format cannot start there: it would pass position 43. None where it can.
[[nodiscard]] std::optional<Texto> recusaDoFormato(double posicao, VistaTexto formato);

/// The type that the first line of a file tells: its name at positions 12-17, or "A2" in front of a settlement
/// return. None where the line tells nothing or cannot be read.
[[nodiscard]] std::optional<TipoArquivo> reconhecerTipo(const std::filesystem::path& arquivo, Arquivos& arquivos);

} // namespace quilatador
