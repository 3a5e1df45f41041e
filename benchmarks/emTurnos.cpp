// Runs two commands in turn and compares them: it prints the median, over all pairs of runs, of the ratio of their wall
// and processor times, and the peak memory of each. On a machine that also does other things, a single run says little.
//
//   emTurnos PAIRS COMMAND-A COMMAND-B     each command is one argument and goes to the shell
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

struct Medida {
    double parede; ///< in seconds
    double processador;
    double memoria; ///< peak, in MiB
};

double segundos(const timeval& tempo) {
    return static_cast<double>(tempo.tv_sec) + static_cast<double>(tempo.tv_usec) / 1e6;
}

Medida medir(const std::string& comando) {
    const auto inicio = std::chrono::steady_clock::now();
    const pid_t filho = fork();
    if (filho == 0) {
        execl("/bin/sh", "sh", "-c", ("exec " + comando).c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
    int situacao = 0;
    rusage uso{};
    if (filho < 0 || wait4(filho, &situacao, 0, &uso) != filho || !WIFEXITED(situacao) || WEXITSTATUS(situacao) > 1) {
        std::fprintf(stderr, "emTurnos: falhou: %s\n", comando.c_str());
        std::exit(2);
    }
    const std::chrono::duration<double> parede = std::chrono::steady_clock::now() - inicio;
    return {parede.count(), segundos(uso.ru_utime) + segundos(uso.ru_stime), static_cast<double>(uso.ru_maxrss) / 1024};
}

double mediana(std::vector<double> valores) {
    std::ranges::sort(valores);
    const std::size_t meio = valores.size() / 2;
    return valores.size() % 2 == 1 ? valores[meio] : (valores[meio - 1] + valores[meio]) / 2;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4 || std::atoi(argv[1]) < 1) {
        std::fprintf(stderr, "Uso: emTurnos PARES COMANDO-A COMANDO-B\n");
        return 2;
    }
    std::vector<double> parede;
    std::vector<double> processador;
    double memoriaA = 0;
    double memoriaB = 0;
    medir(argv[2]); // fills the page cache
    medir(argv[3]);
    for (int par = 0; par < std::atoi(argv[1]); ++par) {
        const Medida a = medir(argv[2]);
        const Medida b = medir(argv[3]);
        parede.push_back(a.parede / b.parede);
        processador.push_back(a.processador / std::max(b.processador, 1e-6));
        memoriaA = std::max(memoriaA, a.memoria);
        memoriaB = std::max(memoriaB, b.memoria);
    }
    std::printf("%.2f | %.2f | %.1f | %.1f\n", mediana(parede), mediana(processador), memoriaA, memoriaB);
}
