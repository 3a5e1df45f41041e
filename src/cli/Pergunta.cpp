#include "cli/Pergunta.h"

#include "layout/ArquivoRemessaBD.h"

namespace quilatador {

int perguntar(Sessao& sessao, VistaTexto opcao, const std::function<std::optional<int>(ArquivoRemessa&)>& responder) {
    const std::filesystem::path& arquivo = sessao.argumentos().arquivos.front();
    if (const auto motivo = recusaDoNome(arquivo)) return semResposta(sessao, *motivo);
    const TipoArquivo tipo = sessao.tipoDe(arquivo);
    if (tipo != TipoArquivo::ZUL702)
        return semResposta(sessao,
                           junta(opcao, " vale somente para um ZUL702, e o arquivo é um "_t, nomeDo(tipo), "."_t));
    const auto leiaute = ArquivoRemessaBD::carregar(sessao.ambiente());
    if (!leiaute) return semResposta(sessao, "Leiaute não carregado!"_t);
    try {
        if (const auto situacao = responder(*leiaute)) return *situacao;
    } catch (const Falha& falha) {
        return semResposta(sessao, falha.descricao());
    }
    sessao.dizer(junta(nomeParaMensagem(arquivo), ": leitura cancelada"_t));
    return situacao::interrompido;
}

int semResposta(Sessao& sessao, VistaTexto motivo) {
    sessao.dizer(
        junta(nomeParaMensagem(sessao.argumentos().arquivos.front()), ": não foi possível analisar: "_t, motivo));
    return situacao::naoRodou;
}

} // namespace quilatador
