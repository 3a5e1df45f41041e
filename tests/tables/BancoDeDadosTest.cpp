#include "tables/BancoDeDados.h"

#include "jet/LinhaJet.h"
#include "support/Falhas.h"
#include "support/VariavelDeAmbiente.h"
#include "tables/ArquivoJet.h"
#include "tables/Bancos.h"
#include "tables/FalhaDoBanco.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <random>

namespace quilatador {
namespace {

using testes::abrirBanco;
using testes::tabelasDeCodigos;

Texto ocorrencia(BancoDeDados& banco, VistaTexto codigo) {
    return banco.ocorrencia(codigo).value_or("(sem linha)");
}
Texto arrecadacao(BancoDeDados& banco, Texto codigo) {
    return banco.descricaoFormaArrecadacao(codigo);
}
Texto pagamento(BancoDeDados& banco, Texto codigo) {
    return banco.descricaoFormaPagamento(codigo);
}

constexpr VistaTexto naoReconhecido = "3343 ArquivoJet: Formato de banco de dados não reconhecido"_t;
constexpr VistaTexto danificado = "3049 ArquivoJet: O banco de dados está danificado"_t;

/// The `Falha` of opening a database, "" for none.
Texto falhaAoAbrir(const Texto& bytes) {
    return testes::textoDaFalha([&] { return abrirBanco(bytes).consultas(); });
}

/// All that the test tables answer.
Texto respostas(BancoDeDados& banco) {
    Texto todas;
    for (const char* codigo : {"5", "05", " 5", "12", "7", "8", "3", "-5", "5a", "x"})
        todas += junta(codigo, ": ", ocorrencia(banco, codigo), "\n");
    for (const char* codigo : {"", "1", "A", "a", "z", "x", " "})
        todas += junta(codigo, ": ", arrecadacao(banco, codigo), "; ", pagamento(banco, codigo), "\n");
    return todas;
}

constexpr VistaTexto respostasCertas = "5: Convênio não cadastrado\n"
                                       "05: Convênio não cadastrado\n"
                                       " 5: Convênio não cadastrado\n"
                                       "12: Código – inválido, custa 1 €\n"
                                       "7: \n"
                                       "8: \n"
                                       "3: (sem linha)\n"
                                       "-5: (sem linha)\n"
                                       "5a: Convênio não cadastrado\n"
                                       "x: (sem linha)\n"
                                       ": ; \n"
                                       "1: Guichê; Dinheiro\n"
                                       "A: Guichê sem fatura; \n"
                                       "a: Guichê sem fatura; \n"
                                       "z: ; \n"
                                       "x: ; Débito\n"
                                       " : ; \n"_t;

TEST(BancoDeDados, respondeIgualEmTodosOsFormatos) {
    for (const VersaoJet versao : {VersaoJet::Jet3, VersaoJet::Jet4})
        for (const std::uint32_t chave : {0u, 0x12345678u})
            for (const bool mapasEmPaginas : {false, true}) {
                BancoJet tabelas = tabelasDeCodigos(versao);
                tabelas.chave = chave;
                tabelas.mapasEmPaginas = mapasEmPaginas;
                BancoDeDados banco = abrirBanco(escreverJet(tabelas));
                EXPECT_EQ(respostas(banco), respostasCertas);
                for (int numero = 20; numero < 100; ++numero) {
                    const Texto codigo = std::to_string(numero);
                    EXPECT_EQ(ocorrencia(banco, codigo), junta("Ocorrência "_t, codigo, Texto(150, '.')));
                }
            }
}

TEST(BancoDeDados, codigoFicaEmMaiusculas) {
    BancoDeDados banco = abrirBanco(escreverJet(tabelasDeCodigos()));
    Texto codigo = junta("é"_t);
    EXPECT_EQ(banco.descricaoFormaArrecadacao(codigo), "Acentuada");
    EXPECT_EQ(codigo, "É"_t);
    codigo = "x";
    EXPECT_EQ(banco.descricaoFormaPagamento(codigo), "Débito"_t);
    EXPECT_EQ(codigo, "X");
}

TEST(BancoDeDados, ambienteNaoMudaAsRespostas) {
    const testes::VariavelDeAmbiente opcoes("MDBOPTS", "debug_all:no_memo:use_index");
    for (const char* conjunto : {"CP437", "UTF-16", "none such"}) {
        const testes::VariavelDeAmbiente saida("MDBICONV", conjunto);
        const testes::VariavelDeAmbiente entrada("MDB_JET3_CHARSET", conjunto);
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        BancoDeDados banco = abrirBanco(escreverJet(tabelasDeCodigos(VersaoJet::Jet3)));
        const Texto dadas = respostas(banco);
        EXPECT_EQ(testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr(), "");
        EXPECT_EQ(dadas, respostasCertas);
    }
}

TEST(BancoDeDados, colunasDeOutrosTipos) {
    for (const VersaoJet versao : {VersaoJet::Jet3, VersaoJet::Jet4})
        for (const TipoJet tipo : {TipoJet::Byte, TipoJet::Longo, TipoJet::Simples, TipoJet::Duplo}) {
            BancoJet tabelas = tabelasDeCodigos(versao);
            tabelas.tabelas[0].colunas[1].tipo = tipo;
            tabelas.tabelas[0].colunas[2].tipo = TipoJet::Memo;
            for (int i = 0; i < 3; ++i) // in the row, on a page, on several
                tabelas.tabelas[0].linhas.push_back({1.0, 100.0 + i, Texto(std::size_t{50} << (4 * i), 'm')});
            BancoDeDados banco = abrirBanco(escreverJet(tabelas));
            EXPECT_EQ(respostas(banco), respostasCertas);
            for (int i = 0; i < 3; ++i)
                EXPECT_EQ(ocorrencia(banco, std::to_string(100 + i)), Texto(std::size_t{50} << (4 * i), 'm'));
        }
}

TEST(BancoDeDados, definicaoEmVariasPaginas) {
    BancoJet tabelas = tabelasDeCodigos();
    for (int i = 0; i < 200; ++i) {
        tabelas.tabelas[1].colunas.push_back({junta("colunaDeMais", std::to_string(i)), TipoJet::Longo});
        for (auto& linha : tabelas.tabelas[1].linhas)
            linha.emplace_back(double(i));
    }
    BancoDeDados banco = abrirBanco(escreverJet(tabelas));
    EXPECT_EQ(respostas(banco), respostasCertas);
}

TEST(BancoDeDados, linhaLongaDeJet3) {
    for (std::size_t tamanho = 30; tamanho <= 200; ++tamanho) { // past every place where a jump comes to be needed
        BancoJet tabelas = tabelasDeCodigos(VersaoJet::Jet3);
        tabelas.tabelas[1].colunas.push_back({"nota", TipoJet::Caracteres, 200});
        for (auto& linha : tabelas.tabelas[1].linhas) {
            linha.emplace_back(Texto(tamanho, 'n'));
            std::swap(linha[1], linha[3]);
        }
        std::swap(tabelas.tabelas[1].colunas[1], tabelas.tabelas[1].colunas[3]);
        tabelas.tabelas[1].linhas.push_back({Texto("L"), Texto(200, 'n'), Texto("A"), Texto(tamanho, 'd')});
        BancoDeDados banco = abrirBanco(escreverJet(tabelas));
        EXPECT_EQ(respostas(banco), respostasCertas);
        EXPECT_EQ(arrecadacao(banco, "L"), Texto(tamanho, 'd'));
    }
}

TEST(BancoDeDados, senha) {
    struct {
        const char* noArquivo;
        const char* conexao;
        int falha;
    } const casos[] = {{"quimera", ";pwd=quimera", 0},
                       {"quimera", "MS Access;PWD=quimera;", 0},
                       {"", ";pwd=quimera", 0},
                       {"quimera", ";pwd=Quimera", falhaDoBanco::senhaInvalida},
                       {"quimera", "", falhaDoBanco::senhaInvalida},
                       {"quimera", "pwd", falhaDoBanco::senhaInvalida},
                       {"quimer", ";pwd=quimera", falhaDoBanco::senhaInvalida}};
    for (const VersaoJet versao : {VersaoJet::Jet3, VersaoJet::Jet4})
        for (const auto& caso : casos) {
            BancoJet tabelas = tabelasDeCodigos(versao);
            tabelas.senha = caso.noArquivo;
            const Texto bytes = escreverJet(tabelas);
            EXPECT_EQ(testes::numeroDaFalha([&] { return abrirBanco(bytes, caso.conexao).consultas(); }), caso.falha)
                << caso.noArquivo << caso.conexao;
        }
    BancoJet tabelas = tabelasDeCodigos();
    tabelas.senha = "outra";
    EXPECT_EQ(falhaAoAbrir(escreverJet(tabelas)), "3031 BancoDeDados: Senha inválida"_t);
}

TEST(BancoDeDados, bancoQueNaoSeAbre) {
    const Texto bom = escreverJet(tabelasDeCodigos());
    const auto mudado = [](auto mudar) {
        BancoJet tabelas = tabelasDeCodigos();
        mudar(tabelas.tabelas);
        return escreverJet(tabelas);
    };
    const auto outraVersao = [&] {
        Texto bytes = bom;
        bytes[lugarJet::versao] = 2;
        return bytes;
    };
    const std::pair<Texto, VistaTexto> casos[] = {
        {"", naoReconhecido},
        {Texto(bom, 0, 100), naoReconhecido},
        {Texto(8192, 'x'), naoReconhecido},
        {Texto((std::size_t{64} << 20) + 1, 'x'), "3024 BancoDeDados: O arquivo é grande demais"_t},
        {outraVersao(), naoReconhecido},
        {Texto(bom, 0, bom.size() - 1), danificado},
        {Texto(bom, 0, bom.size() / 2), danificado},
        {Texto(bom, 0, 4096), danificado},
        {mudado([](auto& tabelas) { tabelas.pop_back(); }),
         "3078 BancoDeDados: O banco de dados não tem a tabela FormaPagamento"_t},
        {mudado([](auto& tabelas) { tabelas[0].colunas[2].nome = "texto"; }),
         "3061 BancoDeDados: A tabela OcorrenciaTAV não tem a coluna textoDescricao"_t},
        {mudado([](auto& tabelas) { tabelas[1].colunas[0].tipo = TipoJet::Binario; }),
         "3259 BancoDeDados: A coluna codigoFormaArrecadacao não tem números nem textos"_t}};
    for (const auto& [bytes, falha] : casos)
        EXPECT_EQ(falhaAoAbrir(bytes), falha);
    testes::ArquivosEmMemoria vazio;
    EXPECT_EQ(testes::textoDaFalha([&] { return BancoDeDados(vazio, "/nada.mdb").consultas(); }),
              "3024 BancoDeDados: Arquivo não encontrado"_t);
}

TEST(BancoDeDados, consultaRecusadaPeloMotor) {
    BancoDeDados banco = abrirBanco(escreverJet(tabelasDeCodigos()));
    for (const char* codigo :
         {"'", "1')) UNION SELECT NAME, NAME, NAME FROM SQLITE_MASTER--", "1')); DROP TABLE FORMAPAGAMENTO --"})
        EXPECT_EQ(testes::numeroDaFalha([&] { return pagamento(banco, codigo); }), falhaDoBanco::consultaRecusada)
            << codigo;
    EXPECT_EQ(testes::textoDaFalha([&] { return pagamento(banco, "'"); }),
              "3075 BancoDeDados: Erro de sintaxe na consulta: SELECT FormaPagamento.codigoFormaPagamento, "
              "FormaPagamento.textoDescricaoFormaPagamento, FormaPagamento.indicadorEstado From FormaPagamento WHERE "
              "(((FormaPagamento.codigoFormaPagamento)='''))");
    EXPECT_EQ(pagamento(banco, "1"), "Dinheiro"); // a refusal changes nothing
}

/// Changes that a damaged disk may make to a file; `pagina` is 0-based.
TEST(BancoDeDados, bancoDanificado) {
    const Texto bom = escreverJet(tabelasDeCodigos());
    constexpr std::size_t definicao = 3; // of the first table: behind header, map and catalogue; then its rows
    constexpr std::size_t mapas = 4;
    constexpr std::size_t linhas = 5;
    constexpr std::size_t fim = 4096;
    struct {
        const char* dano;
        std::size_t pagina;
        std::size_t lugar;
        Texto bytes;
    } const casos[] = {
        {"catalogue is no definition", 2, 0, "\x01"},
        {"catalogue without columns", 2, jet4.colunas, Texto(2, '\0')},
        {"definition of another type", definicao, 0, "\x04"},
        {"definition that continues in itself", definicao, lugarJet::proximaPagina, "\x03"},
        {"definition that continues past the file", definicao, lugarJet::proximaPagina, "\xFF\xFF\xFF\x7F"},
        {"too many columns", definicao, jet4.colunas, "\xFF\xFF"},
        {"too many indexes", definicao, jet4.indices, "\xFF\xFF\xFF\xFF"},
        {"column without a name", definicao, jet4.entradas + 3 * jet4.coluna, Texto(2, '\0')},
        {"name longer than any", definicao, jet4.entradas + 3 * jet4.coluna, "\xFF\xFF"},
        {"map on a page that is none", definicao, jet4.paginasUsadas, "\x05\xFF\xFF\xFF"},
        {"map in a row that is none", definicao, jet4.paginasUsadas, "\x02"},
        {"map of the free pages that is none", definicao, jet4.paginasLivres, "\x07"},
        {"kind of map that does not exist", mapas, fim - 69, "\x02"},
        {"map of pages past the file", mapas, fim - 69 + 1, "\xFF\xFF\xFF\xFF"},
        {"map row that starts past its page", mapas, jet4.contagemDeLinhas + 2, "\xFF\x1F"},
        {"rows of another table", linhas, lugarJet::proximaPagina, "\x63"},
        {"more rows than there is room for", linhas, jet4.contagemDeLinhas, "\xFF\xFF"},
        {"row that starts in the head", linhas, jet4.contagemDeLinhas + 2, Texto("\x02\0", 2)},
        {"row that starts where another did", linhas, jet4.contagemDeLinhas + 6,
         bom.substr(linhas * fim + jet4.contagemDeLinhas + 2, 2)},
        {"row with too many columns", linhas, fim - 33, "\xFF\x7F"},
        {"row with too many variable columns", linhas, fim - 3, "\xFF\x7F"},
        {"variable column that ends past the row", linhas, fim - 7, "\xFF\x7F"},
        {"variable column that ends before it starts", linhas, fim - 5, "\x7F"}};
    for (const auto& [dano, pagina, lugar, bytes] : casos) {
        Texto ruim = bom;
        ruim.replace(pagina * fim + lugar, bytes.size(), bytes);
        EXPECT_EQ(falhaAoAbrir(ruim), danificado) << dano;
    }
}

TEST(ArquivoJet, textoLongoDanificado) {
    BancoJet tabelas = tabelasDeCodigos();
    tabelas.tabelas[0].colunas[2].tipo = TipoJet::Memo;
    tabelas.tabelas[0].linhas = {{1.0, 1.0, Texto(3000, 'm')}}; // takes two pieces
    Texto bytes = escreverJet(tabelas);
    const std::size_t pagina = bytes.find("LVAL") / 4096;
    const auto cabeca = [](std::uint32_t tamanho, std::size_t lugar) {
        Texto bytesDela;
        juntarNumero(bytesDela, tamanho, 4);
        juntarNumero(bytesDela, lugar, 8);
        return bytesDela;
    };
    const auto falha = [&](const Texto& cabecaDoTexto) {
        const ArquivoJet arquivo(bytes);
        return testes::numeroDaFalha([&] { return arquivo.textoLongo(cabecaDoTexto); });
    };
    constexpr std::uint32_t inteiro = 0x40000000;
    EXPECT_EQ(falha(cabeca(100, pagina << 8)), 0);
    EXPECT_EQ(falha(cabeca(100, pagina << 8).substr(0, 11)), falhaDoBanco::danificado);
    EXPECT_EQ(falha(cabeca(0x3FFFFFFF, pagina << 8)), falhaDoBanco::danificado);
    EXPECT_EQ(falha(cabeca(100, 0xFFFF00)), falhaDoBanco::danificado);
    EXPECT_EQ(falha(cabeca(100 | inteiro, pagina << 8 | 1)), falhaDoBanco::danificado);
    EXPECT_EQ(falha(cabeca(6000, pagina << 8)), falhaDoBanco::danificado); // longer than its chain
    bytes.replace(pagina * 4096 + jet4.contagemDeLinhas + 2, 2, Texto("\xFC\x0F"));
    bytes.replace((pagina + 1) * 4096 - 4, 4, cabeca(static_cast<std::uint32_t>(pagina << 8), 0).substr(0, 4));
    EXPECT_EQ(falha(cabeca(100, pagina << 8)), falhaDoBanco::danificado); // a piece without text, before itself
}

TEST(BancoDeDados, bytesAoAcasoNuncaDerrubam) {
    BancoJet tabelas[] = {tabelasDeCodigos(VersaoJet::Jet3), tabelasDeCodigos(VersaoJet::Jet4)};
    for (BancoJet& tabela : tabelas) {
        tabela.tabelas[0].colunas[2].tipo = TipoJet::Memo;
        tabela.tabelas[0].linhas.push_back({1.0, 3.0, Texto(9000, 'm')});
        tabela.mapasEmPaginas = true;
    }
    const Texto bons[] = {escreverJet(tabelas[0]), escreverJet(tabelas[1])};
    std::mt19937 sorteio(1);
    int abertos = 0;
    constexpr int rodadas = 400;
    for (int rodada = 0; rodada < rodadas; ++rodada) {
        Texto bytes = bons[rodada % 2];
        const std::size_t pagina = rodada % 2 == 0 ? jet3.pagina : jet4.pagina;
        for (int mudanca = 0; mudanca < 6; ++mudanca) { // heads of pages and ends of rows more often than the rest
            const std::size_t inicio = sorteio() % (bytes.size() / pagina) * pagina;
            const std::size_t faixa = mudanca % 3 == 0 ? pagina : 64;
            const std::size_t lugar = inicio + (mudanca % 3 == 1 ? pagina - faixa : 0) + sorteio() % faixa;
            bytes[lugar] = static_cast<char>(sorteio());
        }
        abertos += testes::numeroDaFalha([&] {
                       BancoDeDados banco = abrirBanco(bytes);
                       return respostas(banco);
                   }) == 0;
    }
    EXPECT_GT(abertos, 0); // else nothing but the check of the file was tried
    EXPECT_LT(abertos, rodadas);
}

/// Reads the database that a variable of the environment names, made by another program.
TEST(BancoDeDados, bancoDeOutroPrograma) {
    const char* const caminho = std::getenv("QUILATADOR_BANCO_EXTERNO");
    if (caminho == nullptr) GTEST_SKIP() << "QUILATADOR_BANCO_EXTERNO names no database";
    std::ifstream arquivo(caminho, std::ios::binary);
    BancoDeDados banco = abrirBanco(Texto(std::istreambuf_iterator<char>(arquivo), {}));
    EXPECT_EQ(ocorrencia(banco, "05"), "Convênio não cadastrado"_t);
    EXPECT_EQ(ocorrencia(banco, "12"), "Código de barras inválido – conferir"_t);
    EXPECT_EQ(ocorrencia(banco, "07"), "");
    EXPECT_EQ(ocorrencia(banco, "08"), "");
    EXPECT_EQ(ocorrencia(banco, "06"), "(sem linha)");
    for (int numero = 20; numero < 100; ++numero) {
        const Texto codigo = std::to_string(numero);
        EXPECT_EQ(ocorrencia(banco, codigo),
                  junta("Ocorrência de número "_t, codigo,
                        " — descrição longa para que a tabela ocupe mais de uma página de dados do arquivo, com "
                        "acentuação: áéíóú ÇÃÕ"_t));
    }
    EXPECT_EQ(arrecadacao(banco, "a"), "Guichê sem fatura"_t);
    EXPECT_EQ(pagamento(banco, "X"), "");
}

} // namespace
} // namespace quilatador
