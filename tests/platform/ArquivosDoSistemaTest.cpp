#include "platform/ArquivosDoSistema.h"

#include "platform/DiaLocal.h"
#include "support/Falhas.h"
#include "support/PastaTemporaria.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace quilatador {
namespace {

namespace fs = std::filesystem;
using testes::lerTudo;

constexpr VistaTexto nomeInvalido = "52 Gravacao: Nome de arquivo inválido"_t;
constexpr VistaTexto naoEncontrado = "53 Gravacao: Arquivo não encontrado"_t;
constexpr VistaTexto emUso = "55 Gravacao: Arquivo já está aberto"_t;
constexpr VistaTexto semPermissao = "70 Gravacao: Permissão negada"_t;
constexpr VistaTexto semAcesso = "75 Gravacao: Erro de acesso ao caminho/arquivo"_t;

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

    Texto falhaAoLer(const fs::path& caminho) {
        return testes::textoDaFalha([&] { return arquivos_.abrirEntrada(caminho); });
    }
    Texto falhaAoCriar(const fs::path& caminho) {
        return testes::textoDaFalha([&] { return arquivos_.criarSaida(caminho); });
    }
    void gravar(const fs::path& caminho, std::string_view bytes) {
        const auto saida = arquivos_.criarSaida(caminho);
        saida->escrever(bytes);
        saida->fechar();
    }

    testes::PastaTemporaria pasta_;
    ArquivosDoSistema arquivos_;
};

TEST_F(ArquivosDoSistemaTest, oQueNaoSePodeLer) {
    const fs::path arquivo = pasta_.escrever("a.rem", "x");
    const fs::path tubo = criarTubo();
    fs::create_symlink("laco", pasta_ / "laco");
    fs::create_symlink("nada", pasta_ / "solto");
    const std::pair<fs::path, VistaTexto> casos[] = {{pasta_ / "nada", naoEncontrado},
                                                     {pasta_ / "solto", naoEncontrado},
                                                     {arquivo / "dentro", naoEncontrado},
                                                     {pasta_.caminho(), semAcesso},
                                                     {tubo, semAcesso},
                                                     {pasta_ / "laco", semAcesso},
                                                     {"/dev/zero", semAcesso},
                                                     {"", nomeInvalido},
                                                     {arquivo.native() + std::string("\0.rem", 5), nomeInvalido},
                                                     {pasta_ / std::string(256, 'n'), nomeInvalido},
                                                     {pasta_ / std::string(4096, 'n'), nomeInvalido}};
    for (const auto& [caminho, falha] : casos)
        EXPECT_EQ(falhaAoLer(caminho), falha) << caminho;
    EXPECT_EQ(falhaAoLer("/dev/null"), ""_t);
    fs::permissions(arquivo, fs::perms::none);
    deixarDeSerSuperusuario();
    EXPECT_EQ(falhaAoLer(arquivo), semPermissao);
}

TEST_F(ArquivosDoSistemaTest, saidaReescreveOMesmoArquivo) {
    const fs::path log = pasta_.escrever("a.log", "um log anterior, mais longo");
    fs::permissions(log, fs::perms(0640));
    fs::create_hard_link(log, pasta_ / "outro nome");
    fs::create_symlink("ligacao2", pasta_ / "ligacao");
    fs::create_symlink("a.log", pasta_ / "ligacao2");
    for (const std::string_view novo : {"novo", "mais longo", "n", ""}) {
        gravar(pasta_ / "ligacao", novo);
        EXPECT_EQ(lerTudo(log), novo);
        EXPECT_EQ(lerTudo(pasta_ / "outro nome"), novo);
    }
    EXPECT_TRUE(fs::is_symlink(pasta_ / "ligacao"));
    EXPECT_EQ(fs::status(log).permissions(), fs::perms(0640));
    gravar("/dev/null", "nada");
    const auto encher = [&] { return gravar("/dev/full", "nada"), 0; };
    EXPECT_EQ(testes::textoDaFalha(encher), "61 Gravacao: Disco cheio"_t);
}

TEST_F(ArquivosDoSistemaTest, saidaTemUmSoDono) {
    const fs::path log = pasta_.escrever("a.log", "anterior");
    fs::create_hard_link(log, pasta_ / "outro nome");
    auto primeira = arquivos_.criarSaida(log);
    primeira->escrever("primeira");
    EXPECT_EQ(falhaAoCriar(pasta_ / "outro nome"), emUso);
    EXPECT_EQ(lerTudo(log), "primeira");
    const auto nulo = arquivos_.criarSaida("/dev/null");
    EXPECT_EQ(falhaAoCriar("/dev/null"), ""_t); // a device has no owner
    primeira.reset();
    EXPECT_EQ(falhaAoCriar(log), ""_t);
    EXPECT_EQ(lerTudo(log), "");
}

