#include "gerarLeiautes/Documento.h"

#include "common/Falha.h"

#include <algorithm>
#include <set>

namespace quilatador::leiautes {

namespace {

constexpr std::string_view inicioDoLugar = "<!-- registro ";
constexpr std::string_view fimDoLugar = " -->";

Falha falhaDoDocumento(VistaTexto descricao) {
    return {numeroDeFalha::geral, "gerarLeiautes"_t, descricao};
}

std::string emHtml(VistaTexto texto) {
    std::string html;
    for (const char c : utf8DeTexto(texto)) {
        switch (c) {
        case '&':
            html += "&amp;";
            break;
        case '<':
            html += "&lt;";
            break;
        case '>':
            html += "&gt;";
            break;
        default:
            html += c;
        }
    }
    return html;
}

Texto tipoDo(const CampoRemessa& campo) {
    const Texto& natureza = campo.natureza();
    if (natureza == "S"_t) return Texto("Texto"_t);
    if (natureza == "D"_t) return junta("Data "_t, campo.formato());
    if (natureza == "R"_t) return Texto("Número do registro"_t);
    if (natureza != "N"_t) return natureza;
    const int decimais = campo.numeroDecimais();
    return decimais == 0 ? Texto("Número"_t) : junta("Número, "_t, textoDe(decimais), " decimais"_t);
}

std::string linhaDo(const CampoRemessa& campo) {
    std::string linha = "<tr><th scope=\"row\">" + emHtml(campo.nome()) + "</th>";
    for (const int numero : {campo.inicio(), campo.Fim(), campo.Tamanho()})
        linha += "<td class=\"n\">" + std::to_string(numero) + "</td>";
    return linha + "<td>" + emHtml(tipoDo(campo)) + "</td><td>" + emHtml(campo.Valor().texto()) + "</td></tr>\n";
}

std::string tabelaDo(const RegistroRemessa& registro) {
    std::string tabela = "<table>\n<thead><tr><th>Campo</th><th class=\"n\">De</th><th class=\"n\">Até</th>"
                         "<th class=\"n\">Tamanho</th><th>Tipo</th><th>Conteúdo fixo</th></tr></thead>\n<tbody>\n";
    for (const auto& campo : registro.campos())
        tabela += linhaDo(*campo);
    return tabela + "</tbody>\n</table>";
}

const RegistroRemessa& registroDoLugar(const ArquivoRemessa& leiaute, VistaTexto nome) {
    const auto& tipos = leiaute.tiposRegistros();
    const auto achado = std::ranges::find(tipos, nome, [](const auto& tipo) -> VistaTexto { return tipo->nome(); });
    if (achado == tipos.end()) throw falhaDoDocumento(junta("O leiaute não tem o registro "_t, nome));
    return **achado;
}

void exigirTodos(const ArquivoRemessa& leiaute, const std::set<Texto>& colocados) {
    for (const auto& tipo : leiaute.tiposRegistros())
        if (!colocados.contains(tipo->nome()))
            throw falhaDoDocumento(junta("O modelo não tem lugar para o registro "_t, tipo->nome()));
}

} // namespace

std::string preencher(std::string_view modelo, const ArquivoRemessa& leiaute) {
    std::string documento;
    std::set<Texto> colocados;
    for (;;) {
        const std::size_t lugar = modelo.find(inicioDoLugar);
        documento += modelo.substr(0, lugar);
        if (lugar == std::string_view::npos) break;
        modelo.remove_prefix(lugar + inicioDoLugar.size());
        const std::size_t fim = modelo.find(fimDoLugar);
        if (fim == std::string_view::npos) throw falhaDoDocumento("O modelo tem um lugar sem fim"_t);
        const Texto nome = textoDeUtf8(modelo.substr(0, fim));
        documento += tabelaDo(registroDoLugar(leiaute, nome));
        colocados.insert(nome);
        modelo.remove_prefix(fim + fimDoLugar.size());
    }
    exigirTodos(leiaute, colocados);
    return documento;
}

} // namespace quilatador::leiautes
