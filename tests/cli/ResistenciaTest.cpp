#include "cli/BancadaDoPrograma.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <gtest/gtest.h>
#include <initializer_list>
#include <malloc.h>
#include <new>
#include <pugixml.hpp>
#include <sqlite3.h>
#include <unistd.h>

namespace {

/// Reservations until the one that fails; none does while it is 0.
std::atomic<long> ateFalhar = 0;

void* reservarOuNada(std::size_t bytes, std::size_t alinhamento = alignof(std::max_align_t)) noexcept {
    if (ateFalhar > 0 && --ateFalhar == 0) return nullptr;
    return std::aligned_alloc(alinhamento, (bytes / alinhamento + 1) * alinhamento);
}

void* reservar(std::size_t bytes, std::size_t alinhamento = alignof(std::max_align_t)) {
    void* const memoria = reservarOuNada(bytes, alinhamento);
    if (memoria == nullptr) throw std::bad_alloc();
    return memoria;
}

/// Out of line, where the compiler does not take free for the wrong partner of new.
#if defined(__GNUC__)
[[gnu::noinline]]
#endif
void devolver(void* memoria) noexcept {
    std::free(memoria);
}

} // namespace

// The whole program reserves memory through these; the forms for arrays end up here.
void* operator new(std::size_t bytes) {
    return reservar(bytes);
}
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
    return reservarOuNada(bytes);
}
void* operator new(std::size_t bytes, std::align_val_t alinhamento) {
    return reservar(bytes, static_cast<std::size_t>(alinhamento));
}
void operator delete(void* memoria) noexcept {
    devolver(memoria);
}
void operator delete(void* memoria, std::size_t) noexcept {
    devolver(memoria);
}
void operator delete(void* memoria, std::align_val_t) noexcept {
    devolver(memoria);
}
void operator delete(void* memoria, std::size_t, std::align_val_t) noexcept {
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
};

constexpr Arquivo arquivos[] = {{"/d/boa.rem", "/d/boa.log", 0},           {"/d/ruim.rem", "/d/ruim.log", 1},
                                {"/d/cortada.rem", "/d/cortada.log", 1},   {"/d/impressao.ret", "/d/impressao.log", 1},
                                {"/d/liquidacao", "/d/liquidacao.log", 0}, {"/d/nada", "/d/nadalog", 2}};

/// The log of a run in a program just started.
Texto logDe(const Arquivo& arquivo) {
    Bancada bancada;
    EXPECT_EQ(bancada.rodar({"-q", arquivo.nome}), arquivo.situacao) << arquivo.nome;
    return bancada.arquivos.conteudo[arquivo.log];
}

/// Analyses the file again and again, with a failure at one place after the other until there is none left, and gives
/// how many there were. `falhar` puts the failure there, `tocada` asks whether the run came upon it. Each run is to
/// end as if nothing were the matter, or with status 2 and one of the reasons.
template <typename Falhar, typename Tocada>
int falharEmCadaPonto(const Arquivo& arquivo, std::initializer_list<VistaTexto> motivos, Falhar falhar, Tocada tocada) {
    const Texto inteiro = logDe(arquivo);
    for (int ponto = 1;; ++ponto) {
        Bancada bancada;
        const Maquina maquina = bancada.maquina();
        std::vector<std::string> argumentos{"-q", arquivo.nome};
        falhar(bancada.arquivos, ponto);
        const int situacao = executar(std::move(argumentos), maquina);
        const bool falhou = tocada(bancada.arquivos, ponto);
        const Texto log = bancada.arquivos.conteudo[arquivo.log];
        const bool dito = !bancada.erros.str().empty() || std::ranges::any_of(motivos, [&](VistaTexto motivo) {
            return log.find(motivo) != Texto::npos;
        });
        const bool semEfeito = situacao == arquivo.situacao && log == inteiro;
        EXPECT_TRUE(semEfeito || (falhou && situacao == 2 && dito))
            << arquivo.nome << " " << ponto << ": " << situacao << "\n"
            << log << bancada.erros.str();
        EXPECT_TRUE(bancada.arquivos.tudoFechado()) << arquivo.nome << " " << ponto;
        if (!falhou) return ponto;
    }
}

/// Each reservation of a run fails once.
TEST(Resistencia, faltaDeMemoriaEmQualquerPonto) {
    vigiarBibliotecas();
    for (const Arquivo& arquivo : arquivos) {
        const int pontos = falharEmCadaPonto(
            arquivo, {"Memória insuficiente!"_t, "Recursos do sistema excedidos"_t},
            [](auto&, int ponto) { ateFalhar = ponto; }, [](auto&, int) { return ateFalhar.exchange(0) == 0; });
        EXPECT_GT(pontos, 100) << arquivo.nome;
        RecordProperty(arquivo.log + 3, std::to_string(pontos));
    }
}

/// Each opening, reading, creating, writing and closing of the whole program fails once, those of the layout and of
/// the database too.
TEST(Resistencia, falhaDeArquivoEmQualquerPonto) {
    using Arquivos = testes::ArquivosEmMemoria;
    using enum Arquivos::Operacao;
    const Falha discoCheio(numeroDeFalha::discoCheio, "Gravacao", Texto("Disco cheio"_t));
    int pontos = 0;
    for (const Arquivo& arquivo : arquivos)
        for (const auto operacao : {Abrir, Ler, Criar, Escrever, Fechar})
            pontos += falharEmCadaPonto(
                arquivo, {"Disco cheio"_t}, [&](Arquivos& onde, int vez) { onde.falhar(operacao, vez, discoCheio); },
                [&](const Arquivos& onde, int vez) { return onde.vezes(operacao) >= vez; });
    RecordProperty("pontos", pontos);
    EXPECT_GT(pontos, 60);
}

/// Bytes that the process has in memory.
std::size_t memoriaResidente() {
    std::ifstream estado("/proc/self/statm");
    std::size_t total = 0;
    std::size_t paginas = 0;
    estado >> total >> paginas;
    return paginas * static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
}

TEST(Resistencia, milExecucoesSemMemoriaAMaisNemRestoDasOutras) {
    std::vector<Texto> esperados;
    std::vector<std::string> todos{"-q"};
    for (const Arquivo& arquivo : arquivos) {
        esperados.push_back(logDe(arquivo));
        todos.emplace_back(arquivo.nome);
    }
    Bancada bancada;
    [[maybe_unused]] std::size_t depoisDeCem = 0;
    for (std::size_t execucoes = 0; execucoes < 1002; execucoes += std::size(arquivos)) {
        for (const Arquivo& arquivo : arquivos)
            bancada.arquivos.conteudo.erase(arquivo.log);
        EXPECT_EQ(bancada.rodar(todos), 2);
        for (std::size_t i = 0; i < std::size(arquivos); ++i)
            ASSERT_TRUE(bancada.arquivos.conteudo[arquivos[i].log] == esperados[i]) << arquivos[i].nome << execucoes;
        if (execucoes == 102) depoisDeCem = memoriaResidente();
    }
    EXPECT_TRUE(bancada.arquivos.tudoFechado());
#if !defined(__SANITIZE_ADDRESS__) // which keeps what is freed for a while
    EXPECT_LT(memoriaResidente(), depoisDeCem + 1024 * 1024);
#endif
}

} // namespace
} // namespace quilatador