/// Neither the file nor its folder shows anything of what was not confirmed.
TEST_F(ArquivosDoSistemaTest, oProvisorioTomaOLugarDeUmaVez) {
    const fs::path laudo = pasta_.escrever("laudo", "anterior");
    fs::permissions(laudo, fs::perms(0640));
    fs::create_symlink("laudo", pasta_ / "ligacao");
    fs::create_symlink("novo", pasta_ / "solta");
    for (const auto& [nome, arquivo, antes] :
         {std::tuple{"ligacao", laudo, "anterior"}, {"solta", pasta_ / "novo", ""}})
        for (const bool confirmado : {false, true}) {
            auto provisorio = arquivos_.criarProvisorio(pasta_ / nome);
            provisorio->escrever("um ");
            provisorio->escrever("laudo");
            EXPECT_EQ(lerTudo(arquivo), antes);
            if (confirmado) provisorio->confirmar();
            provisorio.reset();
            EXPECT_EQ(lerTudo(arquivo), confirmado ? "um laudo" : antes);
            EXPECT_TRUE(fs::is_symlink(pasta_ / nome));
        }
    EXPECT_EQ(fs::status(laudo).permissions(), fs::perms(0640));
    EXPECT_EQ(std::distance(fs::directory_iterator(pasta_.caminho()), {}), 4);
    const auto encher = [&] {
        const auto direto = arquivos_.criarProvisorio("/dev/full");
        return direto->escrever("nada"), direto->confirmar(), 0;
    };
    EXPECT_EQ(testes::textoDaFalha(encher), "61 Gravacao: Disco cheio"_t);
}

