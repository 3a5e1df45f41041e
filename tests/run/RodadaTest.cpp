#include "run/Rodada.h"

#include "run/ParadaEstrutural.h"
#include "support/Falsos.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <new>

namespace quilatador {
namespace {

using Operacao = testes::ArquivosEmMemoria::Operacao;

/// Does what a test wants.
class AnaliseFalsa final : public Analise {
  public:
    [[nodiscard]] Desfecho analisar() override { return acao(); }
    void fecharEntrada() noexcept override { fechada = true; }

    std::function<Desfecho()> acao = [] { return Desfecho::Concluida; };
    bool fechada = false;
};

struct Bancada {
    Resumo executar() {
        Resumo resumo = rodada.executar(analise);
        EXPECT_TRUE(analise.fechada);
        EXPECT_TRUE(mundo.arquivos.tudoFechado());
        EXPECT_EQ(ouvinte.resumos.size(), 1u);
        EXPECT_EQ(ouvinte.resumos[0].desfecho, resumo.desfecho);
        EXPECT_EQ(ouvinte.resumos[0].descricao, resumo.descricao);
        return resumo;
    }
    /// The log behind its title and the empty line, without its last line.
    [[nodiscard]] Texto log() {
        constexpr VistaTexto titulo = "LOG DE DEPURAÇÃO DO ARQUIVO /e.rem  -   10/03/2026\r\n\r\n"_t;
        constexpr VistaTexto fim = "Depuração terminada!\r\n"_t;
        const Texto& todo = mundo.arquivos.conteudo["/e.log"];
        if (!todo.starts_with(titulo) || !todo.ends_with(fim)) return junta("(incompleto) "_t, todo);
        return todo.substr(titulo.size(), todo.size() - titulo.size() - fim.size());
    }

