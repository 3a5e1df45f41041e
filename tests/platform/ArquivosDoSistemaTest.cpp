#include "platform/ArquivosDoSistema.h"

#include "platform/DiaLocal.h"
#include "support/Falhas.h"
#include "support/PastaTemporaria.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace quilatador {
namespace {

namespace fs = std::filesystem;
using testes::lerTudo;

class ArquivosDoSistemaTest : public testing::Test {
  protected:
    /// Rights do not hold the superuser back: as one, the rest of the test runs as somebody without any.
    static void deixarDeSerSuperusuario() { ASSERT_TRUE(::geteuid() != 0 || ::seteuid(65534) == 0); }
    void TearDown() override {
        ASSERT_EQ(::seteuid(::getuid()), 0);
        fs::permissions(pasta_.caminho(), fs::perms::all); // so that it can be deleted
    }
    fs::path criarTubo() {
        EXPECT_EQ(::mkfifo((pasta_ / "tubo").c_str(), 0600), 0);
        fs::permissions(pasta_ / "tubo", fs::perms(0666));
        return pasta_ / "tubo";
    }

    int falhaAoLer(const fs::path& caminho) {
        return testes::numeroDaFalha([&] { return arquivos_.abrirEntrada(caminho); });
    }
    int falhaAoCriar(const fs::path& caminho) {
        return testes::numeroDaFalha([&] { return arquivos_.criarSaida(caminho); });
    }
    void gravar(const fs::path& caminho, VistaTexto bytes) {
        const auto saida = arquivos_.criarSaida(caminho);
        saida->escrever(bytes);
        saida->fechar();
    }

    testes::PastaTemporaria pasta_;
    ArquivosDoSistema arquivos_;
};

TEST_F(ArquivosDoSistemaTest, leAteOFim) {
    const auto entrada = arquivos_.abrirEntrada(pasta_.escrever("a.rem", "12345\r\n67"));
    Texto bytes(6, ' ');
    EXPECT_EQ(entrada->ler(bytes), 6u);
    EXPECT_EQ(bytes, "12345\r");
    EXPECT_EQ(entrada->ler(bytes), 3u);
    EXPECT_EQ(bytes.substr(0, 3), "\n67");
    EXPECT_EQ(entrada->ler(bytes), 0u);
}

TEST_F(ArquivosDoSistemaTest, oQueNaoSePodeLer) {
    const fs::path arquivo = pasta_.escrever("a.rem", "x");
    const fs::path tubo = criarTubo();
    fs::create_symlink("laco", pasta_ / "laco");
    fs::create_symlink("nada", pasta_ / "solto");
    const std::pair<fs::path, int> casos[] = {{pasta_ / "nada", 53},
                                              {pasta_ / "solto", 53},
                                              {arquivo / "dentro", 53},
                                              {pasta_.caminho(), 75},
                                              {tubo, 75},
                                              {pasta_ / "laco", 75},
                                              {"/dev/zero", 75},
                                              {"", 52},
                                              {arquivo.native() + std::string("\0.rem", 5), 52},
                                              {pasta_ / std::string(4096, 'n'), 52}};
    for (const auto& [caminho, falha] : casos)
        EXPECT_EQ(falhaAoLer(caminho), falha) << caminho;
    fs::permissions(arquivo, fs::perms::none);
    deixarDeSerSuperusuario();
    EXPECT_EQ(falhaAoLer(arquivo), 70);
}

TEST_F(ArquivosDoSistemaTest, falhaDizOQueHouve) {
    try {
        (void)arquivos_.abrirEntrada(pasta_ / "nada");
        FAIL();
    } catch (const Falha& falha) {
        EXPECT_EQ(falha.fonte(), "Gravacao");
        EXPECT_EQ(falha.descricao(), "Arquivo não encontrado"_t);
    }
}

TEST_F(ArquivosDoSistemaTest, dispositivoNuloEhArquivoVazio) {
    Texto bytes(1, ' ');
    EXPECT_EQ(arquivos_.abrirEntrada("/dev/null")->ler(bytes), 0u);
    gravar("/dev/null", "x");
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST_F(ArquivosDoSistemaTest, saidaTomaOLugarDaAnterior) {
    const fs::path log = pasta_.escrever("a.log", "um log anterior, mais longo");
    fs::create_hard_link(log, pasta_ / "guardado");
    gravar(log, "novo");
    EXPECT_EQ(lerTudo(log), "novo");
    EXPECT_EQ(lerTudo(pasta_ / "guardado"), "um log anterior, mais longo"); // deleted, not cut
}

TEST_F(ArquivosDoSistemaTest, saidaAtravesDeLigacao) {
    const fs::path alvo = pasta_.escrever("alvo", "anterior");
    fs::create_symlink(alvo, pasta_ / "a.log");
    gravar(pasta_ / "a.log", "novo");
    EXPECT_EQ(lerTudo(alvo), "novo");
    EXPECT_TRUE(fs::is_symlink(pasta_ / "a.log"));
}

TEST_F(ArquivosDoSistemaTest, oQueNaoSePodeCriar) {
    const fs::path tubo = criarTubo();
    const fs::path protegido = pasta_.escrever("protegido.log", "anterior");
    fs::permissions(protegido, fs::perms(0444));
    fs::permissions(pasta_.caminho(), fs::perms::all); // who may delete it must not write it all the same
    deixarDeSerSuperusuario();
    const std::pair<fs::path, int> casos[] = {
        {pasta_ / "nada" / "a.log", 53}, {pasta_.caminho(), 75}, {tubo, 75}, {"", 52}, {protegido, 70}};
    for (const auto& [caminho, falha] : casos)
        EXPECT_EQ(falhaAoCriar(caminho), falha) << caminho;
    EXPECT_EQ(lerTudo(protegido), "anterior");
}

TEST_F(ArquivosDoSistemaTest, pastaProtegidaSoDeixaReescrever) {
    const fs::path log = pasta_.escrever("a.log", "anterior, mais longo");
    fs::permissions(log, fs::perms(0666));
    fs::permissions(pasta_.caminho(), fs::perms(0555));
    deixarDeSerSuperusuario();
    gravar(log, "novo");
    EXPECT_EQ(lerTudo(log), "novo");
    EXPECT_EQ(falhaAoCriar(pasta_ / "b.log"), 70);
}

TEST_F(ArquivosDoSistemaTest, discoCheio) {
    const auto saida = arquivos_.criarSaida("/dev/full");
    EXPECT_EQ(testes::numeroDaFalha([&] { return saida->escrever("x"), 0; }), 61);
}

TEST_F(ArquivosDoSistemaTest, limiteDeTamanhoEhDiscoCheio) {
    rlimit antes{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &antes), 0);
    const rlimit pouco{100, antes.rlim_max};
    const auto saida = arquivos_.criarSaida(pasta_ / "a.log");
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &pouco), 0);
    const int falha = testes::numeroDaFalha([&] { return saida->escrever(Texto(1000, 'x')), 0; });
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &antes), 0);
    EXPECT_EQ(falha, 61);
    EXPECT_EQ(lerTudo(pasta_ / "a.log"), Texto(100, 'x'));
}

