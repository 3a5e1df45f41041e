#include "validator/Depurador.h"

#include "layout/ArquivoRemessaBD.h"
#include "validator/checks/Guia.h"
#include "validator/Conteudo.h"
#include "validator/Sequencia.h"

#include <utility>

namespace quilatador {

namespace {

constexpr VistaTexto leiauteNaoCarregado = "Leiaute não carregado!"_t;

/// The two passes of one run.
class Depuracao final : public Analise {
  public:
    Depuracao(Rodada& rodada, ArquivoRemessa* leiaute, Definicao& definicao, GuiaEmMaos& guia)
        : rodada_(rodada), leiaute_(leiaute), definicao_(definicao), guia_(guia) {}

    [[nodiscard]] Desfecho analisar() override {
        if (!leiaute_) return semLeiaute();
        rodada_.progresso().totalRegistros =
            registrosDaRemessa(rodada_.ambiente().arquivos.tamanho(rodada_.nomeArquivo()));
        guia_ = GuiaEmMaos(*leiaute_);
        LeitorDeRegistros leitor(*leiaute_, rodada_);

        leitor.abrir();
        Sequencia sequencia(rodada_, leitor);
        if (!sequencia.verificar()) return Desfecho::Cancelada;
        definicao_.convenio = sequencia.convenioHeader();

        leitor.abrir();
        Conteudo conteudo(rodada_, leitor, definicao_, guia_);
        if (!conteudo.verificar()) return Desfecho::Cancelada;
        rodada_.conferirEntrada();
        conteudo.escreverResumo();
        return Desfecho::Concluida;
    }
    void fecharEntrada() noexcept override {
        if (leiaute_) leiaute_->fecharArquivoEntrada();
    }

  private:
    [[nodiscard]] Desfecho semLeiaute() {
        rodada_.resumo().descricao = leiauteNaoCarregado;
        rodada_.escreverLog(rodada_.resumo().descricao);
        return Desfecho::NaoRodou;
    }

    Rodada& rodada_;
    ArquivoRemessa* leiaute_;
    Definicao& definicao_;
    GuiaEmMaos& guia_;
};

} // namespace

Depurador::Depurador(Ambiente& ambiente, modVariaveis& globais, std::atomic<bool>& cancelado)
    : Cancelado(cancelado)
    , ambiente_(ambiente)
    , globais_(globais)
    , arquivoRemessa_(ArquivoRemessaBD::carregar(ambiente)) {}

Resumo Depurador::DepurarArquivo(const std::filesystem::path& nomeArquivo, std::optional<std::filesystem::path> log) {
    Rodada rodada(ambiente_, {.tipoArquivo = TipoArquivo::ZUL702, .nomeArquivo = nomeArquivo, .log = std::move(log)},
                  Cancelado);
    return depurar(rodada);
}

Resumo Depurador::depurar(Rodada& rodada) {
    if (PosicaoDataBarra == 0) FormatoDataBarra.clear();
    definicao_ = Definicao();
    definicao_.moeda = globais_.moeda;
    definicao_.PosicaoDataBarra = PosicaoDataBarra;
    definicao_.FormatoDataBarra = FormatoDataBarra;
    guia_ = GuiaEmMaos();
    if (arquivoRemessa_) arquivoRemessa_->anoCorrente(anoDe(rodada.hoje()));

    rodada_ = &rodada;
    Depuracao depuracao(rodada, arquivoRemessa_.get(), definicao_, guia_);
    Resumo resumo = rodada.executar(depuracao);
    rodada_ = nullptr;
    globais_.moeda = definicao_.moeda;
    FormatoDataBarra = definicao_.FormatoDataBarra;
    return resumo;
}

ResumoCompleto Depurador::conferirTudo(PedidoCompleto pedido, std::span<Relator* const> ouvintes) {
    if (!arquivoRemessa_) {
        ResumoCompleto resumo;
        resumo.desfecho = Desfecho::NaoRodou;
        resumo.descricao = leiauteNaoCarregado;
        return resumo;
    }
    pedido.PosicaoDataBarra = PosicaoDataBarra;
    if (PosicaoDataBarra != 0) pedido.FormatoDataBarra = FormatoDataBarra;
    return conferirRemessa(ambiente_, *arquivoRemessa_, pedido, ouvintes, Cancelado);
}

template <typename Pergunta>
bool Depurador::perguntar(Pergunta pergunta) {
    std::optional<Rodada> semLog;
    ApontadorDaRodada apontador(rodada_ ? *rodada_ : semLog.emplace(ambiente_, PedidoDeRodada(), Cancelado));
    return pergunta(apontador);
}

bool Depurador::VerificarGuia() {
    return perguntar([this](Apontador& apontador) { return verificarGuia(apontador, guia_, definicao_); });
}

bool Depurador::VerificarIdentificacaoGuia(const RegistroRemessa& registro) {
    return perguntar([&](Apontador& apontador) { return verificarIdentificacaoGuia(apontador, registro, definicao_); });
}

bool Depurador::VerificarObjeto(const RegistroRemessa& registro) {
    return perguntar([&](Apontador& apontador) {
        return verificarObjeto(apontador, registro, guia_.registroS(), definicao_.temSegmentoF);
    });
}

} // namespace quilatador
