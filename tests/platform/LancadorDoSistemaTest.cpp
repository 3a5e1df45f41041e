#include "platform/LancadorDoSistema.h"

#include "support/PastaTemporaria.h"
#include "support/VariavelDeAmbiente.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <sys/wait.h>
#include <thread>

namespace quilatador {
namespace {

using namespace std::chrono_literals;

/// Waits, for a few seconds at most, until something holds.
template <typename Condicao>
bool esperar(Condicao condicao) {
    for (int vezes = 0; vezes < 500 && !condicao(); ++vezes)
        std::this_thread::sleep_for(10ms);
    return condicao();
}

bool semFilhos() {
    siginfo_t situacao{};
    return ::waitid(P_ALL, 0, &situacao, WEXITED | WNOHANG | WNOWAIT) == -1 && errno == ECHILD;
}

TEST(LancadorDoSistema, nomeChegaInteiroESemTerminalNemRestos) {
    const testes::PastaTemporaria pasta;
    const auto programa = pasta.escrever("xdg-open", "#!/bin/sh\n"
                                                     "canais=$(readlink /proc/$$/fd/[012])\n"
                                                     "cd \"${0%/*}\"\n"
                                                     "printf '%s|' \"$#\" \"$1\" \"$canais\" >tmp\n"
                                                     "mv tmp \"$(cat saida)\"\n");
    std::filesystem::permissions(programa, std::filesystem::perms::owner_all);
    const testes::VariavelDeAmbiente caminhos("PATH", pasta.caminho().string() + ":/usr/bin:/bin");
    const auto aqui = std::filesystem::current_path().string();
    int vez = 0;
    for (const std::string nome : {"/tmp/a.log", "/tmp/a b'\"\n$(c)`d`%20*.log", "-x.log"}) {
        const std::string saida = "visto" + std::to_string(++vez);
        pasta.escrever("saida", saida);
        vez == 1 ? LancadorDoSistema().abrirDocumento(nome) : LancadorDoSistema().abrirTexto(nome);
        ASSERT_TRUE(esperar([&] { return std::filesystem::exists(pasta / saida); }));
        EXPECT_EQ(testes::lerTudo(pasta / saida),
                  "1|" + (nome.starts_with('/') ? nome : aqui + "/" + nome) + "|/dev/null\n/dev/null\n/dev/null|");
        EXPECT_TRUE(esperar(semFilhos)); // none waits to be buried
    }
}

TEST(LancadorDoSistema, contaOQueNenhumProgramaAbriu) {
    const testes::PastaTemporaria pasta;
    const testes::VariavelDeAmbiente caminhos("PATH", pasta.caminho());
    std::atomic<int> contados = 0;
    LancadorDoSistema lancador([&](const std::filesystem::path& caminho) { contados += caminho == "/tmp/a.log"; });
    lancador.abrirTexto("/tmp/a.log"); // there is not even the desktop's opener
    EXPECT_EQ(contados, 1);
    for (const auto& [fim, conta] : {std::pair{"0", false}, {"2", false}, {"3", true}, {"4", true}}) {
        contados = 0;
        const auto programa = pasta.escrever("xdg-open", "#!/bin/sh\nexit " + std::string(fim) + "\n");
        std::filesystem::permissions(programa, std::filesystem::perms::owner_all);
        lancador.abrirDocumento("/tmp/a.log");
        EXPECT_TRUE(esperar([&, conta = conta] { return semFilhos() && contados == conta; })) << fim;
    }
}

} // namespace
} // namespace quilatador
