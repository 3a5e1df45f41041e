#include "frontend/Laudo.h"

#include "frontend/laudo/AchadoNoLaudo.h"
#include "frontend/laudo/ArquivoNoLaudo.h"
#include "frontend/laudo/EstiloDoLaudo.h"
#include "frontend/laudo/GuiasEmHtml.h"
#include "frontend/laudo/ReguasDoLaudo.h"

#include <algorithm>
#include <array>
#include <span>

namespace quilatador {

namespace {

using laudo::AchadoNoLaudo;
using Pedacos = std::vector<PedacoDaRegua>;

constexpr std::size_t maisReguas = 400;           // that are read; more do not fit into a report
constexpr std::size_t maiorLista = 700'000;       // bytes of the list of findings
constexpr std::size_t reservaParaAvisos = 40'000; // bytes of what is said of right slips, and at the end

constexpr std::string_view marcaDaSoma = R"(<meta name="quilatador-sha256" content=")";

constexpr std::string_view legenda =
    R"(<div class="legenda"><p><b>Como ler a régua.</b> Cada quadro é um campo da linha: posições, nome e texto, como )"
    R"(está no arquivo, e o valor lido, se ajuda. <code>␣</code> é um branco; <code>␣×19</code>, 19 brancos seguidos; )"
    R"(<code>‹1A›</code>, um byte sem figura. De borda grossa e com uma palavra é o campo do achado; de borda )"
    R"(tracejada, o de uma consequência.</p></div>
<div id="filtro"></div>
)";

/// Puts the parts of a report together, so that they fit.
class Redator {
  public:
    Redator(const Ambiente& ambiente, const AchadosDoLaudo& achados, const DadosDoLaudo& dados)
        : ambiente_(ambiente)
        , dados_(dados)
        , completa_(dados.completa)
        , guias_(achados.guias())
        , grupos_(achados.grupos().emOrdem())
        , numeros_(ambiente.localidade.separadorDeMilhar()) {}

    /// The findings whose rulers are shown, if they fit.
    [[nodiscard]] std::vector<const Achado*> comRegua() const {
        std::vector<const Achado*> primeiros;
        for (const GrupoDeAchados* const grupo : std::span(grupos_).first(std::min(grupos_.size(), maisReguas)))
            primeiros.push_back(&grupo->primeiro);
        return primeiros;
    }

    [[nodiscard]] std::string escrever(const std::vector<Pedacos>& reguas) {
        using namespace laudo;
        const std::string antes = unir(cabeca(), parteDoVeredito(dados_, numeros_), lista(),
                                       parteDoConferido(dados_, numeros_), parteDoArquivo(dados_, numeros_, ambiente_));
        const std::string depois = rodape();
        gastar(antes.size() + depois.size() + reservaParaAvisos);
        std::vector<AchadoNoLaudo> achados = descritos();
        const GuiasEmHtml guias = escreverGuias(guias_, completa_, numeros_, livres_);
        gastar(guias.html.size());
        porReguas(achados, reguas);
        return unir(antes, parteDosAchados(achados), guias.html, parteDoQueFicouDeFora(guias), depois);
    }

  private:
    void gastar(std::size_t bytes) noexcept { livres_ -= std::min(livres_, bytes); }

