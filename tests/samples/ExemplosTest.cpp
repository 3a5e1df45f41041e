#include "support/Comparacao.h"
#include "support/Falsos.h"
#include "support/PastaTemporaria.h"

#include "cli/Programa.h"

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
    MundoFalso mundo;
    for (const auto& [nome, origem] :
         {std::pair(fs::path("/programa/Arquivo_ZUL702.xml"), fs::path(QUILATADOR_LEIAUTE)),
          std::pair(fs::path("/programa/TabelaErrosZUL.mdb"), fs::path(QUILATADOR_TABELAS)),
          std::pair(analisado, entrada)})
        mundo.arquivos.conteudo[nome] = lerTexto(origem);
    std::vector<std::string> argumentos = palavras(lerTudo(GetParam() / "opcoes.txt"));
    argumentos.insert(argumentos.end(), {"--json", analisado.string()});
    std::ostringstream json;
    std::ostringstream erros;
    std::ignore = executar(argumentos, {.relogio = mundo.relogio,
                                        .localidade = mundo.localidade,
                                        .lancador = mundo.lancador,
                                        .arquivos = mundo.arquivos,
                                        .saida = json,
                                        .erros = erros,
                                        .pastaDoPrograma = "/programa",
                                        .interrompido = [] { return false; }});
    EXPECT_EQ(erros.str(), "");
    const std::string log(bytesDoTexto(mundo.arquivos.conteudo[analisado.replace_extension("log")]));
    for (const auto& [extensao, obtido] : {std::pair("log", log), std::pair("json", json.str())}) {
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
