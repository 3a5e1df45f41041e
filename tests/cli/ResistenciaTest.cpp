#include "cli/BancadaDoPrograma.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <malloc.h>
#include <new>
#include <pugixml.hpp>
#include <sqlite3.h>

namespace {

/// Reservations until the one that fails; none does while it is 0.
std::atomic<long> ateFalhar = 0;
std::atomic<std::size_t> bytesReservados = 0;

void* reservarOuNada(std::size_t bytes, std::size_t alinhamento = alignof(std::max_align_t)) noexcept {
    if (ateFalhar > 0 && --ateFalhar == 0) return nullptr;
    void* const memoria = std::aligned_alloc(alinhamento, (bytes / alinhamento + 1) * alinhamento);
    bytesReservados += ::malloc_usable_size(memoria);
    return memoria;
}

void* reservar(std::size_t bytes, std::size_t alinhamento = alignof(std::max_align_t)) {
    void* const memoria = reservarOuNada(bytes, alinhamento);
    if (memoria == nullptr) throw std::bad_alloc();
    return memoria;
}

/// Out of line, where the compiler does not take free for the wrong partner of new.
[[gnu::noinline]] void devolver(void* memoria) noexcept {
    bytesReservados -= ::malloc_usable_size(memoria);
    std::free(memoria);
}

} // namespace

// The whole program reserves memory through these. Each form that it calls is here, arrays and pages too, since a
// sanitizer's own forms do not call one another.
void* operator new(std::size_t bytes) {
    return reservar(bytes);
}
void* operator new[](std::size_t bytes) {
    return reservar(bytes);
}
void* operator new[](std::size_t bytes, std::align_val_t alinhamento) {
    return reservar(bytes, static_cast<std::size_t>(alinhamento));
}
void operator delete(void* memoria) noexcept {
    devolver(memoria);
}
void operator delete(void* memoria, std::size_t) noexcept {
    devolver(memoria);
}
void operator delete[](void* memoria) noexcept {
    devolver(memoria);
}
void operator delete[](void* memoria, std::size_t) noexcept {
    devolver(memoria);
}
void operator delete[](void* memoria, std::align_val_t) noexcept {
    devolver(memoria);
}

