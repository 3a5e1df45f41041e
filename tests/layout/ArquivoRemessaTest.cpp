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
    explicit Bancada(VistaTexto conteudo = {}, std::size_t tipos = 2) : arquivo(arquivos, relogio) {
        for (const VistaTexto letra : {"A"_t, "B"_t})
            if (tipos > 0) arquivo.addTipoRegistro(std::make_shared<RegistroRemessa>(registro(letra)));
        arquivos.conteudo["x"] = Texto(conteudo);
        arquivo.abrirArquivoEntrada("x");
    }

    /// All lines of the file as read: name and place of the type with the line, the failure, or "fim" for a record
    /// without name; each with the count.
    Texto lerTudo(bool lerCampos) {
        Texto resultado;
        for (int vez = 0; vez < 6; ++vez) {
            const Texto falha = textoDaFalha([&] {
                RegistroRemessa& lido = *arquivo.lerRegistro(lerCampos);
                EXPECT_EQ(&lido, &arquivo.registroEmMaos());
                resultado += lido.nome().empty() ? Texto("fim"_t)
                                                 : junta(lido.nome(), textoDe(static_cast<int>(arquivo.tipoEmMaos())),
                                                         " "_t, lerCampos ? lido.gerarLinha() : lido.linha());
            });
            resultado += junta(falha, " ("_t, textoDe(arquivo.contador()), "); "_t);
        }
        return resultado;
    }

    ArquivosEmMemoria arquivos;
    testes::RelogioFixo relogio;
    ArquivoRemessa arquivo;
};

constexpr VistaTexto semTipo = "1 ArquivoRemessa: Tipo de registro não identificado!"_t;
constexpr VistaTexto linhas = "A00100000000A   \r\nB00220240131B   \r\nB00320240230C   \r\nX\r\n\r\nA00400000000D   "_t;

TEST(ArquivoRemessa, leCamposOuSoALinha) {
    EXPECT_EQ(Bancada(linhas).lerTudo(true),
              "A0 A00100000000A    (1); B1 B00220240131B    (2); "
              "1 RegistroRemessa: Linha: 000003 - Segmento=B - Campo=Data - Campo data inválido (3); "
              "1 ArquivoRemessa: Tipo de registro não identificado! (4); fim (4); A0 A00400000000D    (5); "_t);
    EXPECT_EQ(Bancada(linhas).lerTudo(false),
              "A0 A00100000000A    (1); B1 B00220240131B    (2); B1 B00320240230C    (3); "
              "1 ArquivoRemessa: Tipo de registro não identificado! (4); fim (4); A0 A00400000000D    (5); "_t);
    EXPECT_EQ(Bancada("A\nB00220240131B  "_t).lerTudo(true),
              "1 RegistroRemessa: Linha: 000001 - Segmento=A - Tamanho de linha incompatível! (1); "
              "1 RegistroRemessa: Linha: 000002 - Segmento=B - Tamanho de linha incompatível! (2); "
              "fim (2); fim (2); fim (2); fim (2); "_t);
}

TEST(ArquivoRemessa, copiasOuOsProprios) {
    Bancada bancada("B001\nB002\nB003\n"_t);
    const RegistroRemessa* tipo = bancada.arquivo.tiposRegistros()[1].get();
    EXPECT_NE(bancada.arquivo.criarRegistro("B"_t).get(), tipo);
    const auto primeiro = bancada.arquivo.lerRegistro(false);
    const auto segundo = bancada.arquivo.lerRegistro(false);
    EXPECT_EQ(junta(primeiro->linha(), segundo->linha(), tipo->linha()), "B001B002"_t);
    EXPECT_EQ(primeiro->anoCorrente(), 2026);
    bancada.arquivo.anoCorrente(2030);
    EXPECT_EQ(primeiro->anoCorrente(), 2030);
    bancada.arquivo.criarCopias(false);
    EXPECT_EQ(bancada.arquivo.criarRegistro("b"_t).get(), tipo);
    EXPECT_EQ(bancada.arquivo.lerRegistro(false).get(), tipo);
    EXPECT_EQ(tipo->ArquivoRemessa(), &bancada.arquivo);
    EXPECT_EQ(textoDaFalha([&] { return bancada.arquivo.criarRegistro("C"_t); }),
              "5 ArquivoRemessa: Registro inexistente no leiaute: C"_t);
}

