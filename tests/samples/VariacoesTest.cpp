#include "support/Comparacao.h"
#include "support/Falsos.h"
#include "support/PastaTemporaria.h"

#include "layout/ArquivoRemessaBD.h"
#include "validator/Depurador.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>
#include <sstream>

namespace quilatador::testes {
namespace {

/// A change of one field: of the record of a letter, the `vez`-th (1-based) or the last (0).
struct Troca {
    char letra = 0;
    std::size_t vez = 0;
    Texto campo;
    Texto valor;
};

/// One case of samples/variacoes.txt.
struct Variacao {
    std::string nome;
    std::vector<std::pair<std::string, std::string>> linhas; ///< operation on records, and on which
    std::vector<Troca> trocas;
    std::vector<std::pair<Texto, Texto>> leiaute; ///< text of the description, and what takes its place
    Texto convenio;
    std::int16_t posicaoDaData = 0;
    std::string esperado; ///< "id | line", each ended by a line feed

    // NOLINTNEXTLINE(readability-identifier-naming): GoogleTest looks for this name
    friend void PrintTo(const Variacao& variacao, std::ostream* saida) { *saida << variacao.nome; }
};

/// "T", "T[2]" or "T[*]": the last, the second, all (-1).
std::pair<char, int> lerAlvo(const std::string& alvo) {
    if (alvo.size() == 1) return {alvo[0], 0};
    return {alvo[0], alvo[2] == '*' ? -1 : std::stoi(alvo.substr(2))};
}

Troca lerTroca(const std::string& linha) {
    const std::size_t igual = linha.find(" =");
    const std::size_t ponto = linha.find('.');
    const auto [letra, vez] = lerAlvo(linha.substr(0, ponto));
    const std::string valor = linha.size() > igual + 3 ? linha.substr(igual + 3) : std::string();
    const std::string campo = linha.substr(ponto + 1, igual - ponto - 1);
    return {letra, static_cast<std::size_t>(vez), textoDeUtf8(campo), textoDeUtf8(valor)};
}

std::vector<Variacao> lerVariacoes() {
    std::vector<Variacao> variacoes;
    std::istringstream texto(lerTudo(QUILATADOR_SAMPLES "/variacoes.txt"));
    for (std::string linha; std::getline(texto, linha);) {
        if (linha.empty() || linha[0] == '#') continue;
        if (linha[0] == '[') {
            variacoes.emplace_back().nome = linha.substr(1, linha.size() - 2);
        } else if (linha.find(" | ") != std::string::npos) {
            variacoes.back().esperado += linha + "\n";
        } else if (linha.starts_with("remover ") || linha.starts_with("repetir ") || linha.starts_with("cortar ")) {
            const std::size_t branco = linha.find(' ');
            variacoes.back().linhas.emplace_back(linha.substr(0, branco), linha.substr(branco + 1));
        } else if (linha.starts_with("leiaute ")) {
            const std::size_t seta = linha.find(" => ");
            variacoes.back().leiaute.emplace_back(textoDosBytes(linha.substr(8, seta - 8)),
                                                  textoDosBytes(linha.substr(seta + 4)));
        } else if (linha.starts_with("convenio ")) {
            variacoes.back().convenio = textoDeUtf8(linha.substr(9));
        } else if (linha.starts_with("data ")) {
            variacoes.back().posicaoDaData = static_cast<std::int16_t>(std::stoi(linha.substr(5)));
        } else {
            variacoes.back().trocas.push_back(lerTroca(linha));
        }
    }
    return variacoes;
}

/// The sample remittance, to be changed.
class Remessa {
  public:
    explicit Remessa(const ArquivoRemessa& leiaute) : leiaute_(leiaute) {
        std::istringstream texto(lerTudo(QUILATADOR_SAMPLES "/remessa-valida/remessa.rem"));
        for (std::string linha; std::getline(texto, linha, '\r'); texto.ignore(1))
            linhas_.emplace_back(textoDosBytes(linha));
    }

    void mudar(const Variacao& variacao) {
        for (const auto& [operacao, alvo] : variacao.linhas)
            mudarLinhas(operacao, alvo);
        for (std::size_t i = 0; i < linhas_.size(); ++i) {
            linhas_[i].replace(234, 6, comZeros(static_cast<long long>(i) + 1, linhas_[i].size() - 234));
            linhas_[i].replace(1, variacao.convenio.size(), variacao.convenio);
        }
        for (const Troca& troca : variacao.trocas)
            trocar(troca);
    }

    [[nodiscard]] Texto texto() const {
        Texto texto;
        for (const Texto& linha : linhas_)
            texto += junta(linha, "\r\n"_t);
        return texto;
    }

  private:
    [[nodiscard]] std::vector<std::size_t> lugares(char letra) const {
        std::vector<std::size_t> lugares;
        for (std::size_t i = 0; i < linhas_.size(); ++i)
            if (linhas_[i].front() == letra) lugares.push_back(i);
        return lugares;
    }

