// Analyses one remittance in turn in an open window and through the command line, both within this process, so that
// the start of a program does not count. It prints the median, over all pairs of runs, of the ratio of their wall and
// processor times. Run it with QT_QPA_PLATFORM=offscreen.
//
//   janela PAIRS REMITTANCE
#include "cli/Programa.h"
#include "frontend/window/qt/Aplicacao.h"
#include "frontend/window/qt/Conversoes.h"
#include "platform/ArquivosDoSistema.h"
#include "platform/LocalidadeDoSistema.h"
#include "platform/Pastas.h"
#include "platform/RelogioDoSistema.h"
#include "run/NomesDeArquivo.h"

#include <QApplication>
#include <QPushButton>
#include <QRadioButton>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <iostream>
#include <sstream>

namespace {

using namespace quilatador;

class LancadorParado final : public Lancador {
  public:
    void abrirTexto(const std::filesystem::path&) override {}
    void abrirDocumento(const std::filesystem::path&) override {}
};

/// Message boxes are not shown, since nobody is there to close them.
class DialogosCalados final : public Dialogos {
  public:
    void mensagem(QWidget*, const Mensagem&) override {}
    [[nodiscard]] std::optional<std::filesystem::path> escolherLog(QWidget&, const Mensagem&,
                                                                   const std::filesystem::path&) override {
        return std::nullopt;
    }
    [[nodiscard]] std::optional<std::filesystem::path> escolherArquivo(QWidget&,
                                                                       const std::filesystem::path&) override {
        return std::nullopt;
    }
};

struct Tempos {
    double parede; ///< in seconds
    double processador;
};

template <typename Analise>
Tempos medir(Analise analisar) {
    const auto inicio = std::chrono::steady_clock::now();
    const std::clock_t processador = std::clock();
    analisar();
    const std::chrono::duration<double> parede = std::chrono::steady_clock::now() - inicio;
    return {parede.count(), static_cast<double>(std::clock() - processador) / CLOCKS_PER_SEC};
}

double mediana(std::vector<double> valores) {
    std::ranges::sort(valores);
    return valores[valores.size() / 2];
}

} // namespace

int main(int argc, char** argv) {
    QApplication programa(argc, argv);
    if (argc != 3 || std::atoi(argv[1]) < 1) {
        std::fprintf(stderr, "Uso: janela PARES REMESSA\n");
        return 2;
    }
    const std::filesystem::path remessa = std::filesystem::absolute(argv[2]);
    const std::filesystem::path log = caminhoDoLog(remessa, TipoArquivo::ZUL702);
    RelogioDoSistema relogio;
    LocalidadeDoSistema localidade;
    LancadorParado lancador;
    ArquivosDoSistema arquivos;
    DialogosCalados dialogos;
    Aplicacao aplicacao({.relogio = relogio,
                         .localidade = localidade,
                         .lancador = lancador,
                         .arquivos = arquivos,
                         .dialogos = dialogos,
                         .pastaDoPrograma = pastaDoPrograma(),
                         .programa = caminhoDeQt(QApplication::applicationFilePath())});
    if (!aplicacao.iniciar()) return 1;
    JanelaPrincipal& janela = aplicacao.janela();
    janela.findChild<QRadioButton*>(QStringLiteral("opt702"))->click();
    aplicacao.receber(remessa);
    std::ostringstream saida;
    const Maquina maquina{.relogio = relogio,
                          .localidade = localidade,
                          .lancador = lancador,
                          .arquivos = arquivos,
                          .saida = saida,
                          .erros = saida,
                          .pastaDoPrograma = pastaDoPrograma(),
                          .interrompido = [] { return false; }};

    const auto naJanela = [&] { janela.cmdOK->click(); };
    const auto naLinhaDeComando = [&] { (void)executar({"-q", remessa.string()}, maquina); };
    const auto tamanhoDoLog = [&] { return std::filesystem::file_size(log); };
    std::vector<double> parede;
    std::vector<double> processador;
    for (int par = 0; par <= std::atoi(argv[1]); ++par) {
        std::filesystem::remove(log);
        const Tempos janelaAberta = medir(naJanela);
        const auto bytes = tamanhoDoLog();
        std::filesystem::remove(log);
        const Tempos comando = medir(naLinhaDeComando);
        if (bytes == 0 || tamanhoDoLog() != bytes) {
            std::fprintf(stderr, "janela: the two logs differ\n");
            return 2;
        }
        if (par == 0) continue; // the first pair only warms up
        parede.push_back(janelaAberta.parede / comando.parede);
        processador.push_back(janelaAberta.processador / comando.processador);
    }
    std::printf("%.2f | %.2f | | \n", mediana(parede), mediana(processador));
    return 0;
}
