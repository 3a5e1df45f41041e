#include "support/Comparacao.h"
#include "support/Falsos.h"
#include "support/PastaTemporaria.h"

#include "layout/ArquivoRemessaBD.h"
#include "validator/Depurador.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <regex>
#include <set>
#include <sstream>

namespace quilatador::testes {
namespace {

/// One case of samples/variacoes.txt.
struct Variacao {
    std::string nome;
    std::vector<std::string> comandos;
    std::string esperado; ///< "id | line", each ended by a line feed

    // NOLINTNEXTLINE(readability-identifier-naming): GoogleTest looks for this name
    friend void PrintTo(const Variacao& variacao, std::ostream* saida) { *saida << variacao.nome; }
};

std::vector<Variacao> lerVariacoes() {
    std::vector<Variacao> variacoes;
    std::istringstream texto(lerTudo(QUILATADOR_SAMPLES "/variacoes.txt"));
    for (std::string linha; std::getline(texto, linha);) {
        if (linha.empty() || linha[0] == '#') continue;
        if (linha[0] == '[')
            variacoes.emplace_back().nome = linha.substr(1, linha.size() - 2);
        else if (linha.find(" | ") != std::string::npos)
            variacoes.back().esperado += linha + "\n";
        else
            variacoes.back().comandos.push_back(linha);
    }
    return variacoes;
}

/// What a run found, as the file of cases has it.
Texto achadosComoTexto(const RelatorMemoria& relator, bool comCampos) {
    Texto texto;
    for (const Achado& achado : relator.achados) {
        texto += junta(achado.id, " | "_t);
        if (achado.gravidade == Gravidade::Erro)
            texto += junta("** ERRO -> Linha "_t, comZeros(achado.linha, 6), " - "_t);
        texto += achado.mensagem;
        if (comCampos) texto += junta(" | "_t, achado.campo.value().nome);
        if (comCampos && achado.campo->esperado) texto += junta(" = "_t, *achado.campo->esperado);
        texto += "\n"_t;
    }
    const Resumo& resumo = relator.resumos.back();
    const bool contada = !relator.achados.empty() && relator.achados.back().mensagem == resumo.descricao;
    if (!resumo.descricao.empty() && !contada) texto += junta("falha | "_t, resumo.descricao, "\n"_t);
    if (resumo.guiasRejeitadas > 0) texto += "guia | rejeitada\n"_t;
    const auto conferidas = resumo.guiasAceitas + resumo.guiasRejeitadas;
    if (conferidas != (resumo.desfecho == Desfecho::Concluida ? 1 : 0))
        texto += junta("guia | conferida "_t, textoDe(conferidas), " vezes\n"_t);
    return texto;
}

/// Whether a finding that names a field has its line, its segment (a line of no known type has none) and there what it
/// quotes.
bool lugarCerto(const Achado& achado, VistaTexto arquivo) {
    constexpr std::size_t bytesDaLinha = 242;
    if (!achado.campo || achado.linha == 0) return true;
    const auto inicio = static_cast<std::size_t>(achado.campo->inicio);
    const auto fim = static_cast<std::size_t>(achado.campo->fim);
    const VistaTexto linha = trecho(arquivo, (static_cast<std::size_t>(achado.linha) - 1) * bytesDaLinha + 1);
    const VistaTexto campo = trecho(linha, inicio, fim + 1 - inicio);
    return (achado.segmento == 0 || linha.front() == achado.segmento) && campo == achado.campo->encontrado;
}

/// The sample remittance, changed as a case says.
class Variacoes : public testing::TestWithParam<Variacao> {
  protected:
    Variacoes() {
        std::istringstream texto(lerTudo(QUILATADOR_SAMPLES "/remessa-valida/remessa.rem"));
        for (std::string linha; std::getline(texto, linha, '\r'); texto.ignore(1))
            linhas_.emplace_back(textoDosBytes(linha));
        mundo_.arquivos.conteudo["/programa/Arquivo_ZUL702.xml"] = lerTexto(QUILATADOR_LEIAUTE);
    }

    /// Obeys the commands of a form, in their order.
    template <typename Acao>
    void aCada(const char* forma, Acao acao) {
        std::smatch partes;
        for (const std::string& comando : GetParam().comandos)
            if (std::regex_match(comando, partes, std::regex(forma))) acao(partes), ++obedecidos_;
    }

    /// Where the records of a letter are: that one (1-based), the last ("") or all ("*").
    [[nodiscard]] std::vector<std::size_t> lugares(const std::string& letra, const std::string& vez) const {
        std::vector<std::size_t> lugares;
        for (std::size_t i = 0; i < linhas_.size(); ++i)
            if (linhas_[i].front() == letra[0]) lugares.push_back(i);
        if (vez == "*") return lugares;
        return {lugares.at((vez.empty() ? lugares.size() : std::stoul(vez)) - 1)};
    }

    void mudarLinhas(const std::string& operacao, const std::vector<std::size_t>& quais) {
        for (auto i = quais.rbegin(); i != quais.rend(); ++i) {
            const auto lugar = linhas_.begin() + static_cast<std::ptrdiff_t>(*i);
            if (operacao == "repetir")
                linhas_.insert(lugar, Texto(*lugar));
            else if (operacao == "remover")
                linhas_.erase(lugar);
            else
                lugar->pop_back();
        }
    }

