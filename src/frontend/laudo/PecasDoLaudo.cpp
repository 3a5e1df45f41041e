#include "frontend/laudo/PecasDoLaudo.h"

#include "common/Numero.h"

namespace quilatador::laudo {

std::string sinal(std::string_view classe) {
    return unir(R"(<svg class="sinal" aria-hidden="true"><use href="#s-)", classe, R"("/></svg>)");
}

Texto nomeSemPasta(const std::filesystem::path& caminho) {
    return textoDoCaminho(caminho.filename());
}

std::string lugarEmHtml(std::int64_t linha, std::int64_t guia, VistaTexto idGuia) {
    Texto lugar = textoDoLugar(linha, guia, idGuia);
    if (!lugar.empty()) lugar.replace(0, 1, maiusculas(lugar.substr(0, 1)));
    return paraHtml(lugar);
}

std::string inicioDaTabela(std::string_view nome, std::initializer_list<std::string_view> titulos) {
    std::string html =
        unir(R"(<div class="rolo" role="group" aria-label=")", nome, R"("><table class="blocos"><thead><tr>)");
    for (const std::string_view titulo : titulos)
        html += titulo.starts_with('#') ? unir(R"(<th scope="col" class="n">)", titulo.substr(1), "</th>")
                                        : unir(R"(<th scope="col">)", titulo, "</th>");
    return html += "</tr></thead><tbody>\n";
}

std::string NumerosDoLaudo::numero(std::int64_t numero) const {
    return paraHtml(comMilhares(numero, milhar_));
}

std::string NumerosDoLaudo::contar(std::int64_t numero, VistaTexto singular, VistaTexto plural) const {
    return paraHtml(contagem(numero, singular, plural, milhar_));
}

} // namespace quilatador::laudo
