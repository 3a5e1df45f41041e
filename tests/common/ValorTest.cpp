#include "common/Valor.h"

#include "support/Falhas.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

const Data serie5 = fazData(1900, 1, 4);

char sinal(std::partial_ordering ordem) {
    if (ordem == std::partial_ordering::unordered) return '?';
    return ordem < 0 ? '<' : ordem > 0 ? '>' : '=';
}

TEST(Valor, comparacaoDeTodosComTodos) {
    const std::vector<Valor> valores{Valor(), Valor::Nulo(), "", "abc", "5", " 5 ", 5, -1, serie5};
    const std::vector<std::string> esperadas{
        // vazio nulo "" abc "5" " 5 " 5 -1 data
        "=?=<<<<><", // vazio
        "?????????", // nulo
        "=?=<<<>>>", // "": no number, so greater than any
        ">?>=>>>>>", // "abc"
        ">?><=>=>=", // "5"
        ">?><<==>=", // " 5 "
        ">?<<===>=", // 5
        "<?<<<<<=<", // -1
        ">?<<===>=", // the date of serial number 5
    };
    for (std::size_t i = 0; i < valores.size(); ++i) {
        std::string linha;
        for (const Valor& outro : valores) {
            linha.push_back(sinal(comparar(valores[i], outro)));
            EXPECT_EQ(igual(valores[i], outro), linha.back() == '=');
            EXPECT_EQ(menor(valores[i], outro), linha.back() == '<');
            EXPECT_EQ(maior(valores[i], outro), linha.back() == '>');
            EXPECT_EQ(diferente(valores[i], outro), linha.back() == '<' || linha.back() == '>');
        }
        EXPECT_EQ(linha, esperadas[i]) << i;
    }
}

TEST(Valor, textoNumericoComparaPeloQueSeLe) {
    EXPECT_TRUE(igual("12,5", 12));  // numeric, but read up to the comma
    EXPECT_TRUE(maior("\xC7", "Z")); // by code, unsigned
}

TEST(Valor, textoEComprimento) {
    using Caso = std::tuple<Valor, VistaTexto, std::optional<std::size_t>>;
    for (const auto& [valor, texto, comprimento] :
         {Caso{Valor(), "", 0u}, Caso{Valor::Nulo(), "", std::nullopt}, Caso{" a ", " a ", 3u},
          Caso{123.45, "123.45", 6u}, Caso{serie5, "04/01/1900", 10u}}) {
        EXPECT_EQ(valor.texto(), texto);
        EXPECT_EQ(valor.comprimento(), comprimento);
        EXPECT_EQ(semConteudo(valor), comprimento == 0u);
        EXPECT_EQ(comConteudo(valor), comprimento > 0u);
    }
}

TEST(Valor, foraDeLista) {
    EXPECT_FALSE(foraDe("B", "ABC"));
    EXPECT_TRUE(foraDe("D", "ABC"));
    EXPECT_FALSE(foraDe(Valor::Nulo(), "ABC")); // neither in nor out
    EXPECT_TRUE(foraDe("AC", "ABC"));           // as it stands, not letter by letter
}

TEST(Valor, conversaoParaNumero) {
    constexpr VistaTexto comVirgula = " 12,7 "_t;
    using Caso = std::tuple<Valor, double, std::int32_t>;
    for (const auto& [valor, duplo, longo] :
         {Caso{Valor(), 0, 0}, Caso{comVirgula, 12, 12}, Caso{3.5, 3.5, 4}, Caso{serie5, 5, 5}}) {
        EXPECT_EQ(valor.paraDuplo(), duplo);
        EXPECT_EQ(valor.paraLongo(), longo);
        EXPECT_EQ(valor.paraInteiro(), longo);
    }
}

TEST(Valor, conversaoImpossivel) {
    constexpr VistaTexto letras = "12A"_t;
    constexpr VistaTexto grande = "40000"_t;
    constexpr VistaTexto semNumero = "13 Valor: Tipos incompatíveis"_t;
    constexpr VistaTexto deNulo = "94 Valor: Uso de Null inválido"_t;
    constexpr VistaTexto estouro = "6 Numero: Estouro"_t;
    const std::tuple<Valor, VistaTexto, VistaTexto, VistaTexto> casos[] = {{letras, semNumero, semNumero, semNumero},
                                                                           {Valor::Nulo(), deNulo, deNulo, deNulo},
                                                                           {grande, ""_t, ""_t, estouro},
                                                                           {-2147483649.0, ""_t, estouro, estouro}};
    for (const auto& [valor, duplo, longo, inteiro] : casos) {
        EXPECT_EQ(testes::textoDaFalha([&, &v = valor] { return v.paraDuplo(); }), duplo);
        EXPECT_EQ(testes::textoDaFalha([&, &v = valor] { return v.paraLongo(); }), longo);
        EXPECT_EQ(testes::textoDaFalha([&, &v = valor] { return v.paraInteiro(); }), inteiro);
    }
}

} // namespace
} // namespace quilatador
