#include "validator/completa/SegundaMetade.h"

#include "validator/completa/PercursoCompleto.h"

#include <chrono>
#include <memory>
#include <new>
#include <system_error>

namespace quilatador {

namespace {

/// Below so many records a second thread gains nothing that anybody would notice.
constexpr std::int64_t poucosRegistros = 20'000;

/// Shows nothing: the display belongs to the first thread.
class SemPainel final : public Painel {
  public:
    void iniciarProgresso(const Progresso& /*progresso*/) override {}
    void avancar(const Progresso& /*progresso*/) override {}
    void concluirProgresso(const Progresso& /*progresso*/) override {}
    void processarEventos() override {}
    void mensagem(const Mensagem& /*mensagem*/) override {}
    [[nodiscard]] std::optional<double> primeirasGuias() const override { return std::nullopt; }
};

/// Gives up at the first finding.
class Desistente final : public Relator {
  public:
    explicit Desistente(std::atomic<bool>& parar) noexcept : parar_(parar) {}
    void achado(const Achado& /*achado*/) override { parar_ = true; }

  private:
    std::atomic<bool>& parar_;
};

std::optional<MetadeLimpa> conferir(const Ambiente& ambiente, ArquivoRemessa& leiaute, const PedidoCompleto& pedido,
                                    const Data& hoje, std::int64_t meio, std::atomic<bool>& parar) {
    SemPainel painel;
    const Ambiente semTela{
        painel, ambiente.relogio, ambiente.localidade, ambiente.lancador, ambiente.arquivos, ambiente.pastaDoPrograma};
    Desistente desistente(parar);
    Relator* const ouvintes[] = {&desistente};
    const auto parou = [&] { return parar.load(std::memory_order_relaxed); };
    PercursoDeLinhas percurso(semTela, pedido.arquivo, parar);
    if (pedido.versao && percurso.versao() != *pedido.versao) return std::nullopt;
    JanelaDeLinhas janela(percurso);
    TiposDeLinha tipos(leiaute);
    Coletor coletor(hoje, ouvintes, parou);
    ConteudoCompleto conteudo(coletor, leiaute, definicaoInicial(pedido), std::nullopt);
    PercursoCompleto completo(janela, tipos, coletor, conteudo, [](VistaTexto) { return false; });
    completo.saltarGuiasAntesDe(meio);
    completo.percorrer(parou);
    if (!percurso.terminar()) return std::nullopt;
    return MetadeLimpa{.guias = coletor.resumo().guias,
                       .datas = conteudo.datas(),
                       .registros = percurso.lidas(),
                       .definicoes = conteudo.definicoes()};
}

/// A layout that shares nothing with the other, since reading a line changes its record type.
std::unique_ptr<ArquivoRemessa> copiaDo(const ArquivoRemessa& leiaute, const Ambiente& ambiente, const Data& hoje) {
    auto copia = std::make_unique<ArquivoRemessa>(ambiente.arquivos, ambiente.relogio);
    for (const auto& tipo : leiaute.tiposRegistros())
        copia->addTipoRegistro(std::make_shared<RegistroRemessa>(tipo->copia()));
    copia->criarCopias(false);
    copia->anoCorrente(anoDe(hoje));
    return copia;
}

} // namespace

SegundaMetade::SegundaMetade(const Ambiente& ambiente, const ArquivoRemessa& leiaute, const PedidoCompleto& pedido) {
    const std::int64_t registros = registrosDaRemessa(ambiente.arquivos.tamanho(pedido.arquivo));
    if (registros < poucosRegistros || pedido.primeiras) return;
    meio_ = registros / 2;
    try {
        const Data hoje = ambiente.relogio.hoje();
        resultado_ = std::async(
            std::launch::async,
            [&ambiente, &pedido, hoje, this](const std::unique_ptr<ArquivoRemessa>& copia) {
                try {
                    return conferir(ambiente, *copia, pedido, hoje, meio_, parar_);
                } catch (const Falha&) { // the first thread meets it as well, and tells it
                    return std::optional<MetadeLimpa>();
                } catch (const std::bad_alloc&) {
                    return std::optional<MetadeLimpa>();
                }
            },
            copiaDo(leiaute, ambiente, hoje));
    } catch (const std::system_error&) { // then the first thread goes through all of the file
        resultado_ = {};
    }
}

std::optional<MetadeLimpa> SegundaMetade::esperar(const std::function<bool()>& desistir) {
    constexpr std::chrono::milliseconds espera{50};
    while (resultado_.wait_for(espera) == std::future_status::timeout)
        if (desistir()) parar_ = true;
    return resultado_.get();
}

SegundaMetade::~SegundaMetade() {
    parar_ = true;
    if (resultado_.valid()) resultado_.wait();
}

} // namespace quilatador
