#include "tables/TabelasDeCodigos.h"

#include "tables/BytesJet.h"
#include "tables/FalhaDoBanco.h"

#include <algorithm>

namespace quilatador {

namespace {

Falha falha(int numero, VistaTexto descricao) {
    return {numero, "TabelasDeCodigos"_t, descricao};
}

/// A column that the table of all objects must have in a sound file.
const ColunaJet& colunaDoCatalogo(const TabelaJet& catalogo, VistaTexto nome, bool deTextos) {
    const ColunaJet* const coluna = catalogo.coluna(nome);
    exigirIntegro(coluna != nullptr && (deTextos ? coluna->deTextos() : coluna->deNumeros()));
    return *coluna;
}

/// The page on which each table is defined, or 0 for a table that is missing.
std::array<std::uint32_t, tabelasDeCodigos.size()> paginasDasTabelas(const ArquivoJet& arquivo) {
    std::array<std::uint32_t, tabelasDeCodigos.size()> paginas{};
    const TabelaJet catalogo(arquivo, lugarJet::catalogo);
    const ColunaJet& identificador = colunaDoCatalogo(catalogo, "Id"_t, false);
    const ColunaJet& nome = colunaDoCatalogo(catalogo, "Name"_t, true);
    const ColunaJet& tipo = colunaDoCatalogo(catalogo, "Type"_t, false);
    catalogo.percorrer([&](const LinhaJet& linha) {
        constexpr std::int64_t tabela = 1;
        constexpr std::uint32_t semSinais = 0x00FFFFFF;
        const ValorJet este = linha.valor(nome);
        if (linha.valor(tipo) != ValorJet(tabela) || !std::holds_alternative<std::string>(este)) return;
        for (std::size_t i = 0; i < paginas.size(); ++i) {
            if (!iguaisSemCaixa(textoDeUtf8(std::get<std::string>(este)), tabelasDeCodigos[i].nome)) continue;
            const ValorJet pagina = linha.valor(identificador);
            exigirIntegro(std::holds_alternative<std::int64_t>(pagina));
            paginas[i] = static_cast<std::uint32_t>(std::get<std::int64_t>(pagina)) & semSinais;
        }
    });
    return paginas;
}

} // namespace

TabelasDeCodigos::TabelasDeCodigos(std::string bytes, VistaTexto senha) : arquivo_(std::move(bytes)) {
    if (!arquivo_.senha().empty() && arquivo_.senha() != senha)
        throw falha(falhaDoBanco::senhaInvalida, "Senha inválida"_t);
    const auto paginas = paginasDasTabelas(arquivo_);
    for (std::size_t i = 0; i < abertas_.size(); ++i) {
        if (paginas[i] != 0) abertas_[i].tabela.emplace(arquivo_, paginas[i]);
        acharColunas(tabelasDeCodigos[i], abertas_[i]);
        if (paginas[i] != 0) percorrer(static_cast<TabelaDeCodigos>(i), [](const Linha&) {});
    }
}

void TabelasDeCodigos::acharColunas(const EsquemaDeTabela& esquema, Aberta& aberta) {
    const auto faltar = [&](int numero, VistaTexto descricao) {
        if (!aberta.falta) aberta.falta = falha(numero, descricao);
    };
    if (!aberta.tabela)
        return faltar(falhaDoBanco::semTabela, junta("O banco de dados não tem a tabela "_t, esquema.nome));
    for (std::size_t i = 0; i < esquema.colunas.size(); ++i) {
        const VistaTexto nome = esquema.colunas[i];
        const ColunaJet* const coluna = aberta.tabela->coluna(nome);
        if (coluna == nullptr) {
            faltar(falhaDoBanco::semColuna, junta("A tabela "_t, esquema.nome, " não tem a coluna "_t, nome));
        } else if (!coluna->deNumeros() && !coluna->deTextos()) {
            faltar(falhaDoBanco::colunaDeOutroTipo, junta("A coluna "_t, nome, " não tem números nem textos"_t));
        } else {
            aberta.colunas[i] = coluna;
        }
    }
}

void TabelasDeCodigos::exigir(TabelaDeCodigos qual) const {
    if (aberta(qual).falta) throw Falha(*aberta(qual).falta);
}

bool TabelasDeCodigos::deTextos(TabelaDeCodigos qual, std::size_t coluna) const {
    return aberta(qual).colunas[coluna]->deTextos();
}

void TabelasDeCodigos::percorrer(TabelaDeCodigos qual, const std::function<void(const Linha&)>& receber) const {
    const Aberta& lida = aberta(qual);
    lida.tabela->percorrer([&](const LinhaJet& linha) {
        Linha valores;
        std::ranges::transform(lida.colunas, valores.begin(), [&](const ColunaJet* coluna) {
            return coluna == nullptr ? ValorJet() : linha.valor(*coluna);
        });
        receber(valores);
    });
}

} // namespace quilatador