    void mudarLinhas(const std::string& operacao, const std::string& alvo) {
        const auto [letra, vez] = lerAlvo(alvo);
        const std::vector<std::size_t> todos = lugares(letra);
        for (std::size_t i = todos.size(); i-- > 0;) {
            const bool escolhido =
                vez == -1 || (vez == 0 ? i + 1 == todos.size() : i + 1 == static_cast<std::size_t>(vez));
            if (!escolhido) continue;
            const auto lugar = linhas_.begin() + static_cast<std::ptrdiff_t>(todos[i]);
            if (operacao == "repetir")
                linhas_.insert(lugar, Texto(*lugar));
            else if (operacao == "remover")
                linhas_.erase(lugar);
            else
                lugar->pop_back();
        }
    }

    void trocar(const Troca& troca) {
        const std::vector<std::size_t> todos = lugares(troca.letra);
        ASSERT_GE(todos.size(), std::max<std::size_t>(troca.vez, 1)) << troca.letra;
        Texto& linha = linhas_[troca.vez == 0 ? todos.back() : todos[troca.vez - 1]];
        const auto tipo = std::ranges::find_if(leiaute_.tiposRegistros(),
                                               [&](const auto& t) { return t->nome().front() == troca.letra; });
        const CampoRemessa& campo = (*tipo)->obterCampo(troca.campo);
        const auto largura = static_cast<std::size_t>(campo.Tamanho());
        ASSERT_LE(troca.valor.size(), largura) << troca.campo;
        Texto valor = troca.valor;
        valor.resize(largura, ' ');
        linha.replace(static_cast<std::size_t>(campo.inicio() - 1), largura, valor);
    }

    const ArquivoRemessa& leiaute_;
    std::vector<Texto> linhas_;
};

/// What a run found, as the file of cases has it.
Texto achadosComoTexto(const RelatorMemoria& relator) {
    Texto texto;
    for (const Achado& achado : relator.achados) {
        texto += junta(achado.id, " | "_t);
        if (achado.gravidade == Gravidade::Erro)
            texto += junta("** ERRO -> Linha "_t, comZeros(achado.linha, 6), " - "_t);
        texto += junta(achado.mensagem, "\n"_t);
    }
    const Resumo& resumo = relator.resumos.back();
    const bool contada = !relator.achados.empty() && relator.achados.back().mensagem == resumo.descricao;
    if (!resumo.descricao.empty() && !contada) texto += junta("falha | "_t, resumo.descricao, "\n"_t);
    return resumo.guiasRejeitadas == 0 ? texto : junta(texto, "guia | rejeitada\n"_t);
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

class Variacoes : public testing::TestWithParam<Variacao> {
  protected:
    Variacoes() { mundo_.arquivos.conteudo["/programa/Arquivo_ZUL702.xml"] = lerTexto(QUILATADOR_LEIAUTE); }

    Texto depurar(const Variacao& variacao) {
        Texto& descricao = mundo_.arquivos.conteudo["/programa/Arquivo_ZUL702.xml"];
        for (const auto& [antes, depois] : variacao.leiaute) {
            const std::size_t lugar = descricao.find(antes);
            if (lugar == Texto::npos) return junta("the layout has no such text: "_t, antes);
            descricao.replace(lugar, antes.size(), depois);
        }
        const auto leiaute = ArquivoRemessaBD::obterArquivoRemessa(mundo_.ambiente.leiaute(), mundo_.arquivos,
                                                                   mundo_.painel, mundo_.relogio);
        Remessa remessa(*leiaute);
        remessa.mudar(variacao);
        mundo_.arquivos.conteudo["/r.rem"] = remessa.texto();
        std::atomic<bool> cancelado = false;
        Relator* const ouvintes[] = {&relator_};
        Rodada rodada(mundo_.ambiente, {.nomeArquivo = "/r.rem", .ouvintes = ouvintes}, cancelado);
        Depurador depurador(mundo_.ambiente, globais_, cancelado);
        depurador.PosicaoDataBarra = variacao.posicaoDaData;
        depurador.FormatoDataBarra = "AAAAMMDD"_t;
        depurador.depurar(rodada);
        return achadosComoTexto(relator_);
    }

    MundoFalso mundo_;
    modVariaveis globais_;
    RelatorMemoria relator_;
};

TEST_P(Variacoes, achaIstoENadaMais) {
    const Texto achado = depurar(GetParam());
    EXPECT_EQ(diferenca(utf8DeTexto(achado), GetParam().esperado), "");
    for (const Achado& um : relator_.achados)
        EXPECT_TRUE(lugarCerto(um, mundo_.arquivos.conteudo["/r.rem"])) << um.id;
    const Resumo& resumo = relator_.resumos.back();
    EXPECT_EQ(resumo.guiasAceitas + resumo.guiasRejeitadas, resumo.desfecho == Desfecho::Concluida ? 1 : 0);
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