    [[nodiscard]] std::string cabeca() const {
        const Texto julgado = veredito(dados_.resumo, completa_, numeros_.milhar()).texto;
        // The sum stands in front of everything that comes from a file.
        return unir("<!DOCTYPE html>\n<html lang=\"pt-BR\">\n<head>\n<meta charset=\"utf-8\">\n", marcaDaSoma,
                    completa_.sha256, R"(">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'; )",
                    R"(script-src 'unsafe-inline'; base-uri 'none'; form-action 'none'">
<title>Laudo de )",
                    paraHtml(laudo::nomeSemPasta(dados_.pedido.nomeArquivo)), ": ", paraHtml(julgado),
                    "</title>\n<style>", laudo::estilo, "</style>\n</head>\n<body>\n", laudo::sinais,
                    R"(<a class="pula" href="#conteudo">Ir para o veredito</a>
<header class="topo"><p><b>Quilatador de Leiaute</b> · Laudo de conferência</p><p>)",
                    laudo::diaDoLaudo(ambiente_), "</p></header>\n<main id=\"conteudo\" tabindex=\"-1\">\n");
    }

    [[nodiscard]] std::string lista() {
        if (grupos_.empty()) return {};
        std::string html = unir(R"(<section aria-labelledby="h-lista"><h2 id="h-lista">Os achados em resumo</h2>
<p>Primeiro o que é preciso corrigir. Uma causa que se repete é um só achado; o que decorre dela some com ela.</p>
)",
                                laudo::inicioDaTabela("Os achados em resumo", {"Achado", "O que foi encontrado",
                                                                               "O primeiro lugar", "#Quantos"}));
        while (listados_ < grupos_.size() && html.size() < maiorLista)
            html += linhaDaLista(listados_++);
        return html += unir(laudo::fimDaTabela, "</section>\n");
    }

    [[nodiscard]] std::string linhaDaLista(std::size_t i) const {
        const GrupoDeAchados& grupo = *grupos_[i];
        const Achado& primeiro = grupo.primeiro;
        return unir(R"(<tr class=")", laudo::aspectoDo(primeiro).cor, R"("><td>)", laudo::rotuloDo(grupo, i + 1),
                    R"(</td><th scope="row"><a href="#a)", std::to_string(i + 1), R"(">)", laudo::mensagemDo(grupo),
                    "</a></th><td>", laudo::lugarEmHtml(primeiro.linha, primeiro.guia),
                    R"(</td><td class="n" data-t="Quantos">)", numeros_.numero(grupo.quantidade), "</td></tr>\n");
    }

    /// The findings without their rulers, as many as there is room for.
    [[nodiscard]] std::vector<AchadoNoLaudo> descritos() {
        const AjudaDasRegras ajuda(ambiente_.arquivos, ambiente_.ajuda());
        std::vector<AchadoNoLaudo> achados;
        while (achados.size() < listados_) {
            AchadoNoLaudo achado = laudo::descrever(*grupos_[achados.size()], achados.size() + 1, ajuda, numeros_);
            if (achado.tamanho() > livres_) break;
            gastar(achado.tamanho());
            achados.push_back(std::move(achado));
        }
        return achados;
    }

    /// Puts the rulers to the findings, to the first ones first, as long as there is room.
    void porReguas(std::vector<AchadoNoLaudo>& achados, const std::vector<Pedacos>& reguas) {
        for (std::size_t i = 0; i < achados.size(); ++i) {
            const std::string regua = i < reguas.size() ? laudo::reguaEmHtml(*grupos_[i], reguas[i]) : std::string();
            if (i >= reguas.size() || regua.size() > livres_) {
                semRegua_ = static_cast<std::int64_t>(achados.size() - i);
                return;
            }
            gastar(regua.size());
            achados[i].antes += regua;
        }
    }

    [[nodiscard]] std::string parteDosAchados(const std::vector<AchadoNoLaudo>& achados) {
        semDetalhes_ = static_cast<std::int64_t>(grupos_.size() - achados.size());
        std::string html =
            R"(<section aria-labelledby="h-achados" id="achados"><h2 id="h-achados">Os achados, um a um</h2>
)";
        if (achados.empty()) return html += "<p>Nenhum achado.</p></section>\n";
        html += legenda;
        std::string_view aberta;
        for (std::size_t i = 0; i < achados.size(); ++i) {
            const std::string_view titulo = tituloDaSecao(*grupos_[i]);
            if (titulo != aberta)
                html += unir(aberta.empty() ? "" : "</section>\n", "<section><h3>", titulo, "</h3>\n");
            aberta = titulo;
            html += unir(achados[i].antes, achados[i].depois);
        }
        return html += "</section></section>\n";
    }

    [[nodiscard]] std::string_view tituloDaSecao(const GrupoDeAchados& grupo) const {
        if (grupo.primeiro.discutido) return "Discutidos: não contam como erro";
        if (grupo.primeiro.gravidade == Gravidade::Aviso) return "Avisos: nenhuma regra proíbe, mas vale conferir";
        if (grupo.deConsequencias()) return "Consequências de outros achados";
        if (completa_.ocorrencias == 0) return "Erros: causas a corrigir";
        return completa_.erros == 0 ? "Ocorrências" : "Erros e ocorrências";
    }

    [[nodiscard]] std::string parteDoQueFicouDeFora(const laudo::GuiasEmHtml& guias) const {
        std::string itens;
        const auto somar = [&](std::int64_t quantos, VistaTexto singular, VistaTexto plural) {
            if (quantos > 0) itens += unir("<li>", numeros_.contar(quantos, singular, plural), "</li>\n");
        };
        somar(std::ranges::count_if(grupos_, [](const GrupoDeAchados* g) { return g->quantidade > lugares; }),
              "achado está aqui com os primeiros 25 lugares."_t, "achados estão aqui com os primeiros 25 lugares."_t);
        somar(static_cast<std::int64_t>(grupos_.size() - listados_), "achado não coube nem no resumo."_t,
              "achados não couberam nem no resumo."_t);
        somar(semDetalhes_, "achado não coube com os detalhes."_t, "achados não couberam com os detalhes."_t);
        somar(semRegua_, "achado está sem régua."_t, "achados estão sem régua."_t);
        somar(guias.semLinha, "guia que não está certa aparece só na contagem."_t,
              "guias que não estão certas aparecem só na contagem."_t);
        somar(completa_.guias.naoConferidas, "guia não foi conferida, porque não se pediu."_t,
              "guias não foram conferidas, porque não se pediu."_t);
        if (completa_.guias.certas > 0)
            itens += guias.faltamCertas ? "<li>As guias certas aparecem só pelo número, e nem todas.</li>\n"
                                        : "<li>As guias certas aparecem só pelo número.</li>\n";
        return unir(R"(<section aria-labelledby="h-fora"><h2 id="h-fora">O que ficou de fora</h2>
<ul>
)",
                    itens, itens.empty() ? "<li>Nada." : "<li>Nada mais.",
                    " O laudo tem no máximo 2 MB; a lista inteira dos achados sai com ",
                    "<code>--csv</code>.</li>\n</ul></section>\n");
    }

    [[nodiscard]] std::string rodape() const {
        return unir("</main>\n<footer><p>Feito pelo Quilatador de Leiaute ", paraHtml(dados_.programa), " em ",
                    laudo::diaDoLaudo(ambiente_),
                    ", neste computador; nada foi enviado pela rede. O arquivo analisado não foi alterado.</p>\n",
                    "<p>Para saber se um arquivo é o deste laudo: <code>quilatador-cli --conferir LAUDO ARQUIVO</code>",
                    "</p></footer>\n<script>", laudo::roteiro, "</script>\n</body>\n</html>\n");
    }

    static constexpr auto lugares = static_cast<std::int64_t>(GrupoDeAchados::maisLugares);
    static_assert(lugares == 25, "as the text says");

    const Ambiente& ambiente_;
    const DadosDoLaudo& dados_;
    const ResumoCompleto& completa_;
    const GuiasDoLaudo& guias_;
    std::vector<const GrupoDeAchados*> grupos_;
    laudo::NumerosDoLaudo numeros_;

    std::size_t livres_ = maiorLaudo; ///< bytes
    std::size_t listados_ = 0;        ///< groups
    std::int64_t semDetalhes_ = 0;
    std::int64_t semRegua_ = 0;
};

} // namespace

