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

fs::path entradaDe(const fs::path& exemplo) {
    for (const auto& arquivo : fs::directory_iterator(exemplo))
        if (arquivo.path().extension() == ".rem" || arquivo.path().extension() == ".ret") return arquivo.path();
    throw std::runtime_error("no input in " + exemplo.string());
}

/// One folder of samples/: its input, the options in opcoes.txt (where there are any), and what is expected: the log,
/// the JSON, and what the complete check says in both forms.
class Exemplo : public testing::TestWithParam<fs::path> {
  protected:
    /// Compares with an expected file, which has the input's name and this extension.
    void comparar(const char* extensao, const std::string& obtido) const {
        const fs::path esperado = fs::path(entrada_).replace_extension(extensao);
        if (std::getenv("QUILATADOR_REFAZER_EXEMPLOS")) std::ofstream(esperado, std::ios::binary) << obtido;
        EXPECT_EQ(diferenca(obtido, lerTudo(esperado)), "") << extensao;
    }

    fs::path entrada_ = entradaDe(GetParam());
};

TEST_P(Exemplo, daOLogEOsAchadosEsperados) {
    const std::pair<const char*, std::vector<std::string>> formas[] = {
        {"json", {"--json"}}, {"completa.txt", {"--completa"}}, {"completa.json", {"--completa", "--json"}}};
    for (const auto& [extensao, opcoes] : formas) {
        fs::path analisado = "/exemplo" / entrada_.filename();
        BancadaDoPrograma bancada;
        bancada.arquivos.conteudo[analisado] = lerTexto(entrada_);
        std::vector<std::string> argumentos = palavras(lerTudo(GetParam() / "opcoes.txt"));
        argumentos.insert(argumentos.end(), opcoes.begin(), opcoes.end());
        argumentos.push_back(analisado.string());
        bancada.rodar(argumentos);
        EXPECT_EQ(bancada.erros.str(), "");
        comparar(extensao, bancada.saida.str());
        comparar("log", std::string(bytesDoTexto(bancada.arquivos.conteudo[analisado.replace_extension("log")])));
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
