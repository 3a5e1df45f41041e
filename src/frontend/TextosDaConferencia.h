#pragma once

#include "run/Relator.h"
#include "run/ResumoCompleto.h"

#include <cstdint>
#include <vector>

namespace quilatador {

/// What the programs say of a complete check, each in its own way of showing it. `milhar` is the separator of thousands
/// in the numbers; "" for none.

/// A number and its noun.
[[nodiscard]] Texto contagem(std::int64_t numero, VistaTexto singular, VistaTexto plural, VistaTexto milhar = {});

/// The word for the gravity of a finding, capitalised; a disputed one has its own.
[[nodiscard]] VistaTexto classeDo(const Achado& achado);
/// What a finding says that stands for others like it, in other places: its message, but of an occurrence without the
/// record that has it. A view of the finding.
[[nodiscard]] VistaTexto mensagemComum(const Achado& achado);
/// The field of a finding, with its positions.
[[nodiscard]] Texto textoDoCampo(const CampoDoAchado& campo);
/// The line and the slip of a finding, both 1-based and 0 where there is none; "" where there is neither. `idGuia` may
/// be blank.
[[nodiscard]] Texto textoDoLugar(std::int64_t linha, std::int64_t guia, VistaTexto idGuia = {});

/// From what a finding about line `linha` (1-based) follows, given the line of the cause and its message.
[[nodiscard]] Texto textoDaCausa(std::int64_t linha, std::int64_t linhaDaCausa, VistaTexto mensagem);

/// A format and a position (1-based) of a date in the barcode.
[[nodiscard]] Texto formatoNaPosicao(VistaTexto formato, int posicao);
/// In how many installments such a date agrees.
[[nodiscard]] Texto acertosDasParcelas(std::int64_t acertos, std::int64_t parcelas, VistaTexto milhar);
/// Where the barcodes have the due date, as a line. "" if it is not known.
[[nodiscard]] Texto textoDasDatas(const ResumoCompleto& completa, VistaTexto milhar);

/// What was found and how much of the file was checked, as a line.
[[nodiscard]] Texto textoDaConferencia(const ResumoCompleto& completa, VistaTexto milhar);

/// What a user is to think of a file, in a few words.
struct Veredito {
    enum class Sinal { Bom, Atencao, Ruim };

    Sinal sinal = Sinal::Bom;
    Texto texto;
};

/// Judges a file by its analysis and its complete check. Where the analysis was cancelled or did not run, there was no
/// such check, and `completa` is not looked at.
[[nodiscard]] Veredito veredito(const Resumo& resumo, const ResumoCompleto& completa, VistaTexto milhar);

} // namespace quilatador
