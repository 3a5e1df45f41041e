#include "frontend/laudo/ArquivoNoLaudo.h"

#include "common/Numero.h"
#include "frontend/laudo/AchadoNoLaudo.h"

#include <utility>
#include <vector>

namespace quilatador::laudo {

namespace {

using Sinal = Veredito::Sinal;
/// What is said of a part of the file: the class of its sign, and a text in HTML.
using Dito = std::pair<std::string_view, std::string>;

/// A row of the table of what was checked.
struct LinhaDoConferido {
    std::string_view parte;
    Dito laudo;
    Dito log;
};

bool remessa(const DadosDoLaudo& dados) noexcept {
    return dados.pedido.tipoArquivo == TipoArquivo::ZUL702;
}

bool semParada(const DadosDoLaudo& dados) noexcept {
    return dados.resumo.desfecho == Desfecho::Concluida;
}

/// Whether the log came to check the content of a slip; it never checks that of more than one.
bool logConferiuGuia(const DadosDoLaudo& dados) noexcept {
    return dados.resumo.guiasAceitas + dados.resumo.guiasRejeitadas > 0;
}

std::string_view especieDo(TipoArquivo tipo) {
    switch (tipo) {
    case TipoArquivo::ZUL702:
        return "Remessa para impressão (ZUL702)";
    case TipoArquivo::ZUL708:
        return "Retorno da impressão (ZUL708)";
    case TipoArquivo::TAV001:
        return "Retorno de liquidação (TAV001)";
    }
    return {};
}

std::string_view classeDo(Sinal sinal) {
    switch (sinal) {
    case Sinal::Bom:
        return "bom";
    case Sinal::Atencao:
        return "atencao";
    case Sinal::Ruim:
        break;
    }
    return "ruim";
}

std::string quadrosDosNumeros(const ResumoCompleto& completa, bool daRemessa, const NumerosDoLaudo& numeros) {
    const ContagemDeGuias& guias = completa.guias;
    const bool temGuias = guias.lidas > 0;
    const bool temOcorrencias = completa.ocorrencias > 0;
    std::string html = R"(<dl class="numeros">)";
    const auto somar = [&](bool mostrar, std::string_view classe, std::string_view nome, std::int64_t quantos) {
        if (mostrar)
            html += unir(R"(<div class=")", quantos == 0 ? "nada" : classe, R"("><dt>)", nome, "</dt><dd>",
                         numeros.numero(quantos), "</dd></div>");
    };
    somar(!temOcorrencias, "ruim", "Causas a corrigir", completa.causas);
    somar(temOcorrencias, "ruim", "Ocorrências", completa.ocorrencias);
    somar(daRemessa, "atencao", "Avisos", completa.avisos);
    somar(completa.discutidos > 0, "parte", "Discutidos", completa.discutidos);
    somar(temGuias, "ruim", temOcorrencias ? "Guias com ocorrência" : "Guias com erro", guias.comErro);
    somar(guias.emParte > 0, "parte", "Conferidas em parte", guias.emParte);
    somar(guias.naoConferidas > 0, "parte", "Não conferidas", guias.naoConferidas);
    somar(temGuias, "bom", "Guias certas", guias.certas);
    return html += "</dl>\n";
}

/// Of which slips the log checked the content.
std::string guiasDoLog(const DadosDoLaudo& dados, const NumerosDoLaudo& numeros) {
    const std::int64_t lidas = dados.resumo.guiasDepuradas;
    if (lidas == 1) return logConferiuGuia(dados) ? "conferiu a única guia" : "não conferiu a única guia lida";
    return unir(logConferiuGuia(dados) ? "só conferiu o conteúdo da última de "
                                       : "não conferiu o conteúdo de nenhuma de ",
                numeros.contar(lidas, "guia"_t, "guias"_t));
}

/// What the log of a remittance says and what it does not.
std::string notaDoLog(const DadosDoLaudo& dados, const NumerosDoLaudo& numeros) {
    if (semParada(dados) && !remessa(dados)) return {};
    std::string html = R"(<p class="nota">)";
    if (semParada(dados))
        html += unir("<b>O log deste arquivo</b> tem ", numeros.contar(dados.resumo.totalErros, "erro"_t, "erros"_t),
                     " e ", guiasDoLog(dados, numeros));
    else
        html += unir("<b>O log parou</b>",
                     dados.resumo.linhaDaParada > 0 ? " na linha " + std::to_string(dados.resumo.linhaDaParada) : "",
                     " («", trechoEmHtml(dados.resumo.descricao), "»)");
    const bool todas = dados.completa.guias.naoConferidas == 0 && !dados.completa.parcial();
    html += !todas           ? ". Este laudo também não confere tudo."
            : remessa(dados) ? ". Este laudo confere todas as guias, até o fim do arquivo."
                             : ". Este laudo confere o arquivo até o fim.";
    return html += " <a href=\"#conferido\">O que foi conferido</a></p>\n";
}

Dito ateOndeOLaudo(const ResumoCompleto& completa, const NumerosDoLaudo& numeros) {
    const std::string linhas = numeros.contar(completa.registros, "linha"_t, "linhas"_t);
    return completa.parcial() ? Dito("parte", unir("Só até ", linhas)) : Dito("bom", unir("Até o fim: ", linhas));
}

Dito ateOndeOLog(const DadosDoLaudo& dados) {
    if (semParada(dados)) return {"bom", "Até o fim"};
    if (dados.resumo.linhaDaParada == 0) return {"parte", "Não até o fim"};
    return {"parte", unir("Só até a linha ", std::to_string(dados.resumo.linhaDaParada))};
}

Dito guiasDoLaudo(const DadosDoLaudo& dados, const NumerosDoLaudo& numeros) {
    const ContagemDeGuias& guias = dados.completa.guias;
    std::string html = numeros.contar(guias.certas + guias.comErro, "guia"_t, "guias"_t);
    if (guias.emParte > 0) html += unir("; ", numeros.numero(guias.emParte), " só em parte");
    if (guias.naoConferidas > 0)
        html += unir("; ", numeros.contar(guias.naoConferidas, "não conferida"_t, "não conferidas"_t));
    const bool todas = guias.emParte + guias.naoConferidas == 0 && !dados.completa.parcial();
    return {todas ? "bom" : "parte", html};
}

std::vector<LinhaDoConferido> conferidoDaRemessa(const DadosDoLaudo& dados, const NumerosDoLaudo& numeros) {
    const bool inteira = !dados.completa.parcial();
    const bool unica = dados.resumo.guiasDepuradas == 1;
    const Dito guiaDoLog = !logConferiuGuia(dados) ? Dito("nada", "Nenhuma guia")
                           : unica                 ? Dito("bom", "A única guia")
                                                   : Dito("parte", "Só a última guia");
    return {{"Ordem, tamanho e numeração das linhas", ateOndeOLaudo(dados.completa, numeros), ateOndeOLog(dados)},
            {"Definições (segmentos A a L)", inteira ? Dito("bom", "Todas") : Dito("parte", "Até onde se leu"),
             semParada(dados) ? Dito("bom", "Todas") : Dito("nada", "Não até o fim")},
            {"Conteúdo das guias", guiasDoLaudo(dados, numeros), guiaDoLog},
            {"O que vem depois do trailer",
             inteira ? Dito("bom", "Conferido") : Dito("nada", "Não conferido"),
             {"nada", "Não conferido"}}};
}

std::vector<LinhaDoConferido> conferidoDoRetorno(const DadosDoLaudo& dados, const NumerosDoLaudo& numeros) {
    if (dados.pedido.tipoArquivo == TipoArquivo::ZUL708)
        return {{"Ocorrências dos registros", ateOndeOLaudo(dados.completa, numeros), ateOndeOLog(dados)},
                {"A guia de cada ocorrência", {"bom", "Dita"}, {"nada", "Não dita"}}};
    return {{"Registros", ateOndeOLaudo(dados.completa, numeros), ateOndeOLog(dados)},
            {"Totais do trailer",
             dados.completa.parcial() ? Dito("nada", "Não conferidos") : Dito("bom", "Conferidos"),
             {"nada", "Não conferidos"}}};
}

std::string celula(std::string_view titulo, const Dito& dito) {
    return unir(R"(<td data-t=")", titulo, R"(" class=")", dito.first, R"(">)", sinal(dito.first), dito.second,
                "</td>");
}

std::string opcoesDe(const DadosDoLaudo& dados) {
    const Pedido& pedido = dados.pedido;
    std::string html = "Código de barras sem data de vencimento";
    if (pedido.comData)
        html = unir("Código de barras com data de vencimento, formato <code>", paraHtml(pedido.FormatoDataBarra),
                    "</code>, posição ", paraHtml(textoDoNumero(pedido.PosicaoDataBarra)));
    if (!dados.primeiras) return html += "; todas as guias";
    return html += unir("; só as primeiras guias: ", paraHtml(textoDoNumero(*dados.primeiras)));
}

/// A file of the program: its name, its day and its sum.
std::string arquivoDoPrograma(const std::filesystem::path& caminho, Arquivos& arquivos) {
    const auto data = arquivos.modificadoEm(caminho);
    const std::string soma = arquivos.somar(caminho)->hexadecimal({});
    std::string html = unir("<code>", paraHtml(nomeSemPasta(caminho)), "</code>");
    if (data) html += unir(" de ", paraHtml(formatarData(*data, "DD/MM/YYYY"_t)));
    return soma.empty() ? html : html += unir(", SHA-256 <code>", soma, "</code>");
}

} // namespace

std::string diaDoLaudo(const Ambiente& ambiente) {
    return paraHtml(formatarData(ambiente.relogio.hoje(), "DD/MM/YYYY"_t));
}

std::string parteDoVeredito(const DadosDoLaudo& dados, const NumerosDoLaudo& numeros) {
    const Veredito julgado = veredito(dados.resumo, dados.completa, numeros.milhar());
    const std::string_view classe = classeDo(julgado.sinal);
    return unir(R"(<p class="tipo">)", especieDo(dados.pedido.tipoArquivo), "</p>\n<h1>",
                paraHtml(nomeSemPasta(dados.pedido.nomeArquivo)), "</h1>\n<section class=\"veredito ", classe,
                R"(" aria-labelledby="h-veredito">)", sinal(classe), R"(<div><h2 id="h-veredito">)",
                paraHtml(julgado.texto), "</h2>\n<p>", paraHtml(textoDaConferencia(dados.completa, numeros.milhar())),
                ".</p></div></section>\n", quadrosDosNumeros(dados.completa, remessa(dados), numeros),
                notaDoLog(dados, numeros));
}

