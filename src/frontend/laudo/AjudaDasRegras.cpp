#include "frontend/laudo/AjudaDasRegras.h"

#include "common/Falha.h"

#include <array>
#include <string>
#include <utility>

namespace quilatador {

namespace {

std::string lerInicio(Arquivos& arquivos, const std::filesystem::path& caminho) {
    constexpr std::size_t maior = 4 * 1024 * 1024; // a help that is larger is none
    std::string lido;
    std::array<char, 16 * 1024> bloco{};
    const auto entrada = arquivos.abrirEntrada(caminho);
    while (lido.size() < maior) {
        const std::size_t lidos = entrada->ler(bloco);
        if (lidos == 0) break;
        lido.append(bloco.data(), lidos);
    }
    return lido;
}

/// The entities that the help uses. An unknown one stays as it is written.
constexpr std::pair<VistaTexto, VistaTexto> entidades[] = {
    {"&nbsp;"_t, " "_t},   {"&lt;"_t, "<"_t},    {"&gt;"_t, ">"_t},    {"&quot;"_t, "\""_t},
    {"&ldquo;"_t, "“"_t},  {"&rdquo;"_t, "”"_t}, {"&times;"_t, "×"_t}, {"&divide;"_t, "÷"_t},
    {"&hellip;"_t, "…"_t}, {"&ndash;"_t, "–"_t}, {"&amp;"_t, "&"_t}};

/// The text of an entity at the start of `html`, which is taken off it.
VistaTexto tirarEntidade(VistaTexto& html) {
    for (const auto& [nome, texto] : entidades) {
        if (!html.starts_with(nome)) continue;
        html.remove_prefix(nome.size());
        return texto;
    }
    const VistaTexto sinal = html.substr(0, 1);
    html.remove_prefix(1);
    return sinal;
}

/// HTML without its tags, and with one blank for each run of blanks and line ends.
Texto textoSimples(VistaTexto html) {
    Texto texto;
    while (!html.empty()) {
        const char c = html.front();
        if (c == '<') {
            html.remove_prefix(std::min(html.find('>'), html.size() - 1) + 1);
        } else if (c == '&') {
            texto += tirarEntidade(html);
        } else {
            const bool branco = c == ' ' || c == '\n' || c == '\r' || c == '\t';
            if (!branco || !texto.ends_with(' ')) texto += branco ? ' ' : c;
            html.remove_prefix(1);
        }
    }
    return Texto(semBrancos(texto));
}

/// The text of the next cell of a row, which is taken off it with all that stands in front.
Texto tirarCelula(VistaTexto& linha) {
    const std::size_t inicio = linha.find("<td"_t);
    if (inicio == VistaTexto::npos) return {};
    linha.remove_prefix(inicio);
    const VistaTexto celula = linha.substr(0, linha.find("</td"_t));
    linha.remove_prefix(celula.size());
    return textoSimples(celula);
}

} // namespace

AjudaDasRegras::AjudaDasRegras(Arquivos& arquivos, const std::filesystem::path& ajuda) {
    try {
        texto_ = textoDeUtf8(lerInicio(arquivos, ajuda));
    } catch (const Falha&) { // a report without remedies is better than none
        texto_.clear();
    }
}

std::optional<AjudaDasRegras::Explicacao> AjudaDasRegras::de(VistaTexto id) const {
    const Texto marca = junta("<tr id=\""_t, id, "\""_t);
    const std::size_t inicio = texto_.find(marca);
    if (inicio == Texto::npos) return std::nullopt;
    VistaTexto linha = VistaTexto(texto_).substr(inicio + marca.size());
    linha = linha.substr(0, linha.find("</tr"_t));
    Explicacao explicacao;
    explicacao.sentido = tirarCelula(linha);
    explicacao.remedio = tirarCelula(linha);
    return explicacao;
}

} // namespace quilatador
