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
class Exemplo : public testing::TestWithParam<fs::path> {
  protected:
    Exemplo() {
        mundo_.arquivos.conteudo["/programa/Arquivo_ZUL702.xml"] = textoDosBytes(lerTudo(QUILATADOR_LEIAUTE));
        mundo_.arquivos.conteudo["/programa/TabelaErrosZUL.mdb"] = textoDosBytes(lerTudo(QUILATADOR_TABELAS));
    }

    [[nodiscard]] static fs::path entrada() {
        for (const auto& arquivo : fs::directory_iterator(GetParam()))
            if (arquivo.path().extension() == ".rem" || arquivo.path().extension() == ".ret") return arquivo.path();
        throw std::runtime_error("no input in " + GetParam().string());
    }

    void analisar() {
        mundo_.arquivos.conteudo[fs::path("/exemplo") / entrada().filename()] = textoDosBytes(lerTudo(entrada()));
        std::vector<std::string> argumentos = palavras(lerTudo(GetParam() / "opcoes.txt"));
        argumentos.emplace_back("--json");
        argumentos.push_back((fs::path("/exemplo") / entrada().filename()).string());
        std::ostringstream erros;
        std::ignore = executar(argumentos, {.relogio = mundo_.relogio,
                                            .localidade = mundo_.localidade,
                                            .lancador = mundo_.lancador,
                                            .arquivos = mundo_.arquivos,
                                            .saida = json_,
                                            .erros = erros,
                                            .pastaDoPrograma = "/programa",
                                            .interrompido = [] { return false; }});
        EXPECT_EQ(erros.str(), "");
        log_ = mundo_.arquivos.conteudo[(fs::path("/exemplo") / entrada().filename()).replace_extension("log")];
    }

    MundoFalso mundo_;
    std::ostringstream json_;
    Texto log_;
};

TEST_P(Exemplo, daOLogEOJsonEsperados) {
    analisar();
    const fs::path log = entrada().replace_extension("log");
    const fs::path json = entrada().replace_extension("json");
    if (std::getenv("QUILATADOR_REFAZER_EXEMPLOS")) {
        std::ofstream(log, std::ios::binary) << log_;
        std::ofstream(json, std::ios::binary) << json_.str();
    }
    EXPECT_EQ(diferenca(utf8DeTexto(log_), utf8DeTexto(textoDosBytes(lerTudo(log)))), "");
    EXPECT_EQ(diferenca(json_.str(), lerTudo(json)), "");
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
