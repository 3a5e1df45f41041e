#include "common/Texto.h"
#include "support/PastaTemporaria.h"

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <utility>
#include <vector>

namespace quilatador {
namespace {

namespace fs = std::filesystem;

const fs::path fontes = QUILATADOR_FONTES;

/// In the program's characters; logs of the samples are in them already.
Texto conteudo(const fs::path& caminho) {
    const std::string bytes = testes::lerTudo(caminho);
    return caminho.extension() == ".log" ? bytes : textoDeUtf8(bytes);
}

std::vector<fs::path> arquivos(const fs::path& pasta) {
    std::vector<fs::path> todos;
    for (const auto& arquivo : fs::recursive_directory_iterator(pasta))
        if (arquivo.is_regular_file()) todos.push_back(arquivo.path());
    std::ranges::sort(todos);
    return todos;
}

/// Reads the string literals of a C++ source, those side by side as one. What stands in comments and in
/// static_assert is for developers and left out.
class Literais {
  public:
    explicit Literais(VistaTexto fonte) : fonte_(fonte) {}

    std::vector<Texto> todos() {
        while (lugar_ < fonte_.size())
            passo();
        return std::move(lidos_);
    }

  private:
    [[nodiscard]] bool em(VistaTexto marca) const { return fonte_.substr(lugar_).starts_with(marca); }
    void pular(VistaTexto fim) { lugar_ = std::min(fonte_.find(fim, lugar_), fonte_.size() - fim.size()) + fim.size(); }

    void passo() {
        const bool seguido = std::exchange(seguido_, false);
        if (em("//") || em("#include")) return pular("\n");
        if (em("static_assert")) return pular(";");
        if (em("R\"(")) return ler(3, ")\"", seguido);
        if (em("\"")) return ler(1, "\"", seguido);
        if (em("'") && (lugar_ == 0 || !std::isalnum(static_cast<unsigned char>(fonte_[lugar_ - 1])))) {
            lugar_ += em("'\\") ? 3 : 2; // behind the character; one that is written in digits has no quote in it
            return pular("'");
        }
        seguido_ = seguido && (em("_t") || em("t") || std::isspace(static_cast<unsigned char>(fonte_[lugar_])));
        ++lugar_;
    }

    void ler(std::size_t abertura, VistaTexto fim, bool seguido) {
        lugar_ += abertura;
        if (!seguido) lidos_.emplace_back();
        for (; lugar_ < fonte_.size() && !em(fim); ++lugar_) {
            if (fim == "\"" && em("\\")) ++lugar_;
            lidos_.back() += fonte_[lugar_];
        }
        lugar_ += fim.size();
        seguido_ = true;
    }

    VistaTexto fonte_;
    std::size_t lugar_ = 0;
    bool seguido_ = false; ///< only what lies between two literals of one text has been read since the last
    std::vector<Texto> lidos_;
};

/// More than a word, and no name or format.
bool ehMensagem(VistaTexto texto) {
    const auto minuscula = [](char letra) {
        return (letra >= 'a' && letra <= 'z') || static_cast<unsigned char>(letra) >= 0xE0;
    };
    const auto inicio = std::adjacent_find(texto.begin(), texto.end(), [&](char primeira, char segunda) {
        return minuscula(primeira) && minuscula(segunda);
    });
    return std::find(inicio, texto.end(), ' ') != texto.end();
}

/// The messages of findings that no file can bring about, from their catalogue.
Texto nuncaEscritas() {
    const Texto catalogo = conteudo(fontes / "docs/findings.md");
    return catalogo.substr(catalogo.find("## Never written"));
}

/// How texts start that no test expects, each with its reason.
constexpr std::pair<VistaTexto, const char*> semTeste[] = {
    {"Erro interno: "_t, "the last resort of main: nothing known comes that far"},
    {"the literal has a character that Windows-1252 lacks"_t, "a mistake in the program, for its developers"},
    {"Bloco: a piece longer than the stroke"_t, "a mistake in the program, for its developers"},
    {"0100Standard Jet DB0"_t, "no text for a user"},
    {"Depurador "_t, "the source of a failure, which is not shown"},
    {"Uso: quilatador-cli "_t, "the help, whose options a test asks for one by one"},
    {"OcorrenciaTAV.codigoTipoRetorno = 1 AND OcorrenciaTAV.codigoRetorno = "_t, "no text for a user"},
};

bool temExcecao(VistaTexto texto) {
    return std::ranges::any_of(semTeste, [&](const auto& excecao) { return texto.starts_with(excecao.first); });
}

/// A text that no test asks for could be wrong, or never come, without anybody knowing.
TEST(Textos, cadaUmEhEsperadoPorUmTeste) {
    Texto esperados;
    for (const char* pasta : {"tests", "samples"})
        for (const fs::path& arquivo : arquivos(fontes / pasta)) {
            if (arquivo.filename() == "TextosTest.cpp") continue;
            const bool codigo = arquivo.extension() == ".cpp" || arquivo.extension() == ".h";
            for (const Texto& texto : codigo ? Literais(conteudo(arquivo)).todos() : std::vector{conteudo(arquivo)})
                esperados.append(texto).append("\n");
        }
    const Texto semComo = nuncaEscritas();
    int mensagens = 0;
    for (const fs::path& arquivo : arquivos(fontes / "src")) {
        // The window's folder has the labels of its controls, the other system's file only its commands.
        if (arquivo.string().find("/qt/") != std::string::npos || arquivo.filename() == "LancadorWindows.cpp") continue;
        for (const Texto& texto : Literais(conteudo(arquivo)).todos()) {
            if (!ehMensagem(texto)) continue;
            ++mensagens;
            const bool esperado = esperados.find(texto) != Texto::npos || semComo.find(texto) != Texto::npos;
            EXPECT_NE(esperado, temExcecao(texto)) << arquivo << ": " << texto;
        }
    }
    EXPECT_GT(mensagens, 250);
}

} // namespace
} // namespace quilatador
