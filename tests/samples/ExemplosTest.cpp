#include "cli/BancadaDoPrograma.h"
#include "support/Comparacao.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

namespace quilatador::testes {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> palavras(const std::string& texto) {
    std::istringstream fluxo(texto);
    return {std::istream_iterator<std::string>(fluxo), {}};
}

/// One folder of samples/: its input, the options in opcoes.txt (where there are any), the log and the JSON expected.
class Exemplo : public testing::TestWithParam<fs::path> {};

fs::path entradaDe(const fs::path& exemplo) {
    for (const auto& arquivo : fs::directory_iterator(exemplo))
        if (arquivo.path().extension() == ".rem" || arquivo.path().extension() == ".ret") return arquivo.path();
    throw std::runtime_error("no input in " + exemplo.string());
}

TEST_P(Exemplo, daOLogEOJsonEsperados) {
    const fs::path entrada = entradaDe(GetParam());
    fs::path analisado = "/exemplo" / entrada.filename();
    BancadaDoPrograma bancada;
    bancada.arquivos.conteudo[analisado] = lerTexto(entrada);
    std::vector<std::string> argumentos = palavras(lerTudo(GetParam() / "opcoes.txt"));
    argumentos.insert(argumentos.end(), {"--json", analisado.string()});
    bancada.rodar(argumentos);
    EXPECT_EQ(bancada.erros.str(), "");
    const std::string log(bytesDoTexto(bancada.arquivos.conteudo[analisado.replace_extension("log")]));
    for (const auto& [extensao, obtido] : {std::pair("log", log), std::pair("json", bancada.saida.str())}) {
        const fs::path esperado = fs::path(entrada).replace_extension(extensao);
        if (std::getenv("QUILATADOR_REFAZER_EXEMPLOS")) std::ofstream(esperado, std::ios::binary) << obtido;
        EXPECT_EQ(diferenca(obtido, lerTudo(esperado)), "");
    }
}

std::vector<fs::path> exemplos() {
    std::vector<fs::path> pastas;
    for (const auto& pasta : fs::directory_iterator(QUILATADOR_SAMPLES))
        if (pasta.is_directory()) pastas.push_back(pasta.path());
    std::ranges::sort(pastas);
    return pastas;
}

INSTANTIATE_TEST_SUITE_P(Pasta, Exemplo, testing::ValuesIn(exemplos()), [](const auto& caso) {
    std::string nome = caso.param.filename().string();
    std::ranges::replace(nome, '-', '_');
    return nome;
});

} // namespace
} // namespace quilatador::testes
