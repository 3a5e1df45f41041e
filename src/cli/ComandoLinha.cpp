#include "cli/ComandoLinha.h"

#include "cli/Pergunta.h"
#include "cli/RelatorJson.h"
#include "cli/TextoNoTerminal.h"
#include "layout/BuscaDaLinha.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <utility>

namespace quilatador {

namespace {

using Estado = PedacoDaRegua::Estado;
using Json = nlohmann::ordered_json;

struct NomeDoEstado {
    const char* noJson;
    VistaTexto naTela;
};

NomeDoEstado nomeDo(Estado estado) {
    switch (estado) {
    case Estado::Lido:
        return {"lido", ""_t};
    case Estado::EmBranco:
        return {"emBranco", "em branco"_t};
    case Estado::Ilegivel:
        return {"ilegivel", "ilegível"_t};
    case Estado::Cortado:
        return {"cortado", "cortado: a linha termina antes"_t};
    case Estado::Sobra:
        return {"sobra", "sobra"_t};
    }
    return {};
}

using LinhaDaTabela = std::array<std::string, 5>;

LinhaDaTabela linhaDaTabela(const PedacoDaRegua& pedaco) {
    const bool outroValor = !pedaco.valor.empty() && pedaco.valor != pedaco.texto;
    return {pedaco.campo.empty() ? "-" : paraTerminal(pedaco.campo),
            std::to_string(pedaco.inicio) + "-" + std::to_string(pedaco.fim), comBrancosVisiveis(pedaco.texto),
            outroValor ? paraTerminal(pedaco.valor) : "", utf8DeTexto(nomeDo(pedaco.estado).naTela)};
}

/// Writes the rows with aligned columns. One cell that is very wide moves only what stands behind it in its own row.
void desenhar(const std::vector<LinhaDaTabela>& tabela, std::ostream& saida) {
    constexpr std::size_t maiorColuna = 64;
    std::array<std::size_t, std::tuple_size_v<LinhaDaTabela>> larguras{};
    for (const LinhaDaTabela& linha : tabela)
        for (std::size_t i = 0; i < linha.size(); ++i)
            larguras[i] = std::max(larguras[i], std::min(largura(linha[i]), maiorColuna));
    for (const LinhaDaTabela& linha : tabela) {
        std::string texto;
        for (std::size_t i = 0; i < linha.size(); ++i) {
            const std::size_t falta = larguras[i] - std::min(larguras[i], largura(linha[i]));
            if (larguras[i] > 0) texto += "  " + linha[i] + std::string(falta, ' ');
        }
        saida << texto.substr(0, texto.find_last_not_of(' ') + 1) << '\n';
    }
}

Texto cabecalho(const std::filesystem::path& arquivo, std::int64_t numero, const LinhaEncontrada& encontrada) {
    const Texto lugar = junta(nomeParaMensagem(arquivo), ", linha "_t, textoDe(numero), ": "_t);
    const Texto tamanho = junta(textoDe(static_cast<long long>(encontrada.tamanho)),
                                encontrada.tamanho == 1 ? " caractere"_t : " caracteres"_t,
                                encontrada.maisComprida ? " ou mais"_t : ""_t);
    if (!encontrada.segmento) return junta(lugar, "de nenhum segmento do leiaute, "_t, tamanho);
    return junta(lugar, "segmento "_t, *encontrada.segmento, ", "_t, tamanho, "; no leiaute, "_t,
                 textoDe(static_cast<long long>(encontrada.tamanhoNoLeiaute)));
}

Json objetoDo(const PedacoDaRegua& pedaco) {
    return {{"campo", pedaco.campo.empty() ? Json() : Json(utf8DeTexto(pedaco.campo))},
            {"inicio", pedaco.inicio},
            {"fim", pedaco.fim},
            {"texto", utf8DeTexto(pedaco.texto)},
            {"valor", utf8DeTexto(pedaco.valor)},
            {"estado", nomeDo(pedaco.estado).noJson}};
}

void escreverJson(const std::filesystem::path& arquivo, std::int64_t numero, const LinhaEncontrada& encontrada,
                  std::ostream& saida) {
    Json regua = Json::array();
    for (const PedacoDaRegua& pedaco : encontrada.regua)
        regua.push_back(objetoDo(pedaco));
    const Json objeto{{"versao", RelatorJson::versao},
                      {"arquivo", utf8DeTexto(textoDoCaminho(arquivo))},
                      {"tipo", utf8DeTexto(nomeDo(TipoArquivo::ZUL702))},
                      {"linha", numero},
                      {"segmento", encontrada.segmento ? Json(utf8DeTexto(*encontrada.segmento)) : Json()},
                      {"regua", std::move(regua)}};
    saida << objeto.dump() << std::endl;
}

Texto motivoDaFalta(std::int64_t numero, std::int64_t linhas) {
    const bool vazia = numero >= 1 && numero <= linhas;
    return junta(vazia ? "Essa linha está vazia"_t : "Não há essa linha"_t, "; o arquivo tem "_t, textoDe(linhas),
                 linhas == 1 ? " linha."_t : " linhas."_t);
}

} // namespace

int mostrarLinha(Sessao& sessao) {
    return perguntar(sessao, "--linha"_t, [&](ArquivoRemessa& leiaute) -> std::optional<int> {
        const std::filesystem::path& arquivo = sessao.argumentos().arquivos.front();
        const std::int64_t numero = sessao.argumentos().linha;
        std::ostream& saida = sessao.maquina().saida;
        const auto encontrada = buscarLinha(sessao.ambiente(), leiaute, arquivo, numero, sessao.cancelado());
        if (!encontrada) return std::nullopt;
        if (encontrada->tamanho == 0) return semResposta(sessao, motivoDaFalta(numero, encontrada->linhas));
        if (sessao.argumentos().json) {
            escreverJson(arquivo, numero, *encontrada, saida);
            return situacao::nadaEncontrado;
        }
        saida << paraTerminal(cabecalho(arquivo, numero, *encontrada)) << '\n';
        std::vector<LinhaDaTabela> tabela;
        std::ranges::transform(encontrada->regua, std::back_inserter(tabela), linhaDaTabela);
        desenhar(tabela, saida);
        saida << std::flush;
        return situacao::nadaEncontrado;
    });
}

} // namespace quilatador
