#include "tables/BancoDeDados.h"

#include "support/Falhas.h"
#include "tables/Bancos.h"
#include "tables/FalhaDoBanco.h"
#include "tables/FormatoJet.h"
#include "tables/TabelasDeCodigos.h"
#include "tables/TextoJet.h"

#include <gtest/gtest.h>

#include <sstream>

namespace quilatador {
namespace {

using testes::abrirBanco;
using testes::lerBanco;

Texto ocorrencia(BancoDeDados& banco, VistaTexto codigo) {
    return banco.ocorrencia(codigo).value_or(Texto("(sem linha)"_t));
}
Texto arrecadacao(BancoDeDados& banco, VistaTexto codigo) {
    Texto procurado(codigo);
    return banco.descricaoFormaArrecadacao(procurado);
}
Texto pagamento(BancoDeDados& banco, VistaTexto codigo) {
    Texto procurado(codigo);
    return banco.descricaoFormaPagamento(procurado);
}

/// A file with its pages ciphered.
std::string cifrado(std::string bytes, const FormatoJet& formato) {
    constexpr std::uint32_t chave = 0x01020304;
    const std::span tudo(bytes);
    cifrarCabecalhoJet(tudo, formato);
    for (std::size_t i = 0; i < 4; ++i)
        tudo[lugarJet::chave + i] = static_cast<char>(chave >> (8 * i));
    cifrarCabecalhoJet(tudo, formato);
    for (std::uint32_t n = 1; n < bytes.size() / formato.pagina; ++n)
        cifrarJet(tudo.subspan(n * formato.pagina, formato.pagina), chave ^ n);
    return bytes;
}

TEST(BancoDeDados, respondeIgualEmTodosOsFormatos) {
    constexpr std::pair<VistaTexto, VistaTexto> ocorrencias[] = {{"5"_t, "Convênio não cadastrado"_t},
                                                                 {"05"_t, "Convênio não cadastrado"_t},
                                                                 {" 5"_t, "Convênio não cadastrado"_t},
                                                                 {"5a"_t, "Convênio não cadastrado"_t},
                                                                 {"12"_t, "Código – inválido, custa 1 €"_t},
                                                                 {"7"_t, ""_t},
                                                                 {"8"_t, ""_t},
                                                                 {"3"_t, "(sem linha)"_t}, // deleted
                                                                 {"4"_t, "Mudada de lugar"_t},
                                                                 {"6"_t, "(sem linha)"_t}, // moved, then deleted
                                                                 {"-5"_t, "(sem linha)"_t},
                                                                 {"x"_t, "(sem linha)"_t}};
    for (const std::string& bytes : {lerBanco("jet4.mdb"), lerBanco("jet3.mdb"), lerBanco("jet4-cifrado.mdb"),
                                     cifrado(lerBanco("jet3.mdb"), jet3)}) {
        BancoDeDados banco = abrirBanco(bytes);
        for (const auto& [codigo, descricao] : ocorrencias)
            EXPECT_EQ(ocorrencia(banco, codigo), descricao) << codigo;
        EXPECT_TRUE(ocorrencia(banco, "29"_t).starts_with("Ocorrência 29....."_t));
        EXPECT_EQ(arrecadacao(banco, "1"_t), "Guichê"_t);
        EXPECT_EQ(arrecadacao(banco, "A"_t), "Guichê sem fatura"_t);
        EXPECT_EQ(arrecadacao(banco, "Z"_t), "");
        EXPECT_EQ(pagamento(banco, "a"_t), "");
        EXPECT_EQ(pagamento(banco, "x"_t), "Débito"_t);
        EXPECT_EQ(pagamento(banco, " "_t), "");
    }
}

TEST(BancoDeDados, textosLongos) {
    for (const char* nome : {"jet3.mdb", "jet4-cifrado.mdb"}) {
        BancoDeDados banco = abrirBanco(lerBanco(nome));
        EXPECT_EQ(ocorrencia(banco, "101"_t), Texto(40, 'm'));
        EXPECT_EQ(ocorrencia(banco, "102"_t), Texto(800, 'm'));
        EXPECT_EQ(ocorrencia(banco, "103"_t), Texto(6000, 'm'));
    }
}

/// Rows whose columns start or end around the 256th and the 512th byte; each before the description is full of "n".
TEST(BancoDeDados, linhasLongasDeJet3) {
    BancoDeDados banco = abrirBanco(lerBanco("jet3.mdb"));
    constexpr std::size_t tamanhos[] = {40, 44, 45, 46, 47, 48,  49,  50,  51,  52,  53,
                                        54, 55, 9,  9,  9,  255, 250, 250, 248, 249, 250};
    char codigo = 'B';
    for (const std::size_t tamanho : tamanhos) {
        EXPECT_EQ(arrecadacao(banco, Texto(1, codigo)), Texto(tamanho, 'd')) << codigo;
        ++codigo;
    }
}

TEST(TextoJet, textosDeJet4) {
    using namespace std::string_view_literals;
    constexpr std::pair<std::string_view, std::string_view> casos[] = {{"", ""},
                                                                       {"\xFF\xFE", ""},
                                                                       {"A\0\xAC\x20"sv, "A€"},
                                                                       {"\xFF\xFE\x41\xE9", "Aé"},
                                                                       {"\xFF\xFE\x41\0\xAC\x20\x13\x20\0B"sv, "A€–B"},
                                                                       {"\xFF\xFE\0\x41\xFF\0\x41"sv, "\uFF41A"},
                                                                       {"\x3D\xD8\x00\xDE"sv, "??"},
                                                                       {"A\0B"sv, "A"},
                                                                       {"\xFF\xFE\0A"sv, ""}};
    for (const auto& [bytes, utf8] : casos)
        EXPECT_EQ(utf8DoTextoJet(bytes, VersaoJet::Jet4), utf8) << utf8;
}

TEST(BancoDeDados, codigoFicaEmMaiusculas) {
    BancoDeDados banco = abrirBanco(lerBanco("jet4.mdb"));
    Texto codigo("é"_t);
    EXPECT_EQ(banco.descricaoFormaArrecadacao(codigo), "Acentuada"_t);
    EXPECT_EQ(codigo, "É"_t);
}

TEST(BancoDeDados, codigoComNuloNaoEstaEmTabelaNenhuma) {
    BancoDeDados banco = abrirBanco(lerBanco("jet4.mdb"));
    for (const VistaTexto codigo : {"\0"_t, "1\0"_t, "'\0"_t}) {
        EXPECT_EQ(arrecadacao(banco, codigo), "");
        EXPECT_EQ(pagamento(banco, codigo), "");
    }
}

/// Lays one password over that of a file: in the header both versions have it as an "exclusive or".
std::string comOutraSenha(std::string bytes, std::string_view antes, std::string_view depois, std::size_t largura) {
    for (std::size_t i = 0; i < std::max(antes.size(), depois.size()); ++i)
        bytes[lugarJet::senha + i * largura] ^=
            static_cast<char>((i < antes.size() ? antes[i] : 0) ^ (i < depois.size() ? depois[i] : 0));
    return bytes;
}

TEST(BancoDeDados, senha) {
    constexpr struct {
        std::string_view noArquivo;
        VistaTexto conexao;
        int falha;
    } casos[] = {{"quimera", ";pwd=quimera"_t, 0},
                 {"quimera", "MS Access;PWD=quimera;"_t, 0},
                 {"", ";pwd=quimera"_t, 0},
                 {"quimera", ";pwd=Quimera"_t, falhaDoBanco::senhaInvalida},
                 {"quimera", ""_t, falhaDoBanco::senhaInvalida},
                 {"quimera", "pwd"_t, falhaDoBanco::senhaInvalida},
                 {"quimer", ";pwd=quimera"_t, falhaDoBanco::senhaInvalida}};
    for (const auto& [noArquivo, conexao, falha] : casos)
        for (const std::string& bytes : {comOutraSenha(lerBanco("jet3.mdb"), "", noArquivo, 1),
                                         comOutraSenha(lerBanco("jet4.mdb"), "quimera", noArquivo, 2),
                                         comOutraSenha(lerBanco("jet4-cifrado.mdb"), "quimera", noArquivo, 2)})
            EXPECT_EQ(testes::numeroDaFalha([&, &texto = conexao] { return abrirBanco(bytes, texto).consultas(); }),
                      falha)
                << noArquivo << " " << conexao;
}

/// What is missing in one table is nothing to the others.
TEST(BancoDeDados, faltaSoImpedeAsConsultasDaTabela) {
    const struct {
        std::string antes;
        std::string depois;
        VistaTexto ocorrencia;
        VistaTexto forma;
    } casos[] = {
        {"FormaPagamento", "FormaPagamentos", "-"_t,
         "3078 TabelasDeCodigos: O banco de dados não tem a tabela FormaPagamento"_t},
    };
    (void)casos;
}

TEST(BancoDeDados, consultaRecusadaPeloMotor) {
    BancoDeDados banco = abrirBanco(lerBanco("jet4.mdb"));
    for (const VistaTexto codigo :
         {"'"_t, "1')) UNION SELECT NAME, NAME, NAME FROM SQLITE_MASTER--"_t, "1')); DROP TABLE FORMAPAGAMENTO --"_t})
        EXPECT_EQ(testes::numeroDaFalha([&, codigo] { return pagamento(banco, codigo); }),
                  falhaDoBanco::consultaRecusada)
            << codigo;
    EXPECT_EQ(testes::textoDaFalha([&] { return pagamento(banco, "'"_t); }),
              "3075 BancoDeDados: Erro de sintaxe na consulta: SELECT FormaPagamento.codigoFormaPagamento, "
              "FormaPagamento.textoDescricaoFormaPagamento, FormaPagamento.indicadorEstado From FormaPagamento WHERE "
              "(((FormaPagamento.codigoFormaPagamento)='''))"_t);
    EXPECT_EQ(pagamento(banco, "1"_t), "Dinheiro"_t); // a refusal changes nothing
}
} // namespace
} // namespace quilatador