std::string parteDoConferido(const DadosDoLaudo& dados, const NumerosDoLaudo& numeros) {
    std::string html = unir(R"(<section aria-labelledby="h-conferido" id="conferido"><h2 id="h-conferido">)",
                            "O que foi conferido</h2>\n",
                            inicioDaTabela("O que foi conferido", {"Parte do arquivo", "Este laudo", "O log"}));
    for (const LinhaDoConferido& linha :
         remessa(dados) ? conferidoDaRemessa(dados, numeros) : conferidoDoRetorno(dados, numeros))
        html += unir(R"(<tr><th scope="row">)", linha.parte, "</th>", celula("Este laudo", linha.laudo),
                     celula("O log", linha.log), "</tr>\n");
    html += fimDaTabela;
    if (dados.completa.parcial())
        html += unir("<p><b>A conferência não chegou ao fim:</b> ", trechoEmHtml(dados.completa.descricao), "</p>\n");
    if (const Texto datas = textoDasDatas(dados.completa, numeros.milhar()); !datas.empty())
        html += unir("<p>", paraHtml(datas), ".</p>\n");
    if (!remessa(dados)) return html += "</section>\n";
    return html += R"(<p class="suave">O arquivo é conferido pelas regras do leiaute. O banco pode recusá-lo por )"
                   "motivos que não estão nele, como um convênio encerrado.</p></section>\n";
}

