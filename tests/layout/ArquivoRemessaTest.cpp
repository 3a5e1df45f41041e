#include "layout/ArquivoRemessa.h"

#include "layout/Leiautes.h"
#include "support/Falhas.h"
#include "support/Falsos.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace quilatador {
namespace {

using testes::ArquivosEmMemoria;
using testes::campo;
using testes::registro;
using testes::textoDaFalha;
using Operacao = ArquivosEmMemoria::Operacao;

/// A layout of the record types A and B, and the file "x" with some content.
struct Bancada {
    explicit Bancada(VistaTexto conteudo = {}) : arquivo(arquivos) {
        for (const char* letra : {"A", "B"})
            arquivo.addTipoRegistro(std::make_shared<RegistroRemessa>(registro(letra)));
        arquivos.conteudo["x"] = Texto(conteudo);
        arquivo.abrirArquivoEntrada("x");
    }

    /// All lines of the file as read: "type line; ", the failure, or "fim" for a record without name.
    Texto lerTudo(bool lerCampos) {
        Texto resultado;
        for (int vez = 0; vez < 6; ++vez) {
            const Texto falha = textoDaFalha([&] {
                RegistroRemessa& lido = arquivo.lerRegistro(lerCampos);
                EXPECT_EQ(&lido, &arquivo.registroEmMaos());
                resultado += lido.nome().empty() ? "fim" : junta(lido.nome(), " ", lido.gerarLinha(), lido.linha());
            });
            resultado += junta(falha, " (", std::to_string(arquivo.contador()), "); ");
        }
        return resultado;
    }

