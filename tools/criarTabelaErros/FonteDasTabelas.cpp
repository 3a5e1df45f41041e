#include "criarTabelaErros/FonteDasTabelas.h"

#include "common/Falha.h"
#include "common/Numero.h"

#include <string>
#include <utility>

namespace quilatador {

namespace {

Falha fonteInvalida(VistaTexto motivo) {
    return {numeroDeFalha::argumentoInvalido, "FonteDasTabelas", Texto(motivo)};
}

/// The text before a separator, without blanks around it; it and the separator are taken off `resto`.
VistaTexto cortar(VistaTexto& resto, char separador) {
    const std::size_t fim = resto.find(separador);
    const VistaTexto parte = resto.substr(0, fim);
    resto = fim == VistaTexto::npos ? VistaTexto() : resto.substr(fim + 1);
    return semBrancos(parte);
}

ColunaJet lerColuna(VistaTexto texto) {
    const VistaTexto nome = cortar(texto, ' ');
    const VistaTexto tipo = cortar(texto, '(');
    const VistaTexto tamanho = cortar(texto, ')');
    if (tipo == "inteiro") return {Texto(nome), TipoJet::Inteiro, 0};
    if (tipo == "longo") return {Texto(nome), TipoJet::Longo, 0};
    constexpr double maiorTexto = 255;
    if (tipo != "texto" || !soDigitos(tamanho) || lerNumero(tamanho) < 1 || lerNumero(tamanho) > maiorTexto)
        throw fonteInvalida(junta("tipo inválido na coluna "_t, nome));
    return {Texto(nome), TipoJet::Caracteres, static_cast<std::size_t>(lerNumero(tamanho))};
}

TabelaJet lerTabela(VistaTexto texto) {
    TabelaJet tabela{Texto(cortar(texto, ':')), {}, {}};
    while (!semBrancos(texto).empty())
        tabela.colunas.push_back(lerColuna(cortar(texto, ',')));
    if (tabela.colunas.empty()) throw fonteInvalida("tabela sem colunas");
    return tabela;
}

ValorJet lerValor(VistaTexto texto, const ColunaJet& coluna) {
    if (texto.empty()) return {};
    if (coluna.tipo == TipoJet::Caracteres) {
        if (texto.size() > coluna.tamanho) throw fonteInvalida(junta("texto longo demais em ", coluna.nome));
        return Texto(texto);
    }
    if (!soDigitos(texto)) throw fonteInvalida(junta("número inválido em "_t, coluna.nome));
    const double numero = lerNumero(texto);
    if (coluna.tipo == TipoJet::Inteiro) return static_cast<double>(arredondarParaInteiro(numero));
    return static_cast<double>(arredondarParaLongo(numero));
}

std::vector<ValorJet> lerLinha(VistaTexto texto, const TabelaJet& tabela) {
    std::vector<ValorJet> linha;
    for (const ColunaJet& coluna : tabela.colunas)
        linha.push_back(lerValor(cortar(texto, '|'), coluna));
    if (!texto.empty()) throw fonteInvalida("valores demais");
    return linha;
}

void lerDeclaracao(VistaTexto texto, BancoJet& banco) {
    VistaTexto resto = texto;
    const VistaTexto palavra = cortar(resto, ' ');
    if (palavra == "senha") {
        banco.senha = Texto(semBrancos(resto));
    } else if (palavra == "tabela") {
        banco.tabelas.push_back(lerTabela(resto));
    } else if (banco.tabelas.empty()) {
        throw fonteInvalida("linha fora de uma tabela");
    } else {
        banco.tabelas.back().linhas.push_back(lerLinha(texto, banco.tabelas.back()));
    }
}

} // namespace

BancoJet lerTabelas(std::istream& fonte) {
    BancoJet banco;
    std::string linha;
    for (int numero = 1; std::getline(fonte, linha); ++numero) {
        const Texto texto = textoDeUtf8(linha);
        const VistaTexto conteudo = semBrancos(texto);
        if (conteudo.empty() || conteudo.front() == '#') continue;
        try {
            lerDeclaracao(conteudo, banco);
        } catch (const Falha& falha) {
            throw falha.comContexto("FonteDasTabelas", junta("linha ", std::to_string(numero)));
        }
    }
    return banco;
}

} // namespace quilatador
