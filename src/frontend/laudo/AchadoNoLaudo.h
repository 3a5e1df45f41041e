#pragma once

#include "frontend/GruposDeAchados.h"
#include "frontend/laudo/AjudaDasRegras.h"
#include "frontend/laudo/PecasDoLaudo.h"
#include "layout/Regua.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quilatador::laudo {

/// How a finding is drawn: the class of its colour, and the one by which the script filters it.
struct Aspecto {
    std::string_view cor;
    std::string_view filtro;
};
[[nodiscard]] Aspecto aspectoDo(const Achado& achado);

/// What stands for a group of findings in its title and in the list: its sign, word and number.
[[nodiscard]] std::string rotuloDo(const GrupoDeAchados& grupo, std::size_t numero);
/// The message of a group, as far as a line of a list can show it.
[[nodiscard]] std::string mensagemDo(const GrupoDeAchados& grupo);
/// A text of the data in HTML; of a very long one only the start.
[[nodiscard]] std::string trechoEmHtml(VistaTexto texto);

/// A group of findings with all that a report says of it, around the place of its ruler.
struct AchadoNoLaudo {
    std::string antes;
    std::string depois;

    [[nodiscard]] std::size_t tamanho() const noexcept { return antes.size() + depois.size(); }
};
[[nodiscard]] AchadoNoLaudo descrever(const GrupoDeAchados& grupo, std::size_t numero, const AjudaDasRegras& ajuda,
                                      const NumerosDoLaudo& numeros);

/// The ruler of the line of a group's first finding: its field is marked, and those of its consequences on the same
/// line. "" without a line.
[[nodiscard]] std::string reguaEmHtml(const GrupoDeAchados& grupo, const std::vector<PedacoDaRegua>& pedacos);

} // namespace quilatador::laudo