    ArquivosEmMemoria arquivos;
    ArquivoRemessa arquivo;
};

constexpr VistaTexto linhas = "A00100000000A   \r\nB00220240131B   \r\nB00320240230C   \r\nX\r\n\r\nA00400000000D   ";

TEST(ArquivoRemessa, leCamposOuSoALinha) {
    EXPECT_EQ(Bancada(linhas).lerTudo(true),
              "A A00100000000A    (1); B B00220240131B    (2); "
              "1 RegistroRemessa: Linha: 000003 - Segmento=B - Campo=Data - Campo data inválido (3); "
              "1 ArquivoRemessa: Tipo de registro não identificado! (4); fim (4); A A00400000000D    (5); "_t);
    EXPECT_EQ(Bancada("A\nB00220240131B  ").lerTudo(true),
              "1 RegistroRemessa: Linha: 000001 - Segmento=A - Tamanho de linha incompatível! (1); "
              "1 RegistroRemessa: Linha: 000002 - Segmento=B - Tamanho de linha incompatível! (2); "
              "fim (2); fim (2); fim (2); fim (2); "_t);

    Bancada preguicosa(linhas);
    for (const VistaTexto linha : {"A00100000000A   ", "B00220240131B   ", "B00320240230C   "}) {
        EXPECT_EQ(preguicosa.arquivo.lerRegistro(false).linha(), linha);
        EXPECT_EQ(preguicosa.arquivo.tipoEmMaos(), linha.front() == 'A' ? 0u : 1u);
    }
}

TEST(ArquivoRemessa, copiasOuOsProprios) {
    Bancada bancada("B001\nB002\n");
    const RegistroRemessa* tipo = bancada.arquivo.tiposRegistros()[1].get();
    EXPECT_NE(bancada.arquivo.criarRegistro("B").get(), tipo);
    EXPECT_NE(&bancada.arquivo.lerRegistro(false), tipo);
    EXPECT_EQ(tipo->linha(), "");
    bancada.arquivo.criarCopias(false);
    EXPECT_EQ(bancada.arquivo.criarRegistro("b").get(), tipo);
    EXPECT_EQ(&bancada.arquivo.lerRegistro(false), tipo);
    EXPECT_EQ(tipo->ArquivoRemessa(), &bancada.arquivo);
    EXPECT_EQ(textoDaFalha([&] { return bancada.arquivo.criarRegistro("C"); }),
              "5 ArquivoRemessa: Registro inexistente no leiaute: C");
    EXPECT_EQ(textoDaFalha([&] { bancada.arquivo.addTipoRegistro(std::make_shared<RegistroRemessa>(registro("a"))); }),
              "457 ArquivoRemessa: Registro em duplicidade: a");
}

/// Whatever shortens the recognition, the type is the first one whose `isRegistroTipo` holds.
TEST(ArquivoRemessa, reconheceOPrimeiroTipoQueAceitaALinha) {
    std::mt19937 sorteio(1);
    const auto texto = [&](std::size_t maximo) {
        Texto resultado(sorteio() % (maximo + 1), ' ');
        for (char& c : resultado)
            c = "AB "[sorteio() % 3];
        return resultado;
    };
    for (int vez = 0; vez < 2000; ++vez) {
        ArquivosEmMemoria arquivos;
        ArquivoRemessa arquivo(arquivos);
        const bool mesmaPosicao = vez % 2 == 0;
        for (int tipo = 0; tipo < 4; ++tipo) {
            RegistroRemessa novo;
            novo.nome(std::to_string(tipo));
            novo.identificador("Id");
            const auto antes = static_cast<std::int16_t>(mesmaPosicao ? 1 : sorteio() % 3);
            novo.add(campo("Antes", {.natureza = "S", .tamanho = antes}));
            const auto largura = static_cast<std::int16_t>(1 + sorteio() % 2);
            novo.add(campo("Id", {.natureza = "S", .tamanho = largura},
                           sorteio() % 5 == 0 ? Valor(Valor::Nulo()) : Valor(texto(2))));
            arquivo.addTipoRegistro(std::make_shared<RegistroRemessa>(std::move(novo)));
        }
        const Texto linha = junta("A", texto(4));
        arquivos.conteudo["x"] = linha;
        arquivo.abrirArquivoEntrada("x");
        const auto tipo = std::ranges::find_if(arquivo.tiposRegistros(),
                                               [&](const auto& candidato) { return candidato->isRegistroTipo(linha); });
        Texto lido;
        const Texto falha = textoDaFalha([&] { lido = arquivo.lerRegistro(false).nome(); });
        EXPECT_EQ(lido + falha, tipo == arquivo.tiposRegistros().end()
                                    ? "1 ArquivoRemessa: Tipo de registro não identificado!"_t
                                    : (*tipo)->nome())
            << linha;
    }
}

TEST(ArquivoRemessa, falhasDeArquivoTemTextoProprio) {
    const std::pair<int, VistaTexto> casos[] = {
        {52, "52 Gravacao: Nome de arquivo inválido!"_t},
        {53, "53 Gravacao: Arquivo não encontrado!"_t},
        {54, "54 Gravacao: Modo de arquivo inválido!"_t},
        {55, "55 Gravacao: Arquivo já está aberto!"_t},
        {57, "57 Gravacao: Disco com defeito!"},
        {61, "61 Gravacao: Disco cheio!"},
        {70, "70 Gravacao: do sistema"},
        {75, "75 Gravacao: do sistema"},
    };
    for (const auto& [numero, esperado] : casos) {
        Bancada bancada;
        const Falha doSistema(numero, "Sistema", "do sistema");
        bancada.arquivos.falhar(Operacao::Abrir, 2, doSistema);
        bancada.arquivos.falhar(Operacao::Criar, 1, doSistema);
        bancada.arquivos.falhar(Operacao::Escrever, 1, doSistema);
        bancada.arquivos.falhar(Operacao::Fechar, 1, doSistema);
        EXPECT_EQ(textoDaFalha([&] { bancada.arquivo.abrirArquivoEntrada("x"); }), esperado);
        EXPECT_EQ(textoDaFalha([&] { bancada.arquivo.abrirArquivoSaida("y"); }), esperado);
        bancada.arquivo.abrirArquivoSaida("y");
        EXPECT_EQ(textoDaFalha([&] { bancada.arquivo.addRegistro(*bancada.arquivo.criarRegistro("A")); }), esperado);
        EXPECT_EQ(textoDaFalha([&] { bancada.arquivo.fecharArquivoSaida(); }), esperado);
    }
    Bancada fechada;
    fechada.arquivo.fecharArquivoEntrada();
    EXPECT_EQ(testes::numeroDaFalha([&] { return &fechada.arquivo.lerRegistro(false); }), 52);
    EXPECT_EQ(testes::numeroDaFalha([&] { fechada.arquivo.addRegistro(*fechada.arquivo.criarRegistro("A")); }), 52);
}

TEST(ArquivoRemessa, falhaDeLeituraDizALinha) {
    Bancada bancada("A001\n");
    bancada.arquivos.falhar(Operacao::Ler, 2, Falha(57, "Gravacao", "Erro de E/S"));
    EXPECT_EQ(bancada.arquivo.lerRegistro(false).linha(), "A001");
    try {
        static_cast<void>(bancada.arquivo.lerRegistro(false));
        FAIL();
    } catch (const Falha& falha) {
        EXPECT_EQ(falha.descricao(), "Linha: 000002 - Erro de E/S");
        EXPECT_TRUE(falha.doAmbiente());
    }
}

TEST(ArquivoRemessa, escreveRegistrosContandoAntes) {
    Bancada bancada("A001\n");
    EXPECT_EQ(bancada.arquivo.lerRegistro(false).linha(), "A001");
    auto a = bancada.arquivo.criarRegistro("A");
    auto b = bancada.arquivo.criarRegistro("B");
    b->add(campo("Sequencial", {.natureza = "R", .tamanho = 4}));
    a->setValorCampo("Texto", "coração"_t);
    b->setValorCampo("Data", fazData(2024, 1, 31));
    std::array<RegistroRemessa*, 2> ambos{a.get(), b.get()};
    bancada.arquivo.abrirArquivoSaida("y");
    bancada.arquivo.addRegistros(ambos);
    bancada.arquivo.fecharArquivoSaida();
    EXPECT_EQ(bancada.arquivos.conteudo["y"], "A00000000000CORA\r\nB00020240131    0003\r\n");
    EXPECT_TRUE(bancada.arquivos.tudoFechado());
    bancada.arquivo.abrirArquivoEntrada("y");
    EXPECT_EQ(bancada.arquivo.contador(), 3); // opening does not reset it
}

} // namespace
} // namespace quilatador