TEST_F(ArquivosDoSistemaTest, somaDeUmArquivo) {
    const std::pair<fs::path, std::string_view> casos[] = {
        {pasta_.escrever("a", "abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        {pasta_.escrever("vazio", ""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
        {pasta_.escrever("blocos", std::string(1'000'000, 'a')),
         "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
        {pasta_ / "nada", ""}};
    for (const auto& [arquivo, soma] : casos)
        EXPECT_EQ(arquivos_.somar(arquivo)->hexadecimal({}), soma) << arquivo;
    const fs::path enorme = pasta_.escrever("enorme", "");
    fs::resize_file(enorme, std::uintmax_t{1} << 40); // no test waits for the end of it
    const auto soma = arquivos_.somar(enorme);
    EXPECT_EQ(soma->hexadecimal([] { return true; }), "");
}

/// How a run notices that its input is another than at its beginning.
TEST_F(ArquivosDoSistemaTest, aVersaoMudaComOArquivo) {
    using namespace std::chrono_literals;
    const fs::path arquivo = pasta_.escrever("a.rem", "12345");
    const auto entrada = arquivos_.abrirEntrada(arquivo);
    const auto quando = fs::last_write_time(arquivo);
    const std::function<void()> mudancas[] = {
        [&] { fs::resize_file(arquivo, 9); },
        [&] { pasta_.escrever("a.rem", "987654321"), fs::last_write_time(arquivo, quando); },
        [&] { fs::rename(pasta_.escrever("b.rem", "987654321"), arquivo), fs::last_write_time(arquivo, quando); },
    };
    for (const auto& mudar : mudancas) {
        const VersaoDoArquivo antes = entrada->versao();
        EXPECT_EQ(arquivos_.versao(arquivo), antes);
        std::this_thread::sleep_for(20ms); // the clock of the file system is a coarse one
        mudar();
        EXPECT_NE(arquivos_.versao(arquivo), antes);
    }
    EXPECT_EQ(arquivos_.versao("/dev/null"), arquivos_.abrirEntrada("/dev/null")->versao());
    fs::remove(arquivo);
    EXPECT_EQ(arquivos_.versao(arquivo), std::nullopt);
}

/// How a log is kept from falling on another file.
TEST_F(ArquivosDoSistemaTest, nomesComOMesmoDestino) {
    const fs::path arquivo = pasta_.escrever("a.rem", "12345");
    fs::create_hard_link(arquivo, pasta_ / "outro nome");
    fs::create_directories(pasta_ / "p/q");
    fs::create_symlink("p/q", pasta_ / "q");
    fs::create_symlink("../a.rem", pasta_ / "p/subindo");
    fs::create_symlink("p/subindo", pasta_ / "ligacao");
    fs::create_symlink("q/nada", pasta_ / "solta");
    fs::create_symlink(pasta_ / "solta", pasta_ / "p/absoluta");
    fs::create_symlink("laco", pasta_ / "laco");
    const std::vector<std::string> grupos[] = {
        {"a.rem", "outro nome", "ligacao", "p/subindo", "p/../a.rem", "q/../../a.rem"},
        {"p/q/nada", "q/nada", "solta", "p/absoluta"},
        {"b.rem", "p/../b.rem"},
        {"q/b.rem", "p/q/b.rem"},
        {"q/x/b.rem", "p/q/x/b.rem"},
        {"laco"}};
    std::map<Destino, std::size_t> vistos;
    for (std::size_t i = 0; i < std::size(grupos); ++i)
        for (const std::string& nome : grupos[i])
            EXPECT_EQ(vistos.emplace(arquivos_.destino(pasta_ / nome), i).first->second, i) << nome;
    EXPECT_EQ(vistos.size(), std::size(grupos));
    const fs::path antes = fs::current_path();
    fs::current_path(pasta_.caminho());
    EXPECT_EQ(arquivos_.destino("b.rem"), arquivos_.destino(pasta_ / "b.rem"));
    fs::current_path(antes);
}

TEST_F(ArquivosDoSistemaTest, oQueNaoSePodeCriar) {
    const fs::path tubo = criarTubo();
    const fs::path protegido = pasta_.escrever("protegido.log", "anterior");
    const fs::path log = pasta_.escrever("a.log", "anterior, mais longo");
    fs::create_symlink("laco", pasta_ / "laco");
    fs::permissions(protegido, fs::perms(0444));
    fs::permissions(log, fs::perms(0666));
    fs::permissions(pasta_.caminho(), fs::perms::all); // who may delete it must not write it all the same
    deixarDeSerSuperusuario();
    const std::pair<fs::path, VistaTexto> casos[] = {{pasta_ / "nada" / "a.log", naoEncontrado},
                                                     {pasta_.caminho(), semAcesso},
                                                     {tubo, semAcesso},
                                                     {"", nomeInvalido},
                                                     {pasta_ / std::string(256, 'n'), nomeInvalido},
                                                     {pasta_ / "laco", semAcesso},
                                                     {protegido, semPermissao}};
    for (const auto& [caminho, falha] : casos) {
        EXPECT_EQ(falhaAoCriar(caminho), falha) << caminho;
        const fs::path& destino = caminho;
        EXPECT_EQ(testes::textoDaFalha([&] { return arquivos_.criarProvisorio(destino); }), falha) << destino;
    }
    EXPECT_EQ(lerTudo(protegido), "anterior");
    ASSERT_EQ(::seteuid(::getuid()), 0);
    fs::permissions(pasta_.caminho(), fs::perms(0555)); // takes no new file, but an old one may be written
    deixarDeSerSuperusuario();
    gravar(log, "novo");
    EXPECT_EQ(lerTudo(log), "novo");
    EXPECT_EQ(falhaAoCriar(pasta_ / "b.log"), semPermissao);
}

TEST_F(ArquivosDoSistemaTest, oQueSeSabeDeUmArquivo) {
    const fs::path arquivo = pasta_.escrever("a.rem", "12345");
    fs::create_symlink("a.rem", pasta_ / "ligacao");
    for (const char* nome : {"a.rem", "ligacao", "../"})
        EXPECT_TRUE(arquivos_.existe(pasta_ / nome));
    EXPECT_FALSE(arquivos_.existe(pasta_ / "nada"));
    EXPECT_TRUE(arquivos_.ehPasta(pasta_.caminho()));
    EXPECT_FALSE(arquivos_.ehPasta(arquivo));
    EXPECT_FALSE(arquivos_.existe(arquivo.native() + std::string("\0b", 2)));
    EXPECT_EQ(arquivos_.tamanho(pasta_ / "ligacao"), 5u);
    for (const fs::path& semTamanho : {pasta_ / "nada", pasta_.caminho(), fs::path("/dev/zero")})
        EXPECT_EQ(arquivos_.tamanho(semTamanho), 0u) << semTamanho;
    EXPECT_EQ(arquivos_.modificadoEm(arquivo), diaLocal(std::time(nullptr)));
    EXPECT_EQ(arquivos_.modificadoEm(pasta_ / "nada"), std::nullopt);
}

} // namespace
} // namespace quilatador
