#include "cli/ComandoLinha.h"

#include "cli/Pergunta.h"
#include "cli/RelatorJson.h"
#include "cli/TextoNoTerminal.h"
#include "frontend/AchadosDaLinha.h"
#include "frontend/TextosDaConferencia.h"
#include "layout/BuscaDaLinha.h"
#include "validator/completa/ConferenciaCompleta.h"

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

/// A text that does not have to be read whole, since it stands in whole elsewhere.
std::string encurtado(VistaTexto texto) {
    constexpr std::size_t maiorTrecho = 48;
    if (texto.size() <= maiorTrecho) return paraTerminal(texto);
    return paraTerminal(semBrancosADireita(texto.substr(0, maiorTrecho))) + "…";
}

/// What is wrong with a piece, as far as one mark can say it; "" if nothing is.
std::string marcaDos(const std::vector<const Achado*>& achados) {
    if (achados.empty()) return {};
    const auto comEsperado =
        std::ranges::find_if(achados, [](const Achado* a) { return a->campo->esperado.has_value(); });
    std::string marca = comEsperado == achados.end() ? encurtado(achados.front()->mensagem)
                                                     : "esperado " + ouNada(*(*comEsperado)->campo->esperado);
    if (achados.size() > 1) marca += " (e mais " + std::to_string(achados.size() - 1) + ")";
    return "◄ " + marca;
}

