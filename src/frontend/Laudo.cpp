#include "frontend/Laudo.h"

#include "common/Numero.h"
#include "frontend/AchadosDaLinha.h"
#include "frontend/AjudaDasRegras.h"
#include "frontend/Html.h"
#include "frontend/LaudoEstilo.h"
#include "frontend/ReguasDoLaudo.h"
#include "frontend/TextosDaConferencia.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

namespace quilatador {

namespace {

using Grupos = std::vector<const GrupoDeAchados*>;
using Pedacos = std::vector<PedacoDaRegua>;
using Sinal = Veredito::Sinal;

constexpr std::size_t maisReguas = 400;           // that are read; more do not fit into a report
constexpr std::size_t maisConsequencias = 50;     // groups of them, of one finding
constexpr std::size_t maisMensagem = 300;         // characters of a message
constexpr std::size_t maiorLista = 700'000;       // bytes of the list of findings
constexpr std::size_t maisFaixas = 1000;          // ranges of right slips
constexpr std::size_t reservaParaAvisos = 20'000; // bytes of what is said at the end

constexpr std::string_view marcaDaSoma = R"(<meta name="quilatador-sha256" content=")";

VistaTexto encurtada(VistaTexto mensagem) {
    return mensagem.substr(0, maisMensagem);
}

std::string sinal(std::string_view classe) {
    return unir(R"(<svg class="sinal" aria-hidden="true"><use href="#s-)", classe, R"("/></svg>)");
}

std::string_view classeDo(Sinal sinal) {
    switch (sinal) {
    case Sinal::Bom:
        return "bom";
    case Sinal::Atencao:
        return "atencao";
    case Sinal::Ruim:
        return "ruim";
    }
    return "nada";
}

/// How a finding is drawn, and the class by which the script filters it.
struct Aspecto {
    std::string_view cor;
    std::string_view filtro;
};

Aspecto aspectoDo(const Achado& achado) {
    if (achado.discutido) return {"parte", "discutido"};
    if (achado.gravidade == Gravidade::Aviso) return {"atencao", "aviso"};
    return {"ruim", achado.gravidade == Gravidade::Ocorrencia ? "ocorrencia" : "erro"};
}

VistaTexto nomeDaEspecie(TipoArquivo tipo) {
    switch (tipo) {
    case TipoArquivo::ZUL702:
        return "Remessa para impressão (ZUL702)"_t;
    case TipoArquivo::ZUL708:
        return "Retorno da impressão (ZUL708)"_t;
    case TipoArquivo::TAV001:
        return "Retorno de liquidação (TAV001)"_t;
    }
    return {};
}

Texto nomeSemPasta(const std::filesystem::path& caminho) {
    return textoDoCaminho(caminho.filename());
}

std::string comInicialMaiuscula(Texto texto) {
    if (!texto.empty()) texto.replace(0, 1, maiusculas(texto.substr(0, 1)));
    return paraHtml(texto);
}

/// Whether the value of a piece says more than its text does: an amount or a date.
bool valorAjuda(const PedacoDaRegua& pedaco) {
    return pedaco.estado == PedacoDaRegua::Estado::Lido && pedaco.valor.find_first_of(",/"_t) != Texto::npos &&
           semBrancos(pedaco.valor) != semBrancos(pedaco.texto);
}

/// One piece of a ruler. `culpado` is the finding that the ruler is shown for; others are its consequences.
std::string quadroDo(const PedacoMarcado& marcado, const Achado& culpado, VistaTexto classe) {
    const PedacoDaRegua& pedaco = marcado.pedaco;
    const bool ehCulpado = std::ranges::any_of(marcado.achados, [&](const Achado* a) { return a->n == culpado.n; });
    const VistaTexto palavra = ehCulpado ? classe : !marcado.achados.empty() ? "consequência"_t : ""_t;
    std::string html = ehCulpado ? R"(<li class="x">)" : palavra.empty() ? "<li>" : R"(<li class="d">)";
    html += unir("<span>", std::to_string(pedaco.inicio),
                 pedaco.fim > pedaco.inicio ? "–" + std::to_string(pedaco.fim) : "", "</span> ");
    if (!pedaco.campo.empty() || !palavra.empty())
        html +=
            unir("<b>", paraHtml(pedaco.campo), palavra.empty() ? "" : " <em>" + paraHtml(palavra) + "</em>", "</b> ");
    html += unir("<code>", bytesParaHtml(pedaco.texto), "</code>");
    if (valorAjuda(pedaco)) html += unir(" <small>= ", paraHtml(pedaco.valor), "</small>");
    if (pedaco.estado == PedacoDaRegua::Estado::Ilegivel) html += " <small>ilegível</small>";
    if (pedaco.estado == PedacoDaRegua::Estado::Cortado) html += " <small>cortado</small>";
    if (pedaco.estado == PedacoDaRegua::Estado::Sobra) html += " <small>sobra</small>";
    return html += "</li>";
}

/// The ruler of the line of a group's first finding, with those of its consequences that are about the same line.
std::string reguaDo(const GrupoDeAchados& grupo, const Pedacos& pedacos) {
    if (pedacos.empty()) return {};
    std::vector<Achado> daLinha{grupo.primeiro};
    for (const GrupoDeAchados* const consequencia : grupo.consequencias)
        if (consequencia->primeiro.linha == grupo.primeiro.linha) daLinha.push_back(consequencia->primeiro);
    std::string html =
        unir(R"(<ol class="regua" aria-label="Régua da linha )", std::to_string(grupo.primeiro.linha), R"(">)");
    const Texto classe = junta(grupo.primeiro.discutido                            ? "discutido"_t
                               : grupo.primeiro.gravidade == Gravidade::Aviso      ? "aviso"_t
                               : grupo.primeiro.gravidade == Gravidade::Ocorrencia ? "ocorrência"_t
                                                                                   : "erro"_t);
    for (const PedacoMarcado& marcado : marcar(pedacos, daLinha))
        html += quadroDo(marcado, grupo.primeiro, classe);
    return html += "</ol>";
}

/// What is found over what is expected.
std::string parDo(const Achado& achado) {
    if (!achado.campo) return {};
    const CampoDoAchado& campo = *achado.campo;
    const auto ouNada = [](std::string html) { return html.empty() ? std::string("<i>(nada)</i>") : std::move(html); };
    const ParDeTextos par = campo.esperado ? compararEmHtml(campo.encontrado, *campo.esperado)
                                           : ParDeTextos{bytesParaHtml(campo.encontrado), {}};
    std::string html =
        unir(R"(<dl class="par"><dt>encontrado</dt><dd><code class="e">)", ouNada(par.primeiro), "</code></dd>");
    if (campo.esperado) html += unir(R"(<dt>esperado</dt><dd><code class="c">)", ouNada(par.segundo), "</code></dd>");
    return html += "</dl>";
}

/// A row of the table of what was checked: how far this report and how far the log looked at a part of the file.
struct LinhaDoConferido {
    std::string_view parte;
    std::pair<std::string_view, std::string> laudo; ///< sign, and text in HTML
    std::pair<std::string_view, std::string> log;
};

std::string celula(std::string_view titulo, const std::pair<std::string_view, std::string>& dito) {
    return unir(R"(<td data-t=")", titulo, R"(" class=")", dito.first, R"(">)", sinal(dito.first), dito.second,
                "</td>");
}

class Redator {
  public:
    Redator(const Ambiente& ambiente, const AchadosDoLaudo& achados, const DadosDoLaudo& dados)
        : ambiente_(ambiente)
        , dados_(dados)
        , resumo_(dados.resumo)
        , completa_(dados.completa)
        , guias_(achados.guias())
        , grupos_(achados.grupos().emOrdem())
        , milhar_(ambiente.localidade.separadorDeMilhar())
        , ajuda_(ambiente.arquivos, ambiente.ajuda())
        , nome_(paraHtml(nomeSemPasta(dados.pedido.nomeArquivo))) {}

    /// The groups whose rulers are shown, if they fit.
    [[nodiscard]] std::vector<const Achado*> comRegua() const {
        std::vector<const Achado*> primeiros;
        for (const GrupoDeAchados* const grupo : grupos_)
            if (primeiros.size() < maisReguas) primeiros.push_back(&grupo->primeiro);
        return primeiros;
    }

    [[nodiscard]] std::string escrever(const std::vector<Pedacos>& reguas) {
        const std::string antes = unir(cabeca(), topo(), parteDoVeredito(), lista(), conferido(), ficha());
        const std::string depois = rodape();
        const std::size_t fixo = antes.size() + depois.size() + reservaParaAvisos;
        std::vector<std::string> detalhes = detalhesSemRegua(maiorLaudo - std::min(maiorLaudo, fixo));
        const std::size_t dosDetalhes = std::transform_reduce(detalhes.begin(), detalhes.end(), fixo, std::plus<>(),
                                                              [](const std::string& d) { return d.size(); });
        const std::string guias = parteDasGuias(maiorLaudo - std::min(maiorLaudo, dosDetalhes));
        porReguas(detalhes, reguas, maiorLaudo - std::min(maiorLaudo, dosDetalhes + guias.size()));
        return unir(antes, achados(detalhes), guias, fora(), depois);
    }

  private:
    [[nodiscard]] std::string contar(std::int64_t numero, VistaTexto singular, VistaTexto plural) const {
        return paraHtml(contagem(numero, singular, plural, milhar_));
    }
    [[nodiscard]] std::string numero(std::int64_t numero) const { return paraHtml(comMilhares(numero, milhar_)); }
    [[nodiscard]] bool remessa() const noexcept { return dados_.pedido.tipoArquivo == TipoArquivo::ZUL702; }
    [[nodiscard]] bool semParada() const noexcept { return resumo_.desfecho == Desfecho::Concluida; }

    [[nodiscard]] std::string cabeca() const {
        const Veredito julgado = veredito(resumo_, completa_, milhar_);
        // The sum stands in front of everything that comes from a file.
        return unir(R"(<!DOCTYPE html>
<html lang="pt-BR">
<head>
<meta charset="utf-8">
)",
                    marcaDaSoma, completa_.sha256,
                    R"(">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'; script-src )"
                    R"('unsafe-inline'; base-uri 'none'; form-action 'none'">
<title>Laudo de )",
                    nome_, ": ", paraHtml(julgado.texto), "</title>\n<style>", laudo::estilo, "</style>\n</head>\n");
    }

