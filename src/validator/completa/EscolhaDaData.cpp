#include "validator/completa/EscolhaDaData.h"

namespace quilatador {

namespace {

Texto formatoNaPosicao(VistaTexto formato, int posicao) {
    return junta(formato.empty() ? "nenhum formato"_t : formato, " na posição "_t, textoDe(posicao));
}

/// All formats and positions that agree with as many installments as the first.
Texto sugestoes(const std::vector<DataNaBarra::Candidata>& candidatas, std::int64_t parcelas) {
    Texto texto;
    for (const DataNaBarra::Candidata& candidata : candidatas)
        texto += junta(texto.empty() ? ""_t : ", "_t, formatoNaPosicao(candidata.formato, candidata.posicao), " ("_t,
                       textoDe(candidata.acertos), " de "_t, textoDe(parcelas), ")"_t);
    return texto;
}

} // namespace

void julgarEscolhaDaData(Coletor& coletor, const DatasDaRemessa& datas, const CampoRemessa& formatoData,
                         VistaTexto formato, int posicao) {
    const VistaTexto doConvenio = datas.formatoDoConvenio();
    const VistaTexto escolhido = doConvenio.empty() ? formato : doConvenio;
    const auto candidatas = datas.datas.melhores(escolhido);
    if (candidatas.empty() || datas.datas.acertos(escolhido, posicao) > 0) return;
    // Where the format of the agreement fits at another position, it is the choice that is wrong, not the file.
    const bool outroFormato = candidatas.front().formato != escolhido && datas.codigoDoConvenio;
    Achado achado{.id = outroFormato ? "c.formatoData.naoConfere"_t : "opcoes.data.naoConfere"_t,
                  .gravidade = Gravidade::Erro,
                  .linha = outroFormato ? datas.linhaDoConvenio : 1,
                  .segmento = outroFormato ? 'C' : '\0',
                  .campo = std::nullopt,
                  .mensagem = junta("Nenhuma parcela tem a data de vencimento no código de barras em "_t,
                                    formatoNaPosicao(escolhido, posicao), "; confere "_t,
                                    sugestoes(candidatas, datas.datas.parcelas()))};
    if (outroFormato)
        achado.campo = CampoDoAchado{.nome = formatoData.nome(),
                                     .inicio = formatoData.inicio(),
                                     .fim = formatoData.Fim(),
                                     .encontrado = *datas.codigoDoConvenio,
                                     .esperado = {}};
    coletor.marcar({.letra = 'C', .campo = formatoData.inicio()}, coletor.contar(std::move(achado), 0));
}

} // namespace quilatador