LinhaDaTabela linhaDaTabela(const PedacoMarcado& marcado) {
    const PedacoDaRegua& pedaco = marcado.pedaco;
    std::string estado = utf8DeTexto(nomeDo(pedaco.estado).naTela);
    const std::string marca = marcaDos(marcado.achados);
    if (!estado.empty() && !marca.empty()) estado += ' ';
    const bool outroValor = !pedaco.valor.empty() && pedaco.valor != pedaco.texto;
    return {pedaco.campo.empty() ? "-" : paraTerminal(pedaco.campo),
            std::to_string(pedaco.inicio) + "-" + std::to_string(pedaco.fim), comBrancosVisiveis(pedaco.texto),
            outroValor ? paraTerminal(pedaco.valor) : "", estado + marca};
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

/// The findings of a line; `null` if it was not checked.
std::string listaDos(const AchadosDaLinha* conferidos) {
    if (!conferidos) return "null";
    std::string lista;
    for (const Achado& achado : conferidos->achados())
        lista.append(lista.empty() ? "" : ",").append(jsonDo(achado));
    return "[" + lista + "]";
}

void escreverJson(const std::filesystem::path& arquivo, std::int64_t numero, const LinhaEncontrada& encontrada,
                  const AchadosDaLinha* conferidos, std::ostream& saida) {
    Json regua = Json::array();
    for (const PedacoDaRegua& pedaco : encontrada.regua)
        regua.push_back(objetoDo(pedaco));
    const Json objeto{{"versao", RelatorJson::versao},
                      {"arquivo", utf8DeTexto(textoDoCaminho(arquivo))},
                      {"tipo", utf8DeTexto(nomeDo(TipoArquivo::ZUL702))},
                      {"linha", numero},
                      {"segmento", encontrada.segmento ? Json(utf8DeTexto(*encontrada.segmento)) : Json()},
                      {"regua", std::move(regua)}};
    std::string texto = objeto.dump();
    texto.pop_back();
    saida << texto << ",\"achados\":" << listaDos(conferidos) << '}' << std::endl;
}

void escreverAchado(const Achado& achado, const AchadosDaLinha::Causa* causa, std::ostream& saida) {
    Texto texto = junta("  "_t, classeDo(achado), ": "_t, achado.mensagem);
    if (achado.campo) texto += junta("; "_t, textoDoCampo(*achado.campo));
    saida << paraTerminal(texto) << '\n';
    if (achado.discutido) saida << "    motivo: " << paraTerminal(achado.motivo) << '\n';
    if (causa) saida << "    " << paraTerminal(textoDaCausa(achado.linha, causa->linha, causa->mensagem)) << '\n';
    if (achado.causa != 0 && !causa) saida << "    decorre de outro achado\n";
}

void escreverAchados(const AchadosDaLinha& conferidos, VistaTexto milhar, std::ostream& saida) {
    if (!conferidos.achados().empty()) saida << '\n';
    for (const Achado& achado : conferidos.achados())
        escreverAchado(achado, conferidos.causaDe(achado), saida);
    if (conferidos.outros() > 0)
        saida << "  e mais " << paraTerminal(contagem(conferidos.outros(), "achado"_t, "achados"_t, milhar)) << '\n';
}

void escreverRegua(std::vector<PedacoDaRegua> regua, const AchadosDaLinha* conferidos, std::ostream& saida) {
    std::vector<LinhaDaTabela> tabela;
    const std::span<const Achado> achados = conferidos ? std::span(conferidos->achados()) : std::span<const Achado>();
    std::ranges::transform(marcar(std::move(regua), achados), std::back_inserter(tabela), linhaDaTabela);
    desenhar(tabela, saida);
}

/// Checks the file of the line completely. Why that tells nothing about the line is told on standard error, and is no
/// reason not to show the line.
Desfecho conferir(Sessao& sessao, ArquivoRemessa& leiaute, PedidoCompleto pedido, std::int64_t vaziaAntes,
                  AchadosDaLinha& achados) {
    const Argumentos& argumentos = sessao.argumentos();
    const auto naoRodou = [&](VistaTexto motivo) {
        sessao.dizer(junta(nomeParaMensagem(pedido.arquivo), ": não foi possível conferir a linha: "_t, motivo));
        return Desfecho::NaoRodou;
    };
    if (vaziaAntes > 0) return naoRodou(junta("a linha "_t, textoDe(vaziaAntes), ", vazia, termina o arquivo."_t));
    if (argumentos.comData) {
        if (const auto recusa = recusaDaData(argumentos.posicao, argumentos.formato)) return naoRodou(*recusa);
        pedido.PosicaoDataBarra = static_cast<std::int16_t>(argumentos.posicao);
        pedido.FormatoDataBarra = argumentos.formato;
    }
    Relator* const ouvintes[] = {&achados};
    const ResumoCompleto resumo = conferirRemessa(sessao.ambiente(), leiaute, pedido, ouvintes, sessao.cancelado());
    return resumo.desfecho == Desfecho::NaoRodou ? naoRodou(resumo.descricao) : resumo.desfecho;
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
        const auto versao = sessao.ambiente().arquivos.versao(arquivo);
        const auto encontrada = buscarLinha(sessao.ambiente(), leiaute, arquivo, numero, sessao.cancelado());
        if (!encontrada) return std::nullopt;
        if (encontrada->tamanho == 0) return semResposta(sessao, motivoDaFalta(numero, encontrada->linhas));
        AchadosDaLinha achados(numero);
        const Desfecho desfecho =
            conferir(sessao, leiaute, {.arquivo = arquivo, .versao = versao}, encontrada->vaziaAntes, achados);
        if (desfecho == Desfecho::Cancelada) return std::nullopt;
        const AchadosDaLinha* const conferidos = desfecho == Desfecho::Concluida ? &achados : nullptr;
        sessao.limparTela();
        if (sessao.argumentos().json) {
            escreverJson(arquivo, numero, *encontrada, conferidos, saida);
            return situacao::nadaEncontrado;
        }
        saida << paraTerminal(cabecalho(arquivo, numero, *encontrada)) << '\n';
        escreverRegua(encontrada->regua, conferidos, saida);
        if (conferidos) escreverAchados(*conferidos, sessao.maquina().localidade.separadorDeMilhar(), saida);
        saida << std::flush;
        return situacao::nadaEncontrado;
    });
}

} // namespace quilatador