    [[nodiscard]] std::string topo() const {
        return unir("<body>\n", laudo::sinais, R"(<a class="pula" href="#conteudo">Ir para o veredito</a>
<header class="topo"><p><b>Quilatador de Leiaute</b> · Laudo de conferência</p><p>)",
                    hoje(), "</p></header>\n<main id=\"conteudo\" tabindex=\"-1\">\n");
    }

    [[nodiscard]] std::string hoje() const { return paraHtml(formatarData(ambiente_.relogio.hoje(), "DD/MM/YYYY"_t)); }

    [[nodiscard]] std::string parteDoVeredito() const {
        const Veredito julgado = veredito(resumo_, completa_, milhar_);
        const std::string_view classe = classeDo(julgado.sinal);
        return unir(R"(<p class="tipo">)", paraHtml(nomeDaEspecie(dados_.pedido.tipoArquivo)), "</p>\n<h1>", nome_,
                    "</h1>\n<section class=\"veredito ", classe, R"(" aria-labelledby="h-veredito">)", sinal(classe),
                    R"(<div><h2 id="h-veredito">)", paraHtml(julgado.texto), "</h2>\n<p>",
                    paraHtml(textoDaConferencia(completa_, milhar_)), ".</p></div></section>\n", numeros(), nota());
    }

    [[nodiscard]] std::string numeros() const {
        std::string html = R"(<dl class="numeros">)";
        const auto somar = [&](bool mostrar, std::string_view classe, std::string_view nome, std::int64_t quantos) {
            if (mostrar)
                html += unir(R"(<div class=")", quantos == 0 ? "nada" : classe, R"("><dt>)", nome, "</dt><dd>",
                             numero(quantos), "</dd></div>");
        };
        const ContagemDeGuias& guias = completa_.guias;
        const bool temGuias = guias.lidas > 0;
        somar(completa_.ocorrencias == 0, "ruim", "Causas a corrigir", completa_.causas);
        somar(completa_.ocorrencias > 0, "ruim", "Ocorrências", completa_.ocorrencias);
        somar(remessa(), "atencao", "Avisos", completa_.avisos);
        somar(completa_.discutidos > 0, "parte", "Discutidos", completa_.discutidos);
        somar(temGuias, "ruim", completa_.ocorrencias > 0 ? "Guias com ocorrência" : "Guias com erro", guias.comErro);
        somar(guias.emParte > 0, "parte", "Conferidas em parte", guias.emParte);
        somar(guias.naoConferidas > 0, "parte", "Não conferidas", guias.naoConferidas);
        somar(temGuias, "bom", "Guias certas", guias.certas);
        return html += "</dl>\n";
    }

    /// What the log says of the same file.
    [[nodiscard]] std::string nota() const {
        std::string texto;
        if (!semParada())
            texto = unir("<b>O log mostra menos.</b> Ele parou",
                         resumo_.linhaDaParada > 0 ? " na linha " + std::to_string(resumo_.linhaDaParada) : "", ": «",
                         paraHtml(encurtada(resumo_.descricao)),
                         "». Este laudo segue até o fim do arquivo, e confere cada guia que a parada deixou de fora.");
        else if (remessa())
            texto = unir("<b>O log deste arquivo</b> tem ", contar(resumo_.totalErros, "erro"_t, "erros"_t), "; ",
                         guiasDoLog(), ". Este laudo confere cada uma.");
        else
            return {};
        return unir(R"(<p class="nota">)", texto, R"( <a href="#conferido">O que foi conferido</a></p>)", "\n");
    }

    /// Of which slips the log checked the content.
    [[nodiscard]] std::string guiasDoLog() const {
        const std::string lidas = contar(resumo_.guiasDepuradas, "guia lida"_t, "guias lidas"_t);
        if (resumo_.guiasAceitas + resumo_.guiasRejeitadas == 0)
            return unir("das ", lidas, ", não conferiu o conteúdo de nenhuma");
        if (resumo_.guiasDepuradas == 1) return "conferiu o conteúdo da única guia";
        return unir("das ", lidas, ", só conferiu o conteúdo da última");
    }

    [[nodiscard]] std::string rotuloDo(std::size_t i) const {
        return unir(paraHtml(quilatador::classeDo(grupos_[i]->primeiro)), " ", std::to_string(i + 1));
    }

    [[nodiscard]] std::string dito(std::size_t i) const {
        return unir(R"(<span class="dito">)", sinal(aspectoDo(grupos_[i]->primeiro).cor), rotuloDo(i), "</span>");
    }

    [[nodiscard]] std::string lista() {
        if (grupos_.empty()) return {};
        std::string html = R"(<section aria-labelledby="h-lista"><h2 id="h-lista">Os achados em resumo</h2>
<p>Primeiro o que é preciso corrigir. Uma causa que se repete é um só achado; o que decorre dela some com ela.</p>
<div class="rolo" role="group" aria-label="Os achados em resumo"><table class="blocos"><thead><tr><th scope="col">Achado</th><th scope="col">O que foi encontrado</th><th scope="col">O primeiro lugar</th><th scope="col" class="n">Quantos</th></tr></thead><tbody>
)";
        listados_ = 0;
        while (listados_ < grupos_.size() && html.size() < maiorLista)
            html += linhaDaLista(listados_++);
        return html += "</tbody></table></div></section>\n";
    }

    [[nodiscard]] std::string linhaDaLista(std::size_t i) const {
        const GrupoDeAchados& grupo = *grupos_[i];
        const Achado& primeiro = grupo.primeiro;
        return unir(R"(<tr class=")", aspectoDo(primeiro).cor, R"("><td>)", dito(i),
                    R"(</td><th scope="row"><a href="#a)", std::to_string(i + 1), R"(">)",
                    paraHtml(encurtada(mensagemComum(primeiro))), "</a></th><td>",
                    comInicialMaiuscula(textoDoLugar(primeiro.linha, primeiro.guia)),
                    R"(</td><td class="n" data-t="Quantos">)", numero(grupo.quantidade), "</td></tr>\n");
    }

    [[nodiscard]] std::string conferido() const {
        std::string html =
            R"(<section aria-labelledby="h-conferido" id="conferido"><h2 id="h-conferido">O que foi conferido</h2>
<div class="rolo" role="group" aria-label="O que foi conferido"><table class="blocos"><thead><tr><th scope="col">Parte do arquivo</th><th scope="col">Este laudo</th><th scope="col">O log</th></tr></thead><tbody>
)";
        for (const LinhaDoConferido& linha : remessa() ? conferidoDaRemessa() : conferidoDoRetorno())
            html += unir(R"(<tr><th scope="row">)", linha.parte, "</th>", celula("Este laudo", linha.laudo),
                         celula("O log", linha.log), "</tr>\n");
        html += "</tbody></table></div>\n";
        if (completa_.parcial())
            html += unir("<p><b>A conferência não chegou ao fim do arquivo:</b> ",
                         paraHtml(encurtada(completa_.descricao)), "</p>\n");
        if (const Texto datas = textoDasDatas(completa_, milhar_); !datas.empty())
            html += unir("<p>", paraHtml(datas), ".</p>\n");
        return html +=
               R"(<p class="suave">O arquivo é conferido pelas regras do leiaute. O banco pode recusá-lo por motivos que não estão nele, como um convênio encerrado.</p></section>
)";
    }

    [[nodiscard]] std::pair<std::string_view, std::string> ateOnde() const {
        if (!completa_.parcial()) return {"bom", "Até o fim: " + contar(completa_.registros, "linha"_t, "linhas"_t)};
        return {"parte", "Só as primeiras " + contar(completa_.registros, "linha"_t, "linhas"_t)};
    }

    [[nodiscard]] std::pair<std::string_view, std::string> parteDoLog() const {
        if (semParada()) return {"bom", "Até o fim"};
        if (resumo_.linhaDaParada == 0) return {"parte", "Não até o fim"};
        return {"parte", "Só até a linha " + std::to_string(resumo_.linhaDaParada)};
    }

    [[nodiscard]] std::vector<LinhaDoConferido> conferidoDaRemessa() const {
        const bool todas = completa_.guias.emParte + completa_.guias.naoConferidas == 0 && !completa_.parcial();
        const bool alguma = resumo_.guiasAceitas + resumo_.guiasRejeitadas > 0;
        return {{"Ordem, tamanho e numeração das linhas", ateOnde(), parteDoLog()},
                {"Definições (segmentos A a L)",
                 {completa_.parcial() ? "parte" : "bom", completa_.parcial() ? "Até onde se leu" : "Todas"},
                 semParada() ? std::pair<std::string_view, std::string>{"bom", "Todas"}
                             : std::pair<std::string_view, std::string>{"nada", "Não até o fim"}},
                {"Conteúdo das guias",
                 {todas ? "bom" : "parte", guiasDoLaudo()},
                 alguma ? std::pair<std::string_view, std::string>{resumo_.guiasDepuradas == 1 ? "bom" : "parte",
                                                                   resumo_.guiasDepuradas == 1 ? "A única guia"
                                                                                               : "Só a última guia"}
                        : std::pair<std::string_view, std::string>{"nada", "Nenhuma guia"}},
                {"O que vem depois do trailer",
                 {completa_.parcial() ? "nada" : "bom", completa_.parcial() ? "Não conferido" : "Conferido"},
                 {"nada", "Não conferido"}}};
    }

    [[nodiscard]] std::string guiasDoLaudo() const {
        const ContagemDeGuias& guias = completa_.guias;
        const auto inteiras = guias.certas + guias.comErro;
        std::string html = contar(inteiras, "guia"_t, "guias"_t);
        if (guias.emParte > 0) html += unir("; ", contar(guias.emParte, "em parte"_t, "em parte"_t));
        if (guias.naoConferidas > 0)
            html += unir("; ", contar(guias.naoConferidas, "não conferida"_t, "não conferidas"_t),
                         dados_.primeiras ? " (--primeiras " + paraHtml(textoDoNumero(*dados_.primeiras)) + ")" : "");
        return html;
    }

    [[nodiscard]] std::vector<LinhaDoConferido> conferidoDoRetorno() const {
        if (dados_.pedido.tipoArquivo == TipoArquivo::ZUL708)
            return {{"Ocorrências dos registros", ateOnde(), parteDoLog()},
                    {"A guia de cada ocorrência", {"bom", "Sim"}, {"nada", "Não"}}};
        return {{"Registros", ateOnde(), parteDoLog()},
                {"Totais do trailer: registros e valor",
                 {completa_.parcial() ? "nada" : "bom", completa_.parcial() ? "Não conferidos" : "Conferidos"},
                 {"nada", "Não conferidos"}}};
    }

    [[nodiscard]] std::string ficha() const {
        std::string html = R"(<section aria-labelledby="h-arquivo"><h2 id="h-arquivo">O arquivo e as opções</h2>
<dl class="ficha">
)";
        const auto somar = [&](std::string_view nome, std::string_view valor) {
            html += unir("<div><dt>", nome, "</dt><dd>", valor, "</dd></div>\n");
        };
        somar("Arquivo", unir("<code>", nome_, "</code>"));
        const std::uint64_t bytes =
            dados_.versao ? dados_.versao->tamanho : ambiente_.arquivos.tamanho(dados_.pedido.nomeArquivo);
        somar("Tamanho", unir(contar(static_cast<std::int64_t>(bytes), "byte"_t, "bytes"_t), ", ",
                              contar(completa_.registros, "linha"_t, "linhas"_t)));
        somar("SHA-256", completa_.sha256.empty() ? "não calculado" : unir("<code>", completa_.sha256, "</code>"));
        somar("Log", unir("<code>", paraHtml(nomeSemPasta(dados_.log)), "</code>"));
        if (remessa()) somar("Opções", opcoes());
        somar("Programa", unir("Quilatador de Leiaute ", paraHtml(dados_.programa)));
        if (remessa()) somar("Leiaute", arquivoDoPrograma(ambiente_.leiaute()));
        somar("Tabelas de códigos", arquivoDoPrograma(ambiente_.bancoDeDados()));
        somar("Data deste laudo", hoje());
        return html += "</dl></section>\n";
    }

    [[nodiscard]] std::string opcoes() const {
        const Pedido& pedido = dados_.pedido;
        std::string html = "Código de barras sem data de vencimento";
        if (pedido.comData)
            html = unir("Código de barras com data de vencimento: formato <code>", paraHtml(pedido.FormatoDataBarra),
                        "</code>, posição ", paraHtml(textoDoNumero(pedido.PosicaoDataBarra)));
        return html += dados_.primeiras
                           ? unir("; só as primeiras ", paraHtml(textoDoNumero(*dados_.primeiras)), " guias")
                           : std::string("; todas as guias");
    }

    [[nodiscard]] std::string arquivoDoPrograma(const std::filesystem::path& caminho) const {
        const auto data = ambiente_.arquivos.modificadoEm(caminho);
        const std::string soma = ambiente_.arquivos.somar(caminho)->hexadecimal({});
        return unir("<code>", paraHtml(nomeSemPasta(caminho)), "</code>",
                    data ? " de " + paraHtml(formatarData(*data, "DD/MM/YYYY"_t)) : "",
                    soma.empty() ? "" : ", SHA-256 <code>" + soma + "</code>");
    }

    /// The details of the groups, in two halves between which the ruler will be put; as many of them as fit.
    [[nodiscard]] std::vector<std::string> detalhesSemRegua(std::size_t bytes) {
        std::vector<std::string> detalhes;
        std::size_t usados = 0;
        for (std::size_t i = 0; i < listados_; ++i) {
            std::string detalhe = detalheDo(i);
            usados += detalhe.size();
            if (usados > bytes) break;
            detalhes.push_back(std::move(detalhe));
        }
        semDetalhe_ = static_cast<std::int64_t>(grupos_.size() - detalhes.size());
        return detalhes;
    }

    static constexpr std::string_view lugarDaRegua = "<!--regua-->";

    [[nodiscard]] std::string detalheDo(std::size_t i) const {
        const GrupoDeAchados& grupo = *grupos_[i];
        const Achado& primeiro = grupo.primeiro;
        const Aspecto aspecto = aspectoDo(primeiro);
        const std::string id = std::to_string(i + 1);
        const std::string remedio = remedioDo(primeiro);
        return unir(R"(<article class="achado )", aspecto.cor, R"(" id="a)", id, R"(" data-c=")", aspecto.filtro,
                    R"(" aria-labelledby="t)", id, R"("><h4 id="t)", id, R"(">)", dito(i), R"(<span class="titulo">)",
                    paraHtml(encurtada(mensagemComum(primeiro))), R"(</span></h4><div class="corpo">)", ondeDo(grupo),
                    remedio.empty() ? R"(<div class="duas so"><div>)" : R"(<div class="duas"><div>)", parDo(primeiro),
                    lugarDaRegua, lugaresDo(grupo), "</div>", remedio, "</div>", consequenciasDo(grupo),
                    R"(<p class="regra">Regra <code>)", paraHtml(primeiro.id), "</code>, achado nº ",
                    numero(primeiro.n), "</p></div></article>\n");
    }

    [[nodiscard]] std::string ondeDo(const GrupoDeAchados& grupo) const {
        const Achado& primeiro = grupo.primeiro;
        std::string html = R"(<p class="onde">)";
        if (grupo.quantidade > 1)
            html += unir("<b>", contar(grupo.quantidade, "lugar"_t, "lugares"_t), "</b>; o primeiro: ");
        html += comInicialMaiuscula(textoDoLugar(primeiro.linha, primeiro.guia, primeiro.idGuia));
        if (primeiro.segmento != 0) html += unir(" · segmento ", paraHtml(VistaTexto(&primeiro.segmento, 1)));
        if (primeiro.campo) html += unir(" · ", paraHtml(textoDoCampo(*primeiro.campo)));
        if (grupo.deConsequencias()) html += " · decorre de outro achado";
        return html += "</p>";
    }

    [[nodiscard]] std::string remedioDo(const Achado& achado) const {
        std::string html;
        const auto somar = [&](std::string_view titulo, VistaTexto texto) {
            if (!texto.empty()) html += unir("<h5>", titulo, "</h5><p>", paraHtml(texto), "</p>");
        };
        if (achado.discutido) somar("Por que é discutido", achado.motivo);
        if (const auto explicacao = ajuda_.de(achado.id)) {
            somar("O que significa", explicacao->sentido);
            somar("O que fazer", explicacao->remedio);
        }
        return html.empty() ? html : unir(R"(<div class="remedio">)", html, "</div>");
    }

    [[nodiscard]] std::string lugaresDo(const GrupoDeAchados& grupo) const {
        if (grupo.quantidade < 2) return {};
        std::string html = R"(<h5>Lugares</h5><ul class="lugares">)";
        for (const LugarDoAchado& lugar : grupo.lugares)
            html += unir("<li>", comInicialMaiuscula(textoDoLugar(lugar.linha, lugar.guia, lugar.idGuia)), "</li>");
        const auto restam = grupo.quantidade - static_cast<std::int64_t>(grupo.lugares.size());
        if (restam > 0) html += unir("<li>mais ", numero(restam), "</li>");
        return html += "</ul>";
    }

    [[nodiscard]] std::string consequenciasDo(const GrupoDeAchados& grupo) const {
        if (grupo.consequencias.empty()) return {};
        std::int64_t total = 0;
        for (const GrupoDeAchados* const consequencia : grupo.consequencias)
            total += consequencia->quantidade;
        std::string html = unir(
            R"(<div class="decorre"><h5><span class="titulo">)",
            contar(total, "consequência: some com a causa"_t, "consequências: somem com a causa"_t),
            R"(</span></h5><div class="rolo" role="group" aria-label="Consequências"><table class="blocos"><thead><tr><th scope="col">Mensagem</th><th scope="col">O primeiro lugar</th><th scope="col">Campo</th><th scope="col" class="n">Quantos</th></tr></thead><tbody>)");
        const std::size_t mostradas = std::min(grupo.consequencias.size(), maisConsequencias);
        for (std::size_t i = 0; i < mostradas; ++i)
            html += linhaDaConsequencia(*grupo.consequencias[i]);
        const std::size_t outras = grupo.consequencias.size() - mostradas;
        if (outras > 0) html += unir("<tr><td colspan=\"4\">e de mais ", std::to_string(outras), " regras</td></tr>");
        return html += "</tbody></table></div></div>";
    }

    [[nodiscard]] std::string linhaDaConsequencia(const GrupoDeAchados& grupo) const {
        const Achado& primeiro = grupo.primeiro;
        return unir("<tr><td>", paraHtml(encurtada(primeiro.mensagem)), "</td><td>",
                    comInicialMaiuscula(textoDoLugar(primeiro.linha, primeiro.guia)), R"(</td><td data-t="Campo">)",
                    primeiro.campo ? paraHtml(primeiro.campo->nome) : "–", R"(</td><td class="n" data-t="Quantos">)",
                    numero(grupo.quantidade), "</td></tr>");
    }

    /// Puts the rulers into the details, those of the first findings first, as long as there is room.
    void porReguas(std::vector<std::string>& detalhes, const std::vector<Pedacos>& reguas, std::size_t bytes) {
        for (std::size_t i = 0; i < detalhes.size(); ++i) {
            std::string regua = i < reguas.size() ? reguaDo(*grupos_[i], reguas[i]) : std::string();
            const bool falta = i >= reguas.size() || (regua.size() > bytes && !regua.empty());
            if (falta) ++semRegua_;
            if (falta) regua.clear();
            bytes -= std::min(bytes, regua.size());
            detalhes[i].replace(detalhes[i].find(lugarDaRegua), lugarDaRegua.size(), regua);
        }
    }

    [[nodiscard]] std::string achados(const std::vector<std::string>& detalhes) const {
        std::string html =
            R"(<section aria-labelledby="h-achados" id="achados"><h2 id="h-achados">Os achados, um a um</h2>
)";
        if (detalhes.empty()) return html += "<p>Nenhum achado.</p></section>\n";
        html +=
            R"(<div class="legenda"><p><b>Como ler a régua.</b> Cada quadro é um campo da linha: posições, nome e texto, como está no arquivo, e o valor lido, se ajuda. <code>␣</code> é um branco; <code>␣×19</code>, 19 brancos seguidos; <code>‹1A›</code>, um byte sem figura. De borda grossa e com uma palavra é o campo do achado; de borda tracejada, o de uma consequência.</p></div>
