#include "tables/BancoDeDados.h"

#include "support/Falhas.h"
#include "tables/Bancos.h"
#include "tables/FalhaDoBanco.h"
#include "tables/FormatoJet.h"
#include "tables/TabelasDeCodigos.h"
#include "tables/TextoJet.h"

#include <gtest/gtest.h>

#include <ctime>
#include <regex>
#include <set>
#include <sstream>

namespace quilatador {
namespace {

using namespace testes;

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

TEST(BancoDeDados, respondeIgualEmTodosOsFormatos) {
    for (const char* nome : {"jet3.mdb", "jet4.mdb", "jet4-cifrado.mdb"}) {
        BancoDeDados banco = abrirBanco(lerBanco(nome));
        for (const VistaTexto codigo : {"5"_t, "05"_t, " 5"_t, "5a"_t})
            EXPECT_EQ(ocorrencia(banco, codigo), "Convênio não cadastrado"_t) << codigo;
        EXPECT_EQ(ocorrencia(banco, "12"_t), "Código – inválido, custa 1 €"_t);
        EXPECT_EQ(ocorrencia(banco, "4"_t), "Mudada de lugar"_t);
        for (const VistaTexto codigo : {"3"_t, "6"_t, "-5"_t, "x"_t}) // deleted, moved and deleted, never there
            EXPECT_EQ(ocorrencia(banco, codigo), "(sem linha)"_t) << codigo;
        EXPECT_EQ(ocorrencia(banco, "7"_t) + ocorrencia(banco, "8"_t), ""_t); // null, and empty
        EXPECT_TRUE(ocorrencia(banco, "29"_t).starts_with("Ocorrência 29....."_t));
        EXPECT_EQ(arrecadacao(banco, "A"_t), "Guichê sem fatura"_t);
        EXPECT_EQ(arrecadacao(banco, "Z"_t) + pagamento(banco, "a"_t) + pagamento(banco, " "_t), ""_t);
        EXPECT_EQ(pagamento(banco, "x"_t), "Débito"_t);
    }
}

TEST(BancoDeDados, textosLongosELinhasLongas) {
    for (const char* nome : {"jet3.mdb", "jet4-cifrado.mdb"}) {
        BancoDeDados banco = abrirBanco(lerBanco(nome));
        for (const auto& [codigo, tamanho] : {std::pair{"101"_t, 40u}, {"102"_t, 800u}, {"103"_t, 6000u}})
            EXPECT_EQ(ocorrencia(banco, codigo), Texto(tamanho, 'm'));
    }
    BancoDeDados banco = abrirBanco(lerBanco("jet3.mdb"));
    Texto codigo(1, 'B'); // rows whose columns start or end around the 256th and the 512th byte
    for (const std::size_t tamanho : std::initializer_list<std::size_t>{
             40, 44, 45, 46, 47, 48, 49, 50, 51, 52, 53, 54, 55, 9, 9, 9, 255, 250, 250, 248, 249, 250}) {
        EXPECT_EQ(arrecadacao(banco, codigo), Texto(tamanho, 'd')) << codigo;
        ++codigo[0];
    }
}

TEST(TextoJet, textosDeJet4) {
    using namespace std::string_view_literals;
    constexpr std::pair<std::string_view, std::string_view> casos[] = {{"A\0\xAC\x20"sv, "A€"},

                                                                       {"\xFF\xFE\x41\0\xAC\x20\x13\x20\0B"sv, "A€–B"},
                                                                       {"\xFF\xFE\0\x41\xFF\0\x41"sv, "\uFF41A"},
                                                                       {"\x3D\xD8\x00\xDE"sv, "??"}, // two halves
                                                                       {"A\0B"sv, "A"},
                                                                       {"\xFF\xFE\0A"sv, ""}};
    for (const auto& [bytes, utf8] : casos)
        EXPECT_EQ(utf8DoTextoJet(bytes, VersaoJet::Jet4), utf8) << utf8;
}

TEST(BancoDeDados, codigoFicaEmMaiusculasENaoTemNulo) {
    BancoDeDados banco = abrirBanco(lerBanco("jet4.mdb"));
    Texto codigo = junta("é"_t);
    EXPECT_EQ(banco.descricaoFormaArrecadacao(codigo), "Acentuada"_t);
    EXPECT_EQ(codigo, "É"_t);
    for (const VistaTexto comNulo : {"\0"_t, "1\0"_t, "'\0"_t})
        EXPECT_EQ(arrecadacao(banco, comNulo) + pagamento(banco, comNulo), ""_t);
}

/// A file with another password (of as many letters at most): in the header it is an "exclusive or".
std::string comSenha(std::string bytes, std::string antes, std::string senha, std::size_t largura) {
    antes.resize(7);
    senha.resize(7);
    for (std::size_t i = 0; i < senha.size(); ++i) {
        char& byte = bytes[lugarJet::senha + i * largura];
        byte = static_cast<char>(byte ^ antes[i] ^ senha[i]);
    }
    return bytes;
}

TEST(BancoDeDados, senha) {
    constexpr std::tuple<const char*, VistaTexto, int> casos[] = {
        {"quimera", ";pwd=quimera"_t, 0},
        {"quimera", "MS Access;PWD=quimera;"_t, 0},
        {"", ";pwd=quimera"_t, 0},
        {"quimera", ";pwd=Quimera"_t, falhaDoBanco::senhaInvalida},
        {"quimera", "pwd"_t, falhaDoBanco::senhaInvalida},
        {"quimer", ";pwd=quimera"_t, falhaDoBanco::senhaInvalida}};
    for (const auto& [noArquivo, conexao, falha] : casos)
        for (const std::string& bytes :
             {comSenha(lerBanco("jet3.mdb"), "", noArquivo, 1), comSenha(lerBanco("jet4.mdb"), "quimera", noArquivo, 2),
              comSenha(lerBanco("jet4-cifrado.mdb"), "quimera", noArquivo, 2)})
            EXPECT_EQ(numeroDaFalha([&, c = conexao] { return abrirBanco(bytes, c).consultas(); }), falha);
    EXPECT_EQ(textoDaFalha([&] { return abrirBanco(lerBanco("jet4.mdb"), ""_t).consultas(); }),
              "3031 TabelasDeCodigos: Senha inválida"_t);
}

/// Tables and columns that a sound file lacks. What is missing in one table is nothing to the others.
TEST(BancoDeDados, faltaSoImpedeAsConsultasDaTabela) {
    const std::string bom = lerBanco("jet3.mdb");
    const std::tuple<std::string, std::size_t, VistaTexto> casos[] = {
        {mudado(bom, 24, 1837, "X"), 2, "3078 TabelasDeCodigos: O banco de dados não tem a tabela FormaPagamento"_t},
        {mudado(bom, 3, 130, "X"), 0,
         "3061 TabelasDeCodigos: A tabela OcorrenciaTAV não tem a coluna textoDescricao"_t},
        {mudado(bom, 11, jet3.entradas, "\x09"), 1,
         "3259 TabelasDeCodigos: A coluna codigoFormaArrecadacao não tem números nem textos"_t}};
    for (const auto& [bytes, tabela, falha] : casos) {
        BancoDeDados banco = abrirBanco(bytes);
        const Texto falhas[] = {textoDaFalha([&] { return ocorrencia(banco, "5"_t); }),
                                textoDaFalha([&] { return arrecadacao(banco, "1"_t); }),
                                textoDaFalha([&] { return pagamento(banco, "1"_t); })};
        for (std::size_t i = 0; i < std::size(falhas); ++i)
            EXPECT_EQ(falhas[i], i == tabela ? falha : ""_t);
    }
}

TEST(BancoDeDados, consultaRecusadaPeloMotor) {
    BancoDeDados banco = abrirBanco(lerBanco("jet4.mdb"));
    constexpr VistaTexto dosNomes = "1')) UNION SELECT NAME, NAME, NAME FROM SQLITE_MASTER--"_t;
    EXPECT_EQ(numeroDaFalha([&] { return pagamento(banco, dosNomes); }), falhaDoBanco::consultaRecusada);
    EXPECT_EQ(textoDaFalha([&] { return pagamento(banco, "'"_t); }),
              "3075 BancoDeDados: Erro de sintaxe na consulta: SELECT FormaPagamento.codigoFormaPagamento, "
              "FormaPagamento.textoDescricaoFormaPagamento, FormaPagamento.indicadorEstado From FormaPagamento WHERE "
              "(((FormaPagamento.codigoFormaPagamento)='''))"_t);
    EXPECT_EQ(pagamento(banco, "1"_t), "Dinheiro"_t); // a refusal changes nothing
}

constexpr VistaTexto danificado = "3049 ArquivoJet: O banco de dados está danificado"_t;

/// The `Falha` of opening a database, "" for none.
Texto falhaAoAbrir(const std::string& bytes) {
    return textoDaFalha([&] { return abrirBanco(bytes).consultas(); });
}

TEST(BancoDanificado, arquivoQueNaoEBanco) {
    const std::string bom = lerBanco("jet4.mdb");
    for (const std::string& outro :
         {std::string(), bom.substr(0, 100), std::string(8192, 'x'), mudado(bom, 0, lugarJet::versao, "\x02")})
        EXPECT_EQ(falhaAoAbrir(outro), "3343 ArquivoJet: Formato de banco de dados não reconhecido"_t);
    for (const std::size_t tamanho : {bom.size() - 1, bom.size() / 2, jet4.pagina})
        EXPECT_EQ(falhaAoAbrir(bom.substr(0, tamanho)), danificado);
    EXPECT_EQ(falhaAoAbrir(std::string((64u << 20) + 1, 'x')), "3024 BancoDeDados: O arquivo é grande demais"_t);
}

TEST(BancoDanificado, danoNoCaminhoDasLinhas) {
    std::istringstream danos(lerBanco("danos.txt"));
    ASSERT_FALSE(danos.str().empty());
    for (std::string dano; std::getline(danos, dano);) {
        std::string banco, hexadecimais, bytes;
        std::size_t pagina = 0, lugar = 0;
        std::istringstream(dano) >> banco >> pagina >> lugar >> hexadecimais;
        if (banco.empty() || banco == "#") continue;
        for (std::size_t i = 0; i < hexadecimais.size(); i += 2)
            bytes.push_back(static_cast<char>(std::stoi(hexadecimais.substr(i, 2), nullptr, 16)));
        EXPECT_EQ(falhaAoAbrir(mudado(lerBanco(banco), pagina, lugar, bytes)), danificado) << dano;
    }
}

/// What a file says cannot make it cost more than its size: here the rows of many pages name the same long texts.
TEST(BancoDanificado, textoLongoDeMuitasLinhas) {
    const std::string bom = lerBanco("jet3.mdb");
    constexpr std::size_t paginas = 2000;
    std::string repetido = mudado(bom, 10, 8, std::string(paginas / 8, '\xFF')); // in the map, from page 32 on
    for (std::size_t i = 0; i < paginas + 8; ++i)
        repetido += bom.substr(9 * jet3.pagina, jet3.pagina); // rows, some of them with long texts
    const std::clock_t inicio = std::clock();
    EXPECT_EQ(falhaAoAbrir(repetido), danificado);
    EXPECT_LT(std::clock() - inicio, CLOCKS_PER_SEC);
}

/// Each byte that is no filler has another value once; of Jet 4, which takes longer, some of them.
TEST(BancoDanificado, byteMudadoNuncaDerruba) {
    std::set<int> falhas;
    for (const auto& [nome, passo] : {std::pair{"jet3.mdb", 1u}, std::pair{"jet4.mdb", 5u}}) {
        const std::string bytes = lerBanco(nome);
        for (std::size_t i = 8; i + 8 < bytes.size(); i += passo) {
            if (bytes.find_first_not_of(bytes[i], i - 8) > i + 8) continue;
            constexpr char mudancas[] = {'\x01', '\x80', '\xFF', '\x10'};
            std::string ruim = bytes;
            ruim[i] = static_cast<char>(bytes[i] ^ mudancas[i % 4]);
            falhas.insert(numeroDaFalha([&] { return abrirBanco(ruim).ocorrencia("5"_t); }));
        }
    }
    EXPECT_EQ(falhas.size(), 7u); // opens, or fails in one of the ways that there are
}

TEST(BancoDoPrograma, temAsLinhasDaFonte) {
    std::istringstream fonte(lerTudo(QUILATADOR_TABELAS "/TabelaErrosZUL.txt"));
    std::string esperadas;
    for (std::string linha; std::getline(fonte, linha);)
        if (linha.find('|') != std::string::npos)
            esperadas += std::regex_replace(linha, std::regex("^ +| *(\\|) *| +$"), "$1") + "|\n";
    const TabelasDeCodigos tabelas(lerTudo(QUILATADOR_TABELAS "/TabelaErrosZUL.mdb"), "quimera"_t);
    std::string lidas;
    for (std::size_t i = 0; i < tabelasDeCodigos.size(); ++i)
        tabelas.percorrer(static_cast<TabelaDeCodigos>(i), [&](const TabelasDeCodigos::Linha& linha) {
            for (const ValorJet& valor : linha) {
                const auto* const numero = std::get_if<std::int64_t>(&valor);
                lidas += (numero != nullptr ? std::to_string(*numero) : std::get<std::string>(valor)) + "|";
            }
            lidas += '\n';
        });
    EXPECT_EQ(lidas, esperadas);
}

} // namespace
} // namespace quilatador