/// Whatever shortens the recognition, the type is the first one whose `isRegistroTipo` holds.
TEST(ArquivoRemessa, reconheceOPrimeiroTipoQueAceitaALinha) {
    std::mt19937 sorteio(1);
    const auto ate = [&](unsigned maximo) { return static_cast<std::int16_t>(sorteio() % (maximo + 1)); };
    const auto texto = [&](unsigned maximo) {
        Texto resultado(static_cast<std::size_t>(ate(maximo)), ' ');
        std::ranges::generate(resultado, [&] { return "AB "[ate(2)]; });
        return resultado;
    };
    for (int vez = 0; vez < 2000; ++vez) {
        const Texto linha = junta("A"_t, texto(4));
        Bancada bancada(linha, 0);
        for (int tipo = 0; tipo < 4; ++tipo) {
            auto novo = std::make_shared<RegistroRemessa>();
            novo->nome(textoDe(tipo));
            novo->identificador(Texto("Id"_t));
            novo->add(campo("Antes"_t, {.natureza = "S"_t, .tamanho = vez % 2 == 0 ? std::int16_t{1} : ate(2)}));
            novo->add(campo("Id"_t, {.natureza = "S"_t, .tamanho = ate(2)},
                            ate(4) == 0 ? Valor(Valor::Nulo()) : Valor(texto(2))));
            bancada.arquivo.addTipoRegistro(std::move(novo));
        }
        Texto esperado(semTipo);
        for (const auto& tipo : bancada.arquivo.tiposRegistros())
            if (esperado == semTipo && tipo->isRegistroTipo(linha)) esperado = tipo->nome();
        Texto lido;
        const Texto falha = textoDaFalha([&] { lido = bancada.arquivo.lerRegistro(false)->nome(); });
        EXPECT_EQ(junta(lido, falha), esperado);
    }
}

TEST(ArquivoRemessa, falhasDeArquivoTemTextoProprio) {
    // What the opening says, and what writing and closing say.
    const std::tuple<int, VistaTexto, VistaTexto> casos[] = {
        {52, "52 Gravacao: Nome de arquivo inválido!"_t, "52 Gravacao: do sistema"_t},
        {53, "53 Gravacao: Arquivo não encontrado!"_t, "53 Gravacao: do sistema"_t},
        {54, "54 Gravacao: Modo de arquivo inválido!"_t, "54 Gravacao: do sistema"_t},
        {55, "55 Gravacao: Arquivo já está aberto!"_t, "55 Gravacao: do sistema"_t},
        {57, "57 Gravacao: do sistema"_t, "57 Gravacao: Disco com defeito!"_t},
        {61, "61 Gravacao: do sistema"_t, "61 Gravacao: Disco cheio!"_t},
    };
    for (const auto& [numero, aoAbrir, aoGravar] : casos) {
        Bancada bancada;
        for (const auto& [operacao, vez] :
             {std::pair(Operacao::Abrir, 2), {Operacao::Criar, 1}, {Operacao::Escrever, 1}, {Operacao::Fechar, 1}})
            bancada.arquivos.falhar(operacao, vez, Falha(numero, "Sistema"_t, "do sistema"_t));
        ArquivoRemessa& arquivo = bancada.arquivo;
        EXPECT_EQ(textoDaFalha([&] { arquivo.abrirArquivoEntrada("x"); }), aoAbrir);
        EXPECT_EQ(textoDaFalha([&] { arquivo.abrirArquivoSaida("y"); }), aoAbrir);
        arquivo.abrirArquivoSaida("y");
        EXPECT_EQ(textoDaFalha([&] { arquivo.addRegistro(*arquivo.criarRegistro("A"_t)); }), aoGravar);
        EXPECT_EQ(textoDaFalha([&] { arquivo.fecharArquivoEntrada(); }), aoGravar); // whichever file is open
    }
    Bancada fechada;
    fechada.arquivo.fecharArquivoSaida();
    EXPECT_EQ(testes::numeroDaFalha([&] { return fechada.arquivo.lerRegistro(false); }), 52);
    EXPECT_EQ(testes::numeroDaFalha([&] { fechada.arquivo.addRegistro(*fechada.arquivo.criarRegistro("A"_t)); }), 52);
}

TEST(ArquivoRemessa, falhaDeLeituraDizALinha) {
    Bancada bancada("A001\n"_t);
    bancada.arquivos.falhar(Operacao::Ler, 2, Falha(57, "Gravacao"_t, "Erro de E/S"_t));
    EXPECT_EQ(bancada.arquivo.lerRegistro(false)->linha(), "A001"_t);
    EXPECT_EQ(textoDaFalha([&] { return bancada.arquivo.lerRegistro(false); }),
              "1 RegistroRemessa: Linha: 000002 - Erro de E/S"_t);
}

TEST(ArquivoRemessa, escreveRegistrosContandoAntes) {
    Bancada bancada;
    const auto b = bancada.arquivo.criarRegistro("B"_t);
    b->add(campo("Sequencial"_t, {.natureza = "R"_t, .tamanho = 4}));
    b->setValorCampo("Texto"_t, "coração"_t);
    std::array<RegistroRemessa*, 2> duasVezes{b.get(), b.get()};
    bancada.arquivo.abrirArquivoSaida("y");
    bancada.arquivo.contador(9'997);
    bancada.arquivo.addRegistros(duasVezes);
    EXPECT_EQ(textoDaFalha([&] { bancada.arquivo.addRegistro(*b); }), "5 CampoRemessa: Argumento inválido"_t);
    bancada.arquivo.fecharArquivoSaida();
    EXPECT_EQ(bancada.arquivos.conteudo["y"], "B00000000000CORA9998\r\nB00000000000CORA9999\r\n"_t);
}

} // namespace
} // namespace quilatador