    void trocar(Texto& linha, const CampoRemessa& campo, Texto valor) {
        const auto largura = static_cast<std::size_t>(campo.Tamanho());
        ASSERT_LE(valor.size(), largura) << campo.nome();
        valor.resize(largura, ' ');
        linha.replace(static_cast<std::size_t>(campo.inicio() - 1), largura, valor);
    }

    /// The changed remittance, by the layout that has been changed before.
    Texto remessa() {
        const auto leiaute = ArquivoRemessaBD::obterArquivoRemessa(mundo_.ambiente.leiaute(), mundo_.arquivos,
                                                                   mundo_.painel, mundo_.relogio);
        aCada(R"((repetir|remover|cortar) (.)(?:\[(.+)\])?)",
              [&](const auto& partes) { mudarLinhas(partes.str(1), lugares(partes.str(2), partes.str(3))); });
        for (std::size_t i = 0; i < linhas_.size(); ++i)
            linhas_[i].replace(234, 6, comZeros(static_cast<long long>(i) + 1, linhas_[i].size() - 234));
        aCada("convenio (.+)", [&](const auto& partes) {
            for (Texto& linha : linhas_)
                linha.replace(1, partes.str(1).size(), textoDeUtf8(partes.str(1)));
        });
        aCada(R"((.)(?:\[(.+)\])?\.(.+) = ?(.*))", [&](const auto& partes) {
            trocar(linhas_[lugares(partes.str(1), partes.str(2))[0]],
                   leiaute->criarRegistro(textoDeUtf8(partes.str(1)))->obterCampo(textoDeUtf8(partes.str(3))),
                   textoDeUtf8(partes.str(4)));
        });
        Texto texto;
        for (const Texto& linha : linhas_)
            texto += junta(linha, "\r\n"_t);
        return texto;
    }

    Texto depurar() {
        aCada("leiaute (.+) => (.+)", [&](const auto& partes) {
            Texto& descricao = mundo_.arquivos.conteudo["/programa/Arquivo_ZUL702.xml"];
            descricao.replace(descricao.find(textoDosBytes(partes.str(1))), partes.str(1).size(),
                              textoDosBytes(partes.str(2)));
        });
        mundo_.arquivos.conteudo["/r.rem"] = remessa();
        std::atomic<bool> cancelado = false;
        Relator* const ouvintes[] = {&relator_};
        Rodada rodada(mundo_.ambiente, {.nomeArquivo = "/r.rem", .ouvintes = ouvintes}, cancelado);
        Depurador depurador(mundo_.ambiente, globais_, cancelado);
        depurador.FormatoDataBarra = "AAAAMMDD"_t;
        aCada("data (.+)", [&](const auto& partes) {
            depurador.PosicaoDataBarra = static_cast<std::int16_t>(std::stoi(partes.str(1)));
        });
        depurador.depurar(rodada);
        bool comCampos = false;
        aCada("campos", [&](const auto&) { comCampos = true; });
        EXPECT_EQ(obedecidos_, GetParam().comandos.size());
        return achadosComoTexto(relator_, comCampos);
    }

    MundoFalso mundo_;
    modVariaveis globais_;
    RelatorMemoria relator_;

  private:
    std::vector<Texto> linhas_;
    std::size_t obedecidos_ = 0;
};

TEST_P(Variacoes, achaIstoENadaMais) {
    EXPECT_EQ(diferenca(utf8DeTexto(depurar()), GetParam().esperado), "");
    for (const Achado& um : relator_.achados)
        EXPECT_TRUE(lugarCerto(um, mundo_.arquivos.conteudo["/r.rem"])) << um.id;
}

INSTANTIATE_TEST_SUITE_P(Remessa, Variacoes, testing::ValuesIn(lerVariacoes()), [](const auto& caso) {
    std::string nome = caso.param.nome;
    std::ranges::replace(nome, '-', '_');
    return nome;
});

/// The ids of remittances in the catalogue's tables, but for those under the heading "Never written".
std::set<std::string> lerCatalogo() {
    std::set<std::string> ids;
    std::istringstream texto(lerTudo(QUILATADOR_DOCS "/findings.md"));
    for (std::string linha; std::getline(texto, linha) && !linha.starts_with("## Never written");)
        if (linha.starts_with("| `") && !linha.starts_with("| `zul708.") && !linha.starts_with("| `tav001."))
            ids.insert(linha.substr(3, linha.find('`', 3) - 3));
    return ids;
}

TEST(Catalogo, temCadaAchadoDasAmostrasENenhumOutro) {
    std::set<std::string> produzidos;
    for (const Variacao& variacao : lerVariacoes()) {
        std::istringstream linhas(variacao.esperado);
        for (std::string linha; std::getline(linhas, linha);)
            if (linha.find('.') < linha.find(' ')) produzidos.insert(linha.substr(0, linha.find(' ')));
    }
    EXPECT_EQ(produzidos, lerCatalogo());
}

} // namespace
} // namespace quilatador::testes
