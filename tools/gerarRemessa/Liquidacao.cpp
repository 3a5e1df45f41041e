#include "gerarRemessa/Liquidacao.h"

#include "gerarRemessa/CodigoDeBarras.h"
#include "gerarRemessa/Linha.h"
#include "gerarRemessa/Sorteio.h"

namespace quilatador::gerador {

namespace {

constexpr std::uint32_t pagamentosPadrao = 10;

namespace cabecalho {
constexpr Campo tipo{'A', "Tipo", 1, 1};
constexpr Campo remessa{'A', "CodigoRemessa", 2, 1};
constexpr Campo convenio{'A', "Convenio", 3, 20};
constexpr Campo empresa{'A', "Empresa", 23, 20};
constexpr Campo codigoDoBanco{'A', "CodigoBanco", 43, 3};
constexpr Campo nomeDoBanco{'A', "NomeBanco", 46, 20};
constexpr Campo geracao{'A', "DataGeracao", 66, 8};
constexpr Campo sequencial{'A', "Sequencial", 74, 6};
constexpr Campo versao{'A', "Versao", 80, 2};
} // namespace cabecalho

namespace detalhe {
constexpr Campo tipo{'G', "Tipo", 1, 1};
constexpr Campo agenciaConta{'G', "AgenciaConta", 2, 20};
constexpr Campo pagamento{'G', "DataPagamento", 22, 8};
constexpr Campo credito{'G', "DataCredito", 30, 8};
constexpr Campo barras{'G', "CodigoBarras", 38, 44};
constexpr Campo valor{'G', "ValorRecebido", 82, 12};
constexpr Campo tarifa{'G', "ValorTarifa", 94, 7};
constexpr Campo sequencial{'G', "Sequencial", 101, 8};
constexpr Campo agencia{'G', "AgenciaArrecadadora", 109, 8};
constexpr Campo canal{'G', "FormaArrecadacao", 117, 1};
constexpr Campo autenticacao{'G', "Autenticacao", 118, 23};
constexpr Campo forma{'G', "FormaPagamento", 141, 1};
} // namespace detalhe

namespace trailer {
constexpr Campo tipo{'Z', "Tipo", 1, 1};
constexpr Campo registros{'Z', "TotalRegistros", 2, 6};
constexpr Campo valor{'Z', "ValorTotal", 8, 17};
} // namespace trailer

/// Collection channels and payment forms in upper and lower case; one of each is in no table.
constexpr VistaTexto canais = "1234567ABCDEFabc9?"_t;
constexpr VistaTexto formas = "1122331X"_t;
constexpr int moedaReal = 6;

void escreverCabecalho(Sorteio& sorteio, SaidaEmBlocos& saida) {
    Linha linha;
    linha.texto(cabecalho::tipo, {"A"_t});
    linha.texto(cabecalho::remessa, {"2"_t});
    linha.numero(cabecalho::convenio, sorteio.entre(100'000, 999'999));
    linha.texto(cabecalho::empresa, {"MUNICÍPIO V. SERENA"_t});
    linha.texto(cabecalho::codigoDoBanco, {"999"_t});
    linha.texto(cabecalho::nomeDoBanco, {"BANCO FICTÍCIO"_t});
    linha.texto(cabecalho::geracao, {"20260702"_t});
    linha.numero(cabecalho::sequencial, sorteio.entre(1, 999'999));
    linha.texto(cabecalho::versao, {"03"_t});
    saida.acrescentar(linha.bytes());
}

/// Mostly small amounts, and now and then one of up to ten digits.
std::uint64_t sortearValor(Sorteio& sorteio) {
    return sorteio.abaixoDe(100) == 0 ? sorteio.entre(1, 4'000'000'000) : sorteio.entre(1, 500'000);
}

CodigoDeBarras sortearBarras(Sorteio& sorteio, std::uint64_t valor, std::uint32_t numero) {
    std::array<char, 25> campoLivre;
    escreverDigitos(campoLivre, numero * 1'000'000ULL + sorteio.abaixoDe(1'000'000));
    return fazerCodigoDeBarras({.segmento = '1',
                                .moeda = moedaReal,
                                .valor = valor,
                                .empresa = "4321"_t,
                                .campoLivre = {campoLivre.data(), campoLivre.size()}});
}

/// Fills in the line of a payment and returns its amount in cents.
std::uint64_t preencherPagamento(Linha& linha, Sorteio& sorteio, std::uint32_t numero) {
    const std::uint64_t valor = sortearValor(sorteio);
    const CodigoDeBarras barras = sortearBarras(sorteio, valor, numero);
    linha.texto(detalhe::barras, {VistaTexto(barras.data(), barras.size())});
    linha.numero(detalhe::valor, valor);
    linha.numero(detalhe::tarifa, sorteio.entre(0, 350));
    linha.numero(detalhe::sequencial, numero);
    linha.numero(detalhe::agencia, sorteio.entre(1, 9'999));
    linha.texto(detalhe::canal, {VistaTexto(&sorteio.umDe(canais), 1)});
    linha.numero(detalhe::autenticacao, sorteio.abaixoDe(1'000'000'000));
    linha.texto(detalhe::forma, {VistaTexto(&sorteio.umDe(formas), 1)});
    return valor;
}

} // namespace

std::uint64_t gerarLiquidacao(const Opcoes& opcoes, SaidaEmBlocos& saida) {
    Sorteio sorteio(opcoes.semente);
    const std::uint32_t pagamentos = opcoes.registros.value_or(pagamentosPadrao);
    escreverCabecalho(sorteio, saida);

    Linha linha;
    linha.texto(detalhe::tipo, {"G"_t});
    linha.texto(detalhe::agenciaConta, {"1234-5 / 0098765-4"_t});
    linha.texto(detalhe::pagamento, {"20260630"_t});
    linha.texto(detalhe::credito, {"20260702"_t});
    std::uint64_t total = 0;
    for (std::uint32_t numero = 1; numero <= pagamentos; ++numero) {
        total += preencherPagamento(linha, sorteio, numero);
        saida.acrescentar(linha.bytes());
    }

    Linha fim;
    fim.texto(trailer::tipo, {"Z"_t});
    fim.numero(trailer::registros, pagamentos + 2ULL);
    fim.numero(trailer::valor, total);
    saida.acrescentar(fim.bytes());
    return pagamentos + 2ULL;
}

} // namespace quilatador::gerador
