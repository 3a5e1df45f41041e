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
    EXPECT_TRUE(igual("12,5", 12)); // numeric, but read up to the comma
    EXPECT_TRUE(igual("007", 7));
    EXPECT_TRUE(diferente("007", "7"));
    EXPECT_TRUE(maior("1 2", 99));   // not numeric
    EXPECT_TRUE(maior("\xC7", "Z")); // by code, unsigned
}

TEST(Valor, textoEComprimento) {
    struct Caso {
        Valor valor;
        Texto texto;
        std::optional<std::size_t> comprimento;
    };
    for (const auto& [valor, texto, comprimento] :
         {Caso{Valor(), "", 0u}, Caso{Valor::Nulo(), "", std::nullopt}, Caso{"", "", 0u}, Caso{" a ", " a ", 3u},
          Caso{123.45, "123.45", 6u}, Caso{-7, "-7", 2u}, Caso{serie5, "04/01/1900", 10u}}) {
        EXPECT_EQ(valor.texto(), texto);
        EXPECT_EQ(valor.comprimento(), comprimento);
        EXPECT_EQ(semConteudo(valor), comprimento == 0u);
        EXPECT_EQ(comConteudo(valor), comprimento > 0u);
    }
}

TEST(Valor, foraDeLista) {
    EXPECT_FALSE(foraDe("B", "ABC"));
    EXPECT_TRUE(foraDe("D", "ABC"));
    EXPECT_FALSE(foraDe("", "ABC"));
    EXPECT_FALSE(foraDe(Valor(), "ABC"));
    EXPECT_FALSE(foraDe(Valor::Nulo(), "ABC")); // neither in nor out
    EXPECT_FALSE(foraDe(8, "6789"));
    EXPECT_TRUE(foraDe("AC", "ABC")); // as it stands, not letter by letter
}

TEST(Valor, conversaoParaNumero) {
    struct Caso {
        Valor valor;
        double duplo;
        std::int32_t longo;
    };
    for (const auto& [valor, duplo, longo] : {Caso{Valor(), 0, 0}, Caso{" 12 ", 12, 12}, Caso{"12,7", 12, 12},
                                              Caso{"2.5", 2.5, 2}, Caso{3.5, 3.5, 4}, Caso{serie5, 5, 5}}) {
        EXPECT_EQ(valor.paraDuplo(), duplo);
        EXPECT_EQ(valor.paraLongo(), longo);
        EXPECT_EQ(valor.paraInteiro(), longo);
    }
}

TEST(Valor, conversaoImpossivel) {
    struct Caso {
        Valor valor;
        int duplo, longo, inteiro;
    };
    for (const Caso& caso :
         {Caso{"", 13, 13, 13}, Caso{"12A", 13, 13, 13}, Caso{"1 2", 13, 13, 13}, Caso{Valor::Nulo(), 94, 94, 94},
          Caso{"40000", 0, 0, 6}, Caso{-2147483649.0, 0, 6, 6}, Caso{fazData(2026, 1, 1), 0, 0, 6}}) {
        EXPECT_EQ(testes::numeroDaFalha([&] { return caso.valor.paraDuplo(); }), caso.duplo);
        EXPECT_EQ(testes::numeroDaFalha([&] { return caso.valor.paraLongo(); }), caso.longo);
        EXPECT_EQ(testes::numeroDaFalha([&] { return caso.valor.paraInteiro(); }), caso.inteiro);
    }
    EXPECT_EQ(testes::textoDaFalha([] { return Valor("x").paraDuplo(); }), "13 Valor: Tipos incompatíveis"_t);
    EXPECT_EQ(testes::textoDaFalha([] { return Valor(Valor::Nulo()).paraDuplo(); }),
              "94 Valor: Uso de Null inválido"_t);
}

} // namespace
} // namespace quilatador