TEST_F(ArquivosDoSistemaTest, oQueSeSabeDeUmArquivo) {
    const fs::path arquivo = pasta_.escrever("a.rem", "12345");
    fs::create_symlink("a.rem", pasta_ / "ligacao");
    fs::create_hard_link(arquivo, pasta_ / "outro");
    pasta_.escrever("b.rem", "12345");
    for (const char* nome : {"a.rem", "ligacao", "outro", "../"}) {
        EXPECT_TRUE(arquivos_.existe(pasta_ / nome));
        EXPECT_EQ(arquivos_.mesmoArquivo(arquivo, pasta_ / nome), nome != std::string("../"));
    }
    EXPECT_FALSE(arquivos_.existe(pasta_ / "nada"));
    EXPECT_FALSE(arquivos_.existe(arquivo.native() + std::string("\0b", 2)));
    EXPECT_FALSE(arquivos_.mesmoArquivo(arquivo, pasta_ / "b.rem"));
    EXPECT_FALSE(arquivos_.mesmoArquivo(pasta_ / "nada", pasta_ / "nada"));
    EXPECT_EQ(arquivos_.tamanho(pasta_ / "ligacao"), 5u);
    for (const fs::path& semTamanho : {pasta_ / "nada", pasta_.caminho(), fs::path("/dev/zero")})
        EXPECT_EQ(arquivos_.tamanho(semTamanho), 0u) << semTamanho;
    EXPECT_EQ(arquivos_.modificadoEm(arquivo), diaLocal(std::time(nullptr)));
    EXPECT_EQ(arquivos_.modificadoEm(pasta_ / "nada"), std::nullopt);
}

} // namespace
} // namespace quilatador