std::string parteDoArquivo(const DadosDoLaudo& dados, const NumerosDoLaudo& numeros, const Ambiente& ambiente) {
    std::string html = R"(<section aria-labelledby="h-arquivo"><h2 id="h-arquivo">O arquivo e as opções</h2>
<dl class="ficha">
)";
    const auto somar = [&](std::string_view nome, std::string_view valor) {
        html += unir("<div><dt>", nome, "</dt><dd>", valor, "</dd></div>\n");
    };
    const auto codigo = [](std::string_view texto) { return unir("<code>", texto, "</code>"); };
    const std::uint64_t bytes =
        dados.versao ? dados.versao->tamanho : ambiente.arquivos.tamanho(dados.pedido.nomeArquivo);
    somar("Arquivo", codigo(paraHtml(nomeSemPasta(dados.pedido.nomeArquivo))));
    somar("Tamanho", unir(numeros.contar(static_cast<std::int64_t>(bytes), "byte"_t, "bytes"_t), ", ",
                          numeros.contar(dados.completa.registros, "linha"_t, "linhas"_t)));
    somar("SHA-256", dados.completa.sha256.empty() ? "não calculado" : codigo(dados.completa.sha256));
    somar("Log", codigo(paraHtml(nomeSemPasta(dados.log))));
    if (remessa(dados)) somar("Opções", opcoesDe(dados));
    somar("Programa", unir("Quilatador de Leiaute ", paraHtml(dados.programa)));
    if (dados.pedido.tipoArquivo != TipoArquivo::TAV001)
        somar("Leiaute", arquivoDoPrograma(ambiente.leiaute(), ambiente.arquivos));
    somar("Tabelas de códigos", arquivoDoPrograma(ambiente.bancoDeDados(), ambiente.arquivos));
    somar("Data deste laudo", diaDoLaudo(ambiente));
    return html += "</dl></section>\n";
}

} // namespace quilatador::laudo
