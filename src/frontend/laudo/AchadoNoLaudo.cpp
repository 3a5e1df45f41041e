#include "frontend/laudo/AchadoNoLaudo.h"

#include "frontend/AchadosDaLinha.h"

#include <algorithm>
#include <utility>

namespace quilatador::laudo {

namespace {

using Estado = PedacoDaRegua::Estado;

constexpr std::size_t maisConsequencias = 50; // groups of them

VistaTexto palavraDo(const Achado& achado) {
    if (achado.discutido) return "discutido"_t;
    if (achado.gravidade == Gravidade::Aviso) return "aviso"_t;
    return achado.gravidade == Gravidade::Ocorrencia ? "ocorrência"_t : "erro"_t;
}

/// Whether the value of a piece says more than its text does: an amount or a date.
bool valorAjuda(const PedacoDaRegua& pedaco) {
    return pedaco.estado == Estado::Lido && pedaco.valor.find_first_of(",/"_t) != Texto::npos &&
           semBrancos(pedaco.valor) != semBrancos(pedaco.texto);
}

std::string notaDo(const PedacoDaRegua& pedaco) {
    if (valorAjuda(pedaco)) return unir(" <small>= ", paraHtml(pedaco.valor), "</small>");
    if (pedaco.estado == Estado::Ilegivel) return " <small>ilegível</small>";
    if (pedaco.estado == Estado::Cortado) return " <small>cortado</small>";
    return pedaco.estado == Estado::Sobra ? " <small>sobra</small>" : "";
}

/// One piece of a ruler. `culpado` is the finding that the ruler is shown for; others are its consequences.
std::string quadroDo(const PedacoMarcado& marcado, const Achado& culpado) {
    const PedacoDaRegua& pedaco = marcado.pedaco;
    const bool ehCulpado = std::ranges::any_of(marcado.achados, [&](const Achado* a) { return a->n == culpado.n; });
    const bool marcar = !marcado.achados.empty();
    std::string html = unir(ehCulpado ? R"(<li class="x">)"
                            : marcar  ? R"(<li class="d">)"
                                      : "<li>",
                            "<span>", std::to_string(pedaco.inicio));
    if (pedaco.fim > pedaco.inicio) html += unir("–", std::to_string(pedaco.fim));
    html += "</span> ";
    if (marcar)
        html += unir("<b>", paraHtml(pedaco.campo), " <em>",
                     paraHtml(ehCulpado ? palavraDo(culpado) : "consequência"_t), "</em></b> ");
    else if (!pedaco.campo.empty())
        html += unir("<b>", paraHtml(pedaco.campo), "</b> ");
    return html += unir("<code>", bytesParaHtml(pedaco.texto), "</code>", notaDo(pedaco), "</li>");
}

/// What is found over what is expected.
std::string parDo(const Achado& achado) {
    if (!achado.campo) return {};
    const CampoDoAchado& campo = *achado.campo;
    const auto codigo = [](std::string_view classe, std::string_view html) {
        return unir(R"(<dd><code class=")", classe, R"(">)", html.empty() ? "<i>(nada)</i>" : html, "</code></dd>");
    };
    if (!campo.esperado)
        return unir(R"(<dl class="par"><dt>encontrado</dt>)", codigo("e", bytesParaHtml(campo.encontrado)), "</dl>");
    const ParDeTextos par = compararEmHtml(campo.encontrado, *campo.esperado);
    return unir(R"(<dl class="par"><dt>encontrado</dt>)", codigo("e", par.primeiro), "<dt>esperado</dt>",
                codigo("c", par.segundo), "</dl>");
}

std::string remedioDo(const Achado& achado, const AjudaDasRegras& ajuda) {
    std::string html;
    const auto somar = [&](std::string_view titulo, VistaTexto texto) {
        if (!texto.empty()) html += unir("<h5>", titulo, "</h5><p>", paraHtml(texto), "</p>");
    };
    if (achado.discutido) somar("Por que é discutido", achado.motivo);
    if (const auto explicacao = ajuda.de(achado.id)) {
        somar("O que significa", explicacao->sentido);
        somar("O que fazer", explicacao->remedio);
    }
    return html.empty() ? html : unir(R"(<div class="remedio">)", html, "</div>");
}

std::string ondeDo(const GrupoDeAchados& grupo, const NumerosDoLaudo& numeros) {
    const Achado& primeiro = grupo.primeiro;
    std::string html = R"(<p class="onde">)";
    if (grupo.quantidade > 1)
        html += unir("<b>", numeros.contar(grupo.quantidade, "lugar"_t, "lugares"_t), "</b>; o primeiro: ");
    html += lugarEmHtml(primeiro.linha, primeiro.guia, primeiro.idGuia);
    if (primeiro.segmento != 0) html += unir(" · segmento ", paraHtml(VistaTexto(&primeiro.segmento, 1)));
    if (primeiro.campo) html += unir(" · ", paraHtml(textoDoCampo(*primeiro.campo)));
    if (grupo.deConsequencias()) html += " · decorre de outro achado";
    return html += "</p>";
}

std::string lugaresDo(const GrupoDeAchados& grupo, const NumerosDoLaudo& numeros) {
    if (grupo.quantidade < 2) return {};
    std::string html = R"(<h5>Lugares</h5><ul class="lugares">)";
    for (const LugarDoAchado& lugar : grupo.lugares)
        html += unir("<li>", lugarEmHtml(lugar.linha, lugar.guia, lugar.idGuia), "</li>");
    const auto restam = grupo.quantidade - static_cast<std::int64_t>(grupo.lugares.size());
    if (restam > 0) html += unir("<li>mais ", numeros.numero(restam), "</li>");
    return html += "</ul>";
}

std::string linhaDaConsequencia(const GrupoDeAchados& grupo, const NumerosDoLaudo& numeros) {
    const Achado& primeiro = grupo.primeiro;
    return unir("<tr><td>", trechoEmHtml(primeiro.mensagem), "</td><td>", lugarEmHtml(primeiro.linha, primeiro.guia),
                R"(</td><td data-t="Campo">)", primeiro.campo ? paraHtml(primeiro.campo->nome) : "–",
                R"(</td><td class="n" data-t="Quantos">)", numeros.numero(grupo.quantidade), "</td></tr>");
}

std::string consequenciasDo(const GrupoDeAchados& grupo, const NumerosDoLaudo& numeros) {
    if (grupo.consequencias.empty()) return {};
    std::int64_t total = 0;
    for (const GrupoDeAchados* const consequencia : grupo.consequencias)
        total += consequencia->quantidade;
    std::string html =
        unir(R"(<div class="decorre"><h5><span class="titulo">)",
             numeros.contar(total, "consequência: some com a causa"_t, "consequências: somem com a causa"_t),
             "</span></h5>", inicioDaTabela("Consequências", {"Mensagem", "O primeiro lugar", "Campo", "#Quantos"}));
    const std::size_t mostradas = std::min(grupo.consequencias.size(), maisConsequencias);
    for (std::size_t i = 0; i < mostradas; ++i)
        html += linhaDaConsequencia(*grupo.consequencias[i], numeros);
    const std::size_t outras = grupo.consequencias.size() - mostradas;
    if (outras > 0)
        html +=
            unir(R"(<tr><td colspan="4">e de )",
                 numeros.contar(static_cast<std::int64_t>(outras), "outra regra"_t, "outras regras"_t), "</td></tr>");
    return html += unir(fimDaTabela, "</div>");
}

} // namespace

Aspecto aspectoDo(const Achado& achado) {
    if (achado.discutido) return {"parte", "discutido"};
    if (achado.gravidade == Gravidade::Aviso) return {"atencao", "aviso"};
    return {"ruim", achado.gravidade == Gravidade::Ocorrencia ? "ocorrencia" : "erro"};
}

std::string rotuloDo(const GrupoDeAchados& grupo, std::size_t numero) {
    return unir(R"(<span class="dito">)", sinal(aspectoDo(grupo.primeiro).cor), paraHtml(classeDo(grupo.primeiro)), " ",
                std::to_string(numero), "</span>");
}

std::string trechoEmHtml(VistaTexto texto) {
    constexpr std::size_t maisTexto = 300;
    return texto.size() <= maisTexto ? paraHtml(texto) : unir(paraHtml(texto.substr(0, maisTexto)), "…");
}

std::string mensagemDo(const GrupoDeAchados& grupo) {
    return trechoEmHtml(mensagemComum(grupo.primeiro));
}

AchadoNoLaudo descrever(const GrupoDeAchados& grupo, std::size_t numero, const AjudaDasRegras& ajuda,
                        const NumerosDoLaudo& numeros) {
    const Achado& primeiro = grupo.primeiro;
    const Aspecto aspecto = aspectoDo(primeiro);
    const std::string id = std::to_string(numero);
    const std::string remedio = remedioDo(primeiro, ajuda);
    return {unir(R"(<article class="achado )", aspecto.cor, R"(" id="a)", id, R"(" data-c=")", aspecto.filtro,
                 R"(" aria-labelledby="t)", id, R"("><h4 id="t)", id, R"(">)", rotuloDo(grupo, numero),
                 R"(<span class="titulo">)", mensagemDo(grupo), R"(</span></h4><div class="corpo">)",
                 ondeDo(grupo, numeros),
                 remedio.empty() ? R"(<div class="duas so"><div>)" : R"(<div class="duas"><div>)", parDo(primeiro)),
            unir(lugaresDo(grupo, numeros), "</div>", remedio, "</div>", consequenciasDo(grupo, numeros),
                 R"(<p class="regra">Regra <code>)", paraHtml(primeiro.id), "</code>, achado nº ",
                 numeros.numero(primeiro.n), "</p></div></article>\n")};
}

std::string reguaEmHtml(const GrupoDeAchados& grupo, const std::vector<PedacoDaRegua>& pedacos) {
    if (pedacos.empty()) return {};
    std::vector<Achado> daLinha{grupo.primeiro};
    for (const GrupoDeAchados* const consequencia : grupo.consequencias)
        if (consequencia->primeiro.linha == grupo.primeiro.linha) daLinha.push_back(consequencia->primeiro);
    std::string html =
        unir(R"(<ol class="regua" aria-label="Régua da linha )", std::to_string(grupo.primeiro.linha), R"(">)");
    for (const PedacoMarcado& marcado : marcar(pedacos, daLinha))
        html += quadroDo(marcado, grupo.primeiro);
    return html += "</ol>";
}

} // namespace quilatador::laudo
