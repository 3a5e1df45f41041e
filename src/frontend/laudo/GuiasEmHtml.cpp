#include "frontend/laudo/GuiasEmHtml.h"

#include <algorithm>
#include <span>

namespace quilatador::laudo {

namespace {

constexpr std::size_t maisFaixas = 1000; // of right slips

std::string textoDa(const GuiasDoLaudo::Faixa& faixa, const NumerosDoLaudo& numeros) {
    if (faixa.primeira == faixa.ultima) return numeros.numero(faixa.primeira);
    return unir(numeros.numero(faixa.primeira), faixa.ultima == faixa.primeira + 1 ? " e " : " a ",
                numeros.numero(faixa.ultima));
}

std::string paragrafo(std::string_view classe, std::string_view titulo, std::string_view quantas,
                      std::string_view lugares) {
    return unir(R"(<p class=")", classe, R"(">)", sinal(classe), "<b>", titulo, " (", quantas, "):</b> ", lugares,
                ".</p>\n");
}

void escreverCertas(const GuiasDoLaudo& guias, const ContagemDeGuias& contagem, const NumerosDoLaudo& numeros,
                    GuiasEmHtml& escritas) {
    if (contagem.certas == 0) return;
    const auto faixas = guias.certas(contagem.lidas);
    std::string lugares;
    for (const auto& faixa : std::span(faixas).first(std::min(faixas.size(), maisFaixas)))
        lugares += unir(lugares.empty() ? "" : "; ", textoDa(faixa, numeros));
    escritas.faltamCertas =
        faixas.size() > maisFaixas || guias.conhecidasAte(contagem.lidas) + contagem.naoConferidas < contagem.lidas;
    if (escritas.faltamCertas) lugares += lugares.empty() ? "não cabem aqui" : "; e outras";
    escritas.html += paragrafo("bom", "Certas", numeros.numero(contagem.certas), lugares);
}

std::string linhaDa(const GuiaConferida& guia, std::string_view comErro, const NumerosDoLaudo& numeros) {
    const bool errada = guia.estado == GuiaConferida::Estado::ComErro;
    const std::string_view cor = errada ? "ruim" : "parte";
    return unir(R"(<tr class=")", cor, R"("><th scope="row" data-t="Guia">)", numeros.numero(guia.guia),
                R"(</th><td class="dito">)", sinal(cor), errada ? comErro : "Conferida em parte",
                R"(</td><td data-t="IdGuia"><code>)", bytesParaHtml(semBrancos(guia.idGuia)),
                R"(</code></td><td data-t="Primeira linha">)", numeros.numero(guia.linha), "</td></tr>\n");
}

void escreverErradas(const GuiasDoLaudo& guias, const ResumoCompleto& completa, const NumerosDoLaudo& numeros,
                     std::size_t bytes, GuiasEmHtml& escritas) {
    const std::string_view comErro = completa.ocorrencias > 0 ? "Com ocorrência" : "Com erro";
    std::string tabela = inicioDaTabela("Guias que não estão certas", {"Guia", "Veredito", "IdGuia", "Primeira linha"});
    std::int64_t mostradas = 0;
    for (const GuiaConferida& guia : guias.erradas()) {
        const std::string linha = linhaDa(guia, comErro, numeros);
        if (escritas.html.size() + tabela.size() + linha.size() + fimDaTabela.size() > bytes) break;
        tabela += linha;
        ++mostradas;
    }
    if (mostradas > 0) escritas.html += unir(tabela, fimDaTabela);
    escritas.semLinha = completa.guias.comErro + completa.guias.emParte - mostradas;
}

} // namespace

GuiasEmHtml escreverGuias(const GuiasDoLaudo& guias, const ResumoCompleto& completa, const NumerosDoLaudo& numeros,
                          std::size_t bytes) {
    GuiasEmHtml escritas;
    if (completa.guias.lidas == 0) return escritas;
    escritas.html = R"(<section aria-labelledby="h-guias"><h2 id="h-guias">As guias</h2>
)";
    escreverCertas(guias, completa.guias, numeros, escritas);
    if (const auto& fora = guias.naoConferidas(); fora.primeira > 0)
        escritas.html +=
            paragrafo("nada", "Não conferidas", numeros.numero(completa.guias.naoConferidas), textoDa(fora, numeros));
    escreverErradas(guias, completa, numeros, bytes, escritas);
    escritas.html += "</section>\n";
    return escritas;
}

} // namespace quilatador::laudo
