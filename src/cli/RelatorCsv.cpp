#include "cli/RelatorCsv.h"

#include <algorithm>
#include <utility>

namespace quilatador {

namespace {

constexpr std::size_t bloco = 256 * 1024;
constexpr std::string_view fimDeLinha = "\r\n";
constexpr std::string_view marcaDeUtf8 = "\xEF\xBB\xBF";
constexpr std::string_view cabecalho =
    "arquivo;linha;guia;idGuia;segmento;campo;de;ate;encontrado;esperado;gravidade;id;causa;mensagem";

constexpr bool pedeAspas(char c) noexcept {
    return c == ';' || c == '"' || c == '\r' || c == '\n';
}

/// Whether a character of a cell is written as it is.
constexpr bool comum(char c) noexcept {
    return static_cast<unsigned char>(c) < 0x80 && !pedeAspas(c);
}

/// Appends a text as a cell. An apostrophe keeps a spreadsheet from running what the file under check says. Most cells
/// of most tables are copied as they are.
void anexarCelula(VistaTexto texto, std::string& destino) {
    const bool pareceFormula = !texto.empty() && "=+-@\t\r"_t.find(texto.front()) != VistaTexto::npos;
    if (!pareceFormula && std::ranges::all_of(texto, comum)) {
        destino += bytesDoTexto(texto);
        return;
    }
    const bool entreAspas = std::ranges::any_of(texto, pedeAspas);
    std::string utf8 = utf8DeTexto(texto);
    for (std::size_t i = utf8.find('"'); i != std::string::npos; i = utf8.find('"', i + 2))
        utf8.insert(i, 1, '"');
    if (entreAspas) destino += '"';
    if (pareceFormula) destino += '\'';
    destino += utf8;
    if (entreAspas) destino += '"';
}

/// An expected value as a Brazilian spreadsheet reads it: a plain decimal number has a comma.
Texto comVirgula(Texto valor) {
    const std::size_t ponto = valor.find('.');
    const auto digitos = [](VistaTexto parte) {
        return !parte.empty() && parte.find_first_not_of("0123456789"_t) == VistaTexto::npos;
    };
    if (ponto == Texto::npos) return valor;
    const VistaTexto inteiros = VistaTexto(valor).substr(valor.starts_with('-') ? 1 : 0);
    const std::size_t lugar = inteiros.find('.');
    if (digitos(inteiros.substr(0, lugar)) && digitos(inteiros.substr(lugar + 1))) valor[ponto] = ',';
    return valor;
}

} // namespace

RelatorCsv::RelatorCsv(ArquivoProvisorio& saida) : saida_(saida) {
    pendente_.append(marcaDeUtf8).append(cabecalho).append(fimDeLinha);
}

void RelatorCsv::arquivo(const std::filesystem::path& caminho) {
    celulaDoArquivo_.clear();
    anexarCelula(textoDoCaminho(caminho), celulaDoArquivo_);
}

void RelatorCsv::achado(const Achado& achado) {
    if (falha_) return;
    static const CampoDoAchado nenhum;
    const CampoDoAchado& campo = achado.campo ? *achado.campo : nenhum;
    pendente_ += celulaDoArquivo_;
    celulaDoNumero(achado.linha);
    celulaDoNumero(achado.guia);
    celula(achado.idGuia);
    celula(VistaTexto(&achado.segmento, achado.segmento == 0 ? 0 : 1));
    celula(campo.nome);
    celulaDoNumero(campo.inicio);
    celulaDoNumero(campo.fim);
    celula(campo.encontrado);
    celula(comVirgula(campo.esperado.value_or(Texto())));
    celula(achado.discutido ? "discutido"_t : nomeDa(achado.gravidade));
    celula(achado.id);
    celulaDoNumero(achado.causa);
    celula(achado.mensagem);
    pendente_ += fimDeLinha;
    if (pendente_.size() >= bloco) gravar();
}

void RelatorCsv::terminar() {
    gravar();
    if (falha_) throw Falha(*falha_);
}

void RelatorCsv::celula(VistaTexto texto) {
    pendente_ += ';';
    anexarCelula(texto, pendente_);
}

/// 0 says everywhere that there is none.
void RelatorCsv::celulaDoNumero(std::int64_t numero) {
    pendente_ += ';';
    if (numero != 0) pendente_ += std::to_string(numero);
}

void RelatorCsv::gravar() {
    try {
        if (!falha_) saida_.escrever(pendente_);
    } catch (const Falha& falha) {
        falha_ = falha;
    }
    pendente_.clear();
}

} // namespace quilatador
