#include "cli/ComandoData.h"

#include "cli/Pergunta.h"
#include "cli/RelatorJson.h"
#include "cli/TextoNoTerminal.h"
#include "frontend/Pedido.h"
#include "frontend/TextosDaConferencia.h"
#include "validator/DatasDaRemessa.h"

#include <nlohmann/json.hpp>
#include <utility>

namespace quilatador {

namespace {

using Candidata = DataNaBarra::Candidata;
using Json = nlohmann::ordered_json;

/// What is said about the dates of one file, line by line.
class Resposta {
  public:
    Resposta(Sessao& sessao, const DatasDaRemessa& lidas)
        : argumentos_(sessao.argumentos())
        , saida_(sessao.maquina().saida)
        , milhar_(sessao.maquina().localidade.separadorDeMilhar())
        , lidas_(lidas)
        , sugestoes_(lidas.datas.melhores(lidas.formatoDoConvenio())) {}

    void escrever() {
        if (lidas_.datas.parcelas() == 0)
            return dizer("O arquivo não tem parcelas (segmento Y) com uma data de vencimento."_t);
        if (argumentos_.escolheuData) julgarEscolha();
        for (const Candidata& sugestao : sugestoes_)
            dizer(junta(formatoNaPosicao(sugestao.formato, sugestao.posicao), ": "_t, dasParcelas(sugestao.acertos)));
        if (sugestoes_.empty())
            dizer(junta("Nenhum formato confere com o vencimento das parcelas, em posição nenhuma de "_t,
                        textoDe(campoLivre::primeiraPosicao), " a "_t, textoDe(campoLivre::ultimaPosicao), "."_t));
        else if (!todasConferem())
            dizer("Nada confere em todas as parcelas."_t);
        if (convenioDestoa()) dizer(avisoDoConvenio());
    }

    void escreverJson() {
        Json sugestoes = Json::array();
        for (const Candidata& sugestao : sugestoes_)
            sugestoes.push_back({{"formato", utf8DeTexto(sugestao.formato)},
                                 {"posicao", sugestao.posicao},
                                 {"acertos", sugestao.acertos}});
        const VistaTexto doConvenio = lidas_.formatoDoConvenio();
        const Json objeto{{"versao", RelatorJson::versao},
                          {"arquivo", utf8DeTexto(textoDoCaminho(argumentos_.arquivos.front()))},
                          {"tipo", utf8DeTexto(nomeDo(TipoArquivo::ZUL702))},
                          {"parcelas", lidas_.datas.parcelas()},
                          {"formatoDoConvenio", doConvenio.empty() ? Json() : Json(utf8DeTexto(doConvenio))},
                          {"sugestoes", std::move(sugestoes)}};
        saida_ << objeto.dump() << std::endl;
    }

    [[nodiscard]] bool todasConferem() const {
        return !sugestoes_.empty() && sugestoes_.front().acertos == lidas_.datas.parcelas();
    }

  private:
    void dizer(VistaTexto linha) { saida_ << paraTerminal(linha) << std::endl; }

    [[nodiscard]] Texto dasParcelas(std::int64_t acertos) const {
        return acertosDasParcelas(acertos, lidas_.datas.parcelas(), milhar_);
    }

    /// A choice that no analysis would accept is judged too: whoever made it wants to know the right one.
    void julgarEscolha() {
        const double posicao = argumentos_.posicao;
        if (const auto recusa = recusaDaData(posicao, argumentos_.formato))
            return dizer(junta("A escolha atual não vale: "_t, *recusa));
        const int inteira = static_cast<int>(posicao);
        const std::int64_t acertos = lidas_.datas.acertos(argumentos_.formato, inteira);
        dizer(junta("A escolha atual, "_t, formatoNaPosicao(argumentos_.formato, inteira), ", confere em "_t,
                    dasParcelas(acertos), "."_t));
    }

    /// Whether segment C leads the analysis away from what the barcodes have: the best are in other formats.
    [[nodiscard]] bool convenioDestoa() const {
        return lidas_.codigoDoConvenio && !sugestoes_.empty() &&
               sugestoes_.front().formato != lidas_.formatoDoConvenio();
    }

    [[nodiscard]] Texto avisoDoConvenio() const {
        const VistaTexto formato = lidas_.formatoDoConvenio();
        const Texto indicado = formato.empty() ? Texto("não indica formato de data"_t)
                                               : junta("indica "_t, formato, ", que não é o das parcelas"_t);
        return junta("O segmento C "_t, indicado, ": confira o campo FormatoData dele, que está com "_t,
                     *lidas_.codigoDoConvenio, "."_t);
    }

    const Argumentos& argumentos_;
    std::ostream& saida_;
    Texto milhar_;
    const DatasDaRemessa& lidas_;
    std::vector<Candidata> sugestoes_;
};

} // namespace

int sugerirData(Sessao& sessao) {
    return perguntar(sessao, "--sugerir-data"_t, [&](ArquivoRemessa& leiaute) -> std::optional<int> {
        const std::filesystem::path& arquivo = sessao.argumentos().arquivos.front();
        const auto lidas = lerDatas(sessao.ambiente(), leiaute, arquivo, sessao.cancelado());
        if (!lidas) return std::nullopt;
        Resposta resposta(sessao, *lidas);
        if (sessao.argumentos().json)
            resposta.escreverJson();
        else
            resposta.escrever();
        return resposta.todasConferem() ? situacao::nadaEncontrado : situacao::haAchados;
    });
}

} // namespace quilatador