namespace quilatador {
namespace {

/// The libraries' own reservations fail with the others.
void vigiarBibliotecas() {
    pugi::set_memory_management_functions([](std::size_t bytes) { return reservarOuNada(bytes); }, devolver);
    sqlite3_mem_methods memoria{};
    memoria.xMalloc = [](int bytes) { return reservarOuNada(static_cast<std::size_t>(bytes)); };
    memoria.xFree = devolver;
    memoria.xRealloc = [](void* antes, int bytes) {
        void* const depois = reservarOuNada(static_cast<std::size_t>(bytes));
        if (depois != nullptr && antes != nullptr)
            std::memcpy(depois, antes, std::min(::malloc_usable_size(antes), static_cast<std::size_t>(bytes)));
        if (depois != nullptr) devolver(antes);
        return depois;
    };
    memoria.xSize = [](void* bloco) { return static_cast<int>(::malloc_usable_size(bloco)); };
    memoria.xRoundup = [](int bytes) { return (bytes + 7) & ~7; };
    memoria.xInit = [](void*) { return SQLITE_OK; };
    memoria.xShutdown = [](void*) {};
    ASSERT_EQ(sqlite3_config(SQLITE_CONFIG_MALLOC, &memoria), SQLITE_OK);
}

using Bancada = testes::BancadaDoPrograma;

struct Arquivo {
    const char* nome;
    const char* log;
    int situacao;
    Texto inteiro = {}; ///< its log in a program just started
};

std::vector<Arquivo> arquivosComLog() {
    std::vector<Arquivo> arquivos{
        {"/d/boa.rem", "/d/boa.log", 0},           {"/d/ruim.rem", "/d/ruim.log", 1},
        {"/d/cortada.rem", "/d/cortada.log", 1},   {"/d/impressao.ret", "/d/impressao.log", 1},
        {"/d/liquidacao", "/d/liquidacao.log", 0}, {"/d/nada", "/d/nadalog", 2}};
    for (Arquivo& arquivo : arquivos) {
        Bancada bancada;
        EXPECT_EQ(bancada.rodar({"-q", arquivo.nome}), arquivo.situacao) << arquivo.nome;
        arquivo.inteiro = bancada.arquivos.conteudo[arquivo.log];
    }
    return arquivos;
}

/// Analyses the file once more, with a failure that `falhar` puts somewhere, and says what `tocada` tells: whether the
/// run came upon it. The run is to end as if nothing were the matter, or with status 2 and the reason: in the log, or
/// behind a log that is a true beginning.
template <typename Falhar, typename Tocada>
bool falhou(const Arquivo& arquivo, Falhar falhar, Tocada tocada) {
    constexpr VistaTexto motivos[] = {"Memória insuficiente!"_t, "Recursos do sistema excedidos"_t, "Disco cheio"_t,
                                      "Leiaute não carregado!"_t};
    Bancada bancada;
    const Maquina maquina = bancada.maquina();
    std::vector<std::string> argumentos{"-q", arquivo.nome};
    falhar(bancada.arquivos);
    const int situacao = executar(std::move(argumentos), maquina);
    const bool falha = tocada(bancada.arquivos);
    const Texto log = bancada.arquivos.conteudo[arquivo.log];
    const bool dito = std::ranges::any_of(motivos, [&](auto motivo) { return log.find(motivo) != Texto::npos; }) ||
                      (!bancada.erros.str().empty() && arquivo.inteiro.starts_with(log));
    const bool semEfeito = situacao == arquivo.situacao && log == arquivo.inteiro;
    EXPECT_TRUE(semEfeito || (falha && situacao == 2 && dito))
        << situacao << arquivo.nome << log << bancada.erros.str();
    EXPECT_TRUE(bancada.arquivos.tudoFechado()) << arquivo.nome;
    return falha;
}

/// Each reservation of a run fails once.
TEST(Resistencia, faltaDeMemoriaEmQualquerPonto) {
    vigiarBibliotecas();
    for (const Arquivo& arquivo : arquivosComLog()) {
        int ponto = 1;
        while (falhou(
            arquivo, [&](auto&) { ateFalhar = ponto; }, [](auto&) { return ateFalhar.exchange(0) == 0; }))
            ++ponto;
        EXPECT_GT(ponto, 100) << arquivo.nome;
        RecordProperty(arquivo.log + 3, std::to_string(ponto));
    }
}

/// Each opening, reading, creating, writing and closing of the whole program fails once, those of the layout and of
/// the database too.
TEST(Resistencia, falhaDeArquivoEmQualquerPonto) {
    int pontos = 0;
    for (const Arquivo& arquivo : arquivosComLog())
        pontos += testes::emCadaFalhaDeArquivo([&](auto operacao, int vez) {
            return falhou(
                arquivo, [&](auto& onde) { onde.falhar(operacao, vez, testes::discoCheio); },
                [&](auto& onde) { return onde.vezes(operacao) >= vez; });
        });
    RecordProperty("pontos", pontos);
    EXPECT_GT(pontos, 60);
}

TEST(Resistencia, milExecucoesSemMemoriaAMaisNemRestoDasOutras) {
    const std::vector<Arquivo> arquivos = arquivosComLog();
    std::vector<std::string> todos{"-q"};
    for (const Arquivo& arquivo : arquivos)
        todos.emplace_back(arquivo.nome);
    Bancada bancada;
    std::size_t depoisDeCem = 0;
    for (std::size_t execucoes = 0; execucoes < 1002; execucoes += arquivos.size()) {
        for (const Arquivo& arquivo : arquivos)
            bancada.arquivos.conteudo.erase(arquivo.log);
        EXPECT_EQ(bancada.rodar(todos), 2);
        bancada.erros.str({}); // what it said is no memory of the program
        for (const auto& [nome, log, situacao, inteiro] : arquivos)
            ASSERT_TRUE(bancada.arquivos.conteudo[log] == inteiro) << nome << execucoes;
        if (execucoes == 102) depoisDeCem = bytesReservados;
    }
    EXPECT_TRUE(bancada.arquivos.tudoFechado());
    EXPECT_LT(bytesReservados, depoisDeCem + 1024);
}

} // namespace
} // namespace quilatador
