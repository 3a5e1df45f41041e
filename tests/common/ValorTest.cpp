#include "common/Valor.h"

#include "common/Numero.h"
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
    const std::vector<Valor> valores{Valor(), Valor::Nulo(), ""_t, "abc"_t, "5"_t, " 5 "_t, 5, -1, serie5};
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
    EXPECT_TRUE(igual("12,5"_t, 12)); // numeric, but read up to the comma
    EXPECT_TRUE(maior("Ç"_t, "Z"_t)); // by code, unsigned
}

TEST(Valor, textoEComprimento) {
    using Caso = std::tuple<Valor, VistaTexto, std::optional<std::size_t>>;
    for (const auto& [valor, texto, comprimento] :
         {Caso{Valor(), ""_t, 0u}, Caso{Valor::Nulo(), ""_t, std::nullopt}, Caso{" a "_t, " a "_t, 3u},
          Caso{123.45, "123.45"_t, 6u}, Caso{serie5, "04/01/1900"_t, 10u}}) {
        EXPECT_EQ(valor.texto(), texto);
        EXPECT_EQ(valor.comprimento(), comprimento);
        EXPECT_EQ(semConteudo(valor), comprimento == 0u);
        EXPECT_EQ(comConteudo(valor), comprimento > 0u);
    }
}

TEST(Valor, foraDeLista) {
    EXPECT_FALSE(foraDe("B"_t, "ABC"_t));
    EXPECT_TRUE(foraDe("D"_t, "ABC"_t));
    EXPECT_FALSE(foraDe(Valor::Nulo(), "ABC"_t)); // neither in nor out
    EXPECT_TRUE(foraDe("AC"_t, "ABC"_t));         // as it stands, not letter by letter
}

/// The number that a conversion gives, or its failure.
template <typename Conversao>
Texto convertido(Conversao conversao) {
    Texto numero;
    const Texto falha = testes::textoDaFalha([&] { numero = textoDoNumero(conversao()); });
    return junta(numero, falha);
}

TEST(Valor, conversaoParaNumero) {
    constexpr VistaTexto semNumero = "13 Valor: Tipos incompatíveis"_t;
    constexpr VistaTexto deNulo = "94 Valor: Uso de Null inválido"_t;
    constexpr VistaTexto estouro = "6 Numero: Estouro"_t;
    const std::tuple<Valor, VistaTexto, VistaTexto, VistaTexto> casos[] = {
        {Valor(), "0"_t, "0"_t, "0"_t},
        {" 12,7 "_t, "12"_t, "12"_t, "12"_t},
        {3.5, "3.5"_t, "4"_t, "4"_t},
        {serie5, "5"_t, "5"_t, "5"_t},
        {"12A"_t, semNumero, semNumero, semNumero},
        {Valor::Nulo(), deNulo, deNulo, deNulo},
        {"40000"_t, "40000"_t, "40000"_t, estouro},
        {-2147483649.0, "-2147483649"_t, estouro, estouro},
    };
    for (const auto& [valor, duplo, longo, inteiro] : casos) {
        EXPECT_EQ(convertido([&, &v = valor] { return v.paraDuplo(); }), duplo);
        EXPECT_EQ(convertido([&, &v = valor] { return v.paraLongo(); }), longo);
        EXPECT_EQ(convertido([&, &v = valor] { return v.paraInteiro(); }), inteiro);
    }
}

} // namespace
} // namespace quilatador