std::filesystem::path caminhoDoLaudo(const std::filesystem::path& log) {
    std::filesystem::path laudo = log;
    return laudo += ".laudo.html";
}

std::optional<std::string> fazerLaudo(const Ambiente& ambiente, const AchadosDoLaudo& achados,
                                      const DadosDoLaudo& dados, const std::atomic<bool>& cancelado) {
    Redator redator(ambiente, achados, dados);
    const ArquivoDasReguas arquivo{
        .caminho = dados.pedido.nomeArquivo, .tipo = dados.pedido.tipoArquivo, .versao = dados.versao};
    const auto comRegua = redator.comRegua();
    const auto reguas = lerReguas(ambiente, arquivo, comRegua, cancelado);
    if (!reguas) return std::nullopt;
    return redator.escrever(*reguas);
}

std::optional<std::string> somaNoLaudo(const std::filesystem::path& laudo, Arquivos& arquivos) {
    constexpr std::size_t digitos = 64;
    std::array<char, 1024> inicio{};
    const auto entrada = arquivos.abrirEntrada(laudo);
    std::size_t lidos = 0;
    while (lidos < inicio.size()) {
        const std::size_t mais = entrada->ler(std::span(inicio).subspan(lidos));
        if (mais == 0) break;
        lidos += mais;
    }
    std::string_view texto(inicio.data(), lidos);
    const std::size_t marca = texto.find(marcaDaSoma);
    if (marca == std::string_view::npos) return std::nullopt;
    texto.remove_prefix(marca + marcaDaSoma.size());
    const std::string_view soma = texto.substr(0, texto.find('"'));
    const bool inteira = soma.size() == digitos && soma.find_first_not_of("0123456789abcdef") == std::string_view::npos;
    return inteira ? std::string(soma) : std::string();
}

} // namespace quilatador