<div id="filtro"></div>
)";
        std::string_view aberta;
        for (std::size_t i = 0; i < detalhes.size(); ++i) {
            const std::string_view titulo = tituloDaSecao(*grupos_[i]);
            if (titulo != aberta)
                html += unir(aberta.empty() ? "" : "</section>\n", "<section><h3>", titulo, "</h3>\n");
            aberta = titulo;
            html += detalhes[i];
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

    [[nodiscard]] std::string parteDasGuias(std::size_t bytes) {
        if (completa_.guias.lidas == 0) return {};
        std::string html = R"(<section aria-labelledby="h-guias"><h2 id="h-guias">As guias</h2>
)";
        html += guiasCertas();
        const GuiasDoLaudo::Faixa& fora = guias_.naoConferidas();
        if (fora.primeira > 0)
            html += unir(R"(<p class="nada">)", sinal("nada"), R"(<b>Não conferidas ()",
                         numero(completa_.guias.naoConferidas), "):</b> ", textoDaFaixa(fora), ".</p>\n");
        return html += unir(guiasErradas(bytes - std::min(bytes, html.size())), "</section>\n");
    }

    [[nodiscard]] std::string textoDaFaixa(const GuiasDoLaudo::Faixa& faixa) const {
        if (faixa.primeira == faixa.ultima) return numero(faixa.primeira);
        return unir(numero(faixa.primeira), faixa.ultima == faixa.primeira + 1 ? " e " : " a ", numero(faixa.ultima));
    }

    [[nodiscard]] std::string guiasCertas() {
        const auto faixas = guias_.certas(completa_.guias.lidas);
        if (completa_.guias.certas == 0) return {};
        std::string lugares;
        for (const auto& faixa : std::span(faixas).first(std::min(faixas.size(), maisFaixas)))
            lugares += unir(lugares.empty() ? "" : "; ", textoDaFaixa(faixa));
        const auto conhecidas = guias_.conhecidasAte(completa_.guias.lidas);
        const bool todas =
            faixas.size() <= maisFaixas && conhecidas + completa_.guias.naoConferidas >= completa_.guias.lidas;
        if (!todas) lugares += lugares.empty() ? "não cabem aqui" : "; e outras";
        certasFora_ = !todas;
        return unir(R"(<p class="bom">)", sinal("bom"), "<b>Certas (", numero(completa_.guias.certas), "):</b> ",
                    lugares, ".</p>\n");
    }

    [[nodiscard]] std::string guiasErradas(std::size_t bytes) {
        const auto& erradas = guias_.erradas();
        if (erradas.empty()) return {};
        std::string html =
            R"(<div class="rolo" role="group" aria-label="Guias que não estão certas"><table class="blocos"><thead><tr><th scope="col">Guia</th><th scope="col">Veredito</th><th scope="col">IdGuia</th><th scope="col">Primeira linha</th></tr></thead><tbody>
)";
        std::size_t mostradas = 0;
        for (; mostradas < erradas.size(); ++mostradas) {
            const std::string linha = linhaDaGuia(erradas[mostradas]);
            if (html.size() + linha.size() + 1000 > bytes) break;
            html += linha;
        }
        guiasFora_ = completa_.guias.comErro + completa_.guias.emParte - static_cast<std::int64_t>(mostradas);
        return mostradas == 0 ? std::string() : html += "</tbody></table></div>\n";
    }

    [[nodiscard]] std::string linhaDaGuia(const GuiaConferida& guia) const {
        const bool errada = guia.estado == GuiaConferida::Estado::ComErro;
        const std::string_view cor = errada ? "ruim" : "parte";
        const std::string_view palavra = !errada                     ? "Conferida em parte"
                                         : completa_.ocorrencias > 0 ? "Com ocorrência"
                                                                     : "Com erro";
        return unir(R"(<tr class=")", cor, R"("><th scope="row" data-t="Guia">)", numero(guia.guia),
                    R"(</th><td class="dito">)", sinal(cor), palavra, R"(</td><td data-t="IdGuia"><code>)",
                    bytesParaHtml(semBrancos(guia.idGuia)), R"(</code></td><td data-t="Primeira linha">)",
                    numero(guia.linha), "</td></tr>\n");
    }

    [[nodiscard]] std::string fora() const {
        std::string itens;
        const auto somar = [&](bool mostrar, const std::string& texto) {
            if (mostrar) itens += unir("<li>", texto, "</li>\n");
        };
        const auto cortados = std::ranges::count_if(grupos_, [](const GrupoDeAchados* g) {
            return g->quantidade > static_cast<std::int64_t>(g->lugares.size());
        });
        somar(cortados > 0, unir("De ", contar(cortados, "achado"_t, "achados"_t), " estão aqui os primeiros ",
                                 std::to_string(GrupoDeAchados::maisLugares), " lugares."));
        somar(listados_ < grupos_.size(), unir(numero(static_cast<std::int64_t>(grupos_.size() - listados_)),
                                               " achados não couberam nem no resumo."));
        somar(semDetalhe_ > 0, unir(contar(semDetalhe_, "achado"_t, "achados"_t), " só no resumo, sem detalhes."));
        somar(semRegua_ > 0, unir(contar(semRegua_, "achado"_t, "achados"_t), " sem régua."));
        somar(guiasFora_ > 0, unir(contar(guiasFora_, "guia"_t, "guias"_t), " que não estão certas só na contagem."));
        somar(certasFora_, "Das guias certas, nem todos os números.");
        somar(completa_.guias.naoConferidas > 0,
              unir(contar(completa_.guias.naoConferidas, "guia"_t, "guias"_t), ", que não se pediu para conferir."));
        somar(completa_.guias.certas > 0, "As guias certas aparecem só pelo número.");
        somar(true, "Nada mais. O laudo tem no máximo 2 MB; a lista inteira dos achados sai com <code>--csv</code>.");
        return unir(R"(<section aria-labelledby="h-fora"><h2 id="h-fora">O que ficou de fora</h2>
<ul>
)",
                    itens, "</ul></section>\n");
    }

    [[nodiscard]] std::string rodape() const {
        return unir(
            "</main>\n<footer><p>Feito pelo Quilatador de Leiaute ", paraHtml(dados_.programa), " em ", hoje(),
            ", neste computador; nada foi enviado pela rede. O arquivo analisado não foi alterado.</p>\n",
            "<p>Para saber se um arquivo é o deste laudo: <code>quilatador-cli --conferir LAUDO ARQUIVO</code></p>"
            "</footer>\n<script>",
            laudo::roteiro, "</script>\n</body>\n</html>\n");
    }

    const Ambiente& ambiente_;
    const DadosDoLaudo& dados_;
    const Resumo& resumo_;
    const ResumoCompleto& completa_;
    const GuiasDoLaudo& guias_;
    Grupos grupos_;
    Texto milhar_;
    AjudaDasRegras ajuda_;
    std::string nome_; ///< of the file, as HTML

    // What had no room.
    std::size_t listados_ = 0;
    std::int64_t semDetalhe_ = 0;
    std::int64_t semRegua_ = 0;
    std::int64_t guiasFora_ = 0;
    bool certasFora_ = false;
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
