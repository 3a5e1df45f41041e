#include "platform/LocalidadeDoSistema.h"

#include <optional>

namespace quilatador {

namespace {

constexpr std::array<VistaTexto, 12> mesesBrasileiros{"janeiro"_t,  "fevereiro"_t, "março"_t,    "abril"_t,
                                                      "maio"_t,     "junho"_t,     "julho"_t,    "agosto"_t,
                                                      "setembro"_t, "outubro"_t,   "novembro"_t, "dezembro"_t};

/// The text in Windows-1252, or nothing if that lacks one of its characters. The narrow no-break space of some
/// languages becomes the ordinary no-break space.
std::optional<Texto> representavel(std::string utf8) {
    constexpr std::string_view estreito = "\u202F";
    for (auto posicao = utf8.find(estreito); posicao != std::string::npos; posicao = utf8.find(estreito))
        utf8.replace(posicao, estreito.size(), "\u00A0");
    Texto texto = textoDeUtf8(utf8);
    if (texto.find('?') != Texto::npos) return std::nullopt;
    return texto;
}

} // namespace

LocalidadeDoSistema::LocalidadeDoSistema(const TextosDoSistema& textos) {
    const std::optional<Texto> milhar = representavel(textos.separadorDeMilhar);
    const std::optional<Texto> decimal = representavel(textos.separadorDecimal);
    if (milhar && decimal && !decimal->empty()) { // separators of two languages could be equal
        separadorDeMilhar_ = *milhar;
        separadorDecimal_ = *decimal;
    }
    for (std::size_t i = 0; i < meses_.size(); ++i) {
        meses_[i] = representavel(textos.meses[i]).value_or(Texto());
        if (meses_[i].empty()) meses_[i] = mesesBrasileiros[i];
    }
}

} // namespace quilatador
