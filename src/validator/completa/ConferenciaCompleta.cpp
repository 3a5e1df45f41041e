#include "validator/completa/ConferenciaCompleta.h"

#include "validator/completa/EscolhaDaData.h"
#include "validator/completa/PercursoCompleto.h"
#include "validator/completa/SegundaMetade.h"

#include <algorithm>
#include <new>

namespace quilatador {

namespace {

bool todosTem(const Ambiente& ambiente, TiposDeLinha& tipos, const std::filesystem::path& arquivo,
              VistaTexto convenio) {
    LeitorDeLinhas leitor(ambiente.arquivos.abrirEntrada(arquivo));
    for (auto linha = leitor.proxima(); (linha = leitor.proxima()) && !linha->empty();) { // all but the header
        const TipoDeLinha* const tipo = tipos.reconhecer(*linha);
        if (!tipo || !tipo->convenio || !tipo->temTamanho(*linha)) continue;
        if (tipo->registro->textoNaLinha(*tipo->convenio) != convenio) return false;
    }
    return true;
}

/// Where a due date is looked for in the barcodes, whether it can be found there at all. Returns false if the user has
/// cancelled.
bool julgarData(const Ambiente& ambiente, ArquivoRemessa& leiaute, const PedidoCompleto& pedido, Coletor& coletor,
                const std::atomic<bool>& cancelado) {
    if (pedido.PosicaoDataBarra == 0) return true;
    const auto datas = lerDatas(ambiente, leiaute, pedido.arquivo, cancelado);
    if (!datas) return false;
    julgarEscolhaDaData(coletor, *datas, leiaute.criarRegistro("C"_t)->obterCampo("FormatoData"_t),
                        pedido.FormatoDataBarra, pedido.PosicaoDataBarra);
    return true;
}

void percorrer(const Ambiente& ambiente, ArquivoRemessa& leiaute, const PedidoCompleto& pedido, Coletor& coletor,
               const std::atomic<bool>& cancelado) {
    PercursoDeLinhas percurso(ambiente, pedido.arquivo, cancelado);
    if (pedido.versao && percurso.versao() != *pedido.versao)
        throw Falha(numeroDeFalha::arquivoAlterado, "ConferenciaCompleta"_t, arquivoAlterado);
    SegundaMetade segundaMetade(ambiente, leiaute, pedido);
    JanelaDeLinhas janela(percurso);
    TiposDeLinha tipos(leiaute);
    ConteudoCompleto conteudo(coletor, leiaute, definicaoInicial(pedido), pedido.primeiras);
    PercursoCompleto completo(janela, tipos, coletor, conteudo,
                              [&](VistaTexto convenio) { return todosTem(ambiente, tipos, pedido.arquivo, convenio); });
    completo.dividirCom(segundaMetade);
    completo.percorrer([&] { return cancelado.load(std::memory_order_relaxed); });
    ResumoCompleto& resumo = coletor.resumo();
    resumo.registros = std::max(resumo.registros, percurso.lidas());
    conteudo.contarDatas(resumo);
    if (percurso.terminar()) return;
    resumo.desfecho = Desfecho::Cancelada;
    if (!coletor.temGuia()) return;
    coletor.conferirEmParte();
    coletor.encerrarGuia(true);
}

} // namespace

Definicao definicaoInicial(const PedidoCompleto& pedido) {
    Definicao definicao;
    definicao.PosicaoDataBarra = pedido.PosicaoDataBarra;
    definicao.FormatoDataBarra = pedido.FormatoDataBarra;
    return definicao;
}

ResumoCompleto conferirRemessa(const Ambiente& ambiente, ArquivoRemessa& leiaute, const PedidoCompleto& pedido,
                               std::span<Relator* const> ouvintes, const std::atomic<bool>& cancelado) {
    const Data hoje = ambiente.relogio.hoje();
    leiaute.criarCopias(false);
    leiaute.anoCorrente(anoDe(hoje));
    Coletor coletor(hoje, ouvintes, [&] {
        ambiente.painel.processarEventos();
        return cancelado.load(std::memory_order_relaxed);
    });
    const auto naoRodou = [&](VistaTexto motivo) {
        coletor.resumo().desfecho = Desfecho::NaoRodou;
        coletor.resumo().descricao = motivo;
    };
    try {
        if (julgarData(ambiente, leiaute, pedido, coletor, cancelado))
            percorrer(ambiente, leiaute, pedido, coletor, cancelado);
        else
            coletor.resumo().desfecho = Desfecho::Cancelada;
    } catch (const Falha& falha) {
        naoRodou(falha.descricao());
    } catch (const std::bad_alloc&) {
        naoRodou(memoriaInsuficiente);
    }
    return std::move(coletor.resumo());
}

} // namespace quilatador