    testes::MundoFalso mundo;
    testes::RelatorMemoria ouvinte;
    std::vector<Relator*> ouvintes{&ouvinte};
    std::atomic<bool> cancelado = true; // what an earlier run was asked
    Rodada rodada{mundo.ambiente, {.nomeArquivo = "/e.rem", .ouvintes = ouvintes}, cancelado};
    AnaliseFalsa analise;
};

TEST(Rodada, cadaFimTemASuaLinhaEOSeuResumo) {
    const Achado parada{.id = "a.b"_t, .gravidade = Gravidade::Estrutural, .campo = {}, .mensagem = Texto("fora"_t)};
    const Achado erro{.id = "a.c"_t, .linha = 7, .campo = {}, .mensagem = Texto("ruim"_t)};
    struct Caso {
        std::function<Desfecho(Bancada&)> acao;
        Desfecho desfecho;
        VistaTexto log;
        VistaTexto descricao = {};
        std::int32_t erros = 0;
    };
    const Caso casos[] = {
        {[](Bancada& b) { return b.rodada.cancelada() ? Desfecho::Cancelada : Desfecho::Concluida; },
         Desfecho::Concluida,
         {}},
        {[&](Bancada& b) { return b.rodada.escreverErro(erro), Desfecho::Cancelada; },
         Desfecho::Cancelada,
         "** ERRO -> Linha 000007 - ruim\r\n\r\nDEPURACAO CANCELADA!\r\n"_t,
         {},
         1},
        {[&](Bancada&) -> Desfecho { throw ParadaEstrutural({}, parada); }, Desfecho::Falhou, "fora\r\n"_t, "fora"_t},
        {[](Bancada&) -> Desfecho { throw Falha(1, {}, Texto("dado"_t)); }, Desfecho::Falhou, "dado\r\n"_t, "dado"_t},
        {[](Bancada&) -> Desfecho { throw testes::discoCheio; }, Desfecho::NaoRodou, "Disco cheio\r\n"_t,
         "Disco cheio"_t},
        {[](Bancada&) -> Desfecho { throw std::bad_alloc(); }, Desfecho::NaoRodou, "Memória insuficiente!\r\n"_t,
         "Memória insuficiente!"_t},
    };
    for (const Caso& caso : casos) {
        Bancada bancada;
        bancada.analise.acao = [&] { return caso.acao(bancada); };
        const Resumo resumo = bancada.executar();
        EXPECT_EQ(resumo.desfecho, caso.desfecho);
        EXPECT_EQ(resumo.descricao, caso.descricao);
        EXPECT_EQ(resumo.totalErros, caso.erros);
        EXPECT_EQ(bancada.log(), caso.log);
        const auto linhas = std::ranges::count(bancada.mundo.arquivos.conteudo["/e.log"], '\n');
        EXPECT_EQ(bancada.ouvinte.linhas.size() + bancada.ouvinte.achados.size(), static_cast<std::size_t>(linhas));
        EXPECT_EQ(bancada.mundo.lancador.textos.size(), 1u);
    }
}

/// Whatever a run would say of a file that somebody changed meanwhile, it says that.
TEST(Rodada, arquivoAlteradoNaoTemConclusao) {
    const std::function<void(Bancada&)> fins[] = {
        [](Bancada& b) { b.rodada.entradaAberta(*b.mundo.arquivos.versao("/e.rem")); },
        [](Bancada& b) { b.rodada.conferirEntrada(); },
        [](Bancada& b) { b.mundo.arquivos.conteudo.erase("/e.rem"), b.rodada.conferirEntrada(); },
        [](Bancada&) { throw ParadaEstrutural({}, Achado{}); },
        [](Bancada&) { throw Falha(1, {}, {}); },
    };
    for (const auto& fim : fins) {
        Bancada bancada;
        Texto& entrada = bancada.mundo.arquivos.conteudo["/e.rem"];
        bancada.analise.acao = [&] {
            bancada.rodada.entradaAberta(*bancada.mundo.arquivos.versao("/e.rem"));
            entrada = "outro"_t;
            fim(bancada);
            return Desfecho::Concluida;
        };
        EXPECT_EQ(bancada.executar().desfecho, Desfecho::NaoRodou);
        EXPECT_EQ(bancada.log(), "O arquivo foi alterado durante a análise!\r\n"_t);
    }
}

TEST(Rodada, semLogSoAMensagem) {
    const std::pair<std::function<void(Bancada&)>, VistaTexto> casos[] = {
        {[](Bancada& b) { b.mundo.arquivos.falhar(Operacao::Criar, 1, testes::discoCheio); },
         "Erro na criacao do arquivo de log: /e.log"_t},
        {[](Bancada& b) { b.mundo.arquivos.falhar(Operacao::Criar, 1, Falha(numeroDeFalha::arquivoJaAberto, {}, {})); },
         "O arquivo de log está em uso por outra análise ou por outro programa: /e.log"_t},
        {[](Bancada& b) {
             b.mundo.arquivos.falhar(Operacao::Escrever, 1, testes::discoCheio); // in the middle: more than a block
             b.analise.acao = [&] { return b.rodada.escreverLog(Texto(3'000'000, 'x')), Desfecho::Concluida; };
         },
         "Erro na gravação do arquivo de log: /e.log (Disco cheio)"_t},
        {[](Bancada& b) { b.mundo.arquivos.falhar(Operacao::Fechar, 1, testes::discoCheio); },
         "Erro na gravação do arquivo de log: /e.log (Disco cheio)"_t},
    };
    for (const auto& [preparar, texto] : casos) {
        Bancada bancada;
        preparar(bancada);
        const Resumo resumo = bancada.executar();
        EXPECT_EQ(resumo.desfecho, Desfecho::NaoRodou);
        EXPECT_EQ(resumo.descricao, texto);
        EXPECT_FALSE(bancada.rodada.logGravado());
        EXPECT_TRUE(bancada.mundo.lancador.textos.empty());
        ASSERT_EQ(bancada.mundo.painel.mensagens.size(), 1u);
        EXPECT_EQ(bancada.mundo.painel.mensagens[0].texto, texto);
    }
}

/// Each place that the user chooses is checked like the first one.
TEST(Rodada, logEmOutroLugar) {
    Bancada bancada;
    auto& [painel, relogio, localidade, lancador, arquivos, ambiente] = bancada.mundo;
    arquivos.falhar(Operacao::Criar, 1, testes::discoCheio);
    painel.outrosLugares = {{"/e.log", "/e.rem"}, {"/e.rem", "/outro.log"}};
    EXPECT_EQ(bancada.executar().desfecho, Desfecho::Concluida);
    ASSERT_EQ(painel.mensagens.size(), 2u);
    EXPECT_EQ(painel.mensagens[0].texto, "Erro na criacao do arquivo de log: /e.log"_t);
    EXPECT_EQ(painel.mensagens[1].texto, "O arquivo de log seria o próprio arquivo analisado: /e.rem"_t);
    EXPECT_FALSE(arquivos.existe("/e.rem"));
    EXPECT_TRUE(arquivos.conteudo["/outro.log"].ends_with("Depuração terminada!\r\n"_t));
    EXPECT_EQ(lancador.textos, std::vector<std::filesystem::path>{"/outro.log"});
}

} // namespace
} // namespace quilatador
