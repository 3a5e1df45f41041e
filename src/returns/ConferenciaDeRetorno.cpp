#include "returns/ConferenciaDeRetorno.h"

#include "common/Falha.h"
#include "common/Numero.h"
#include "returns/Ocorrencias.h"
#include "returns/TipoDoRetorno.h"
#include "run/PercursoDeLinhas.h"

#include <algorithm>
#include <new>
#include <optional>
#include <utility>

namespace quilatador {

namespace {

/// What the checks of both types share: the walk over the file, the numbers of the findings, and the counts.
class Conferente {
  public:
    Conferente(TipoArquivo tipo, std::span<Relator* const> ouvintes) : tipo_(tipo), ouvintes_(ouvintes) {}
    virtual ~Conferente() = default;
    Conferente(const Conferente&) = delete;
    Conferente& operator=(const Conferente&) = delete;

    [[nodiscard]] ResumoCompleto conferir(const Ambiente& ambiente, const std::filesystem::path& arquivo,
                                          const std::atomic<bool>& cancelado,
                                          const std::optional<VersaoDoArquivo>& versao);

  protected:
    /// Checks one line, whose number is 1-based.
    virtual void conferirLinha(VistaTexto linha, std::int64_t numero) = 0;
    /// Checks what only the end of the file can tell.
    virtual void conferirTotais() {}
    /// Called last, however the check ended.
    virtual void encerrar() {}

    /// Numbers a finding, counts it and hands it on. Returns its number.
    std::int64_t apontar(Achado achado);
    /// Tells of a slip that it is not right.
    void apontarGuia(const GuiaConferida& guia) {
        for (Relator* const ouvinte : ouvintes_)
            ouvinte->guia(guia);
    }
    [[nodiscard]] ResumoCompleto& resumo() noexcept { return resumo_; }

  private:
    void percorrer(PercursoDeLinhas& percurso);
    void ler(PercursoDeLinhas& percurso);
    void parar(Desfecho desfecho, VistaTexto descricao);

    TipoArquivo tipo_;
    std::span<Relator* const> ouvintes_;
    ResumoCompleto resumo_;
    std::optional<Achado> recusa_;
    std::int64_t n_ = 0;
};

ResumoCompleto Conferente::conferir(const Ambiente& ambiente, const std::filesystem::path& arquivo,
                                    const std::atomic<bool>& cancelado, const std::optional<VersaoDoArquivo>& versao) {
    try {
        PercursoDeLinhas percurso(ambiente, arquivo, cancelado);
        if (versao && percurso.versao() != *versao)
            throw Falha(numeroDeFalha::arquivoAlterado, "ConferenciaDeRetorno"_t, arquivoAlterado);
        percorrer(percurso);
    } catch (const Falha& falha) {
        parar(Desfecho::NaoRodou, falha.descricao());
    } catch (const std::bad_alloc&) {
        parar(Desfecho::NaoRodou, memoriaInsuficiente);
    }
    encerrar();
    return resumo_;
}

void Conferente::percorrer(PercursoDeLinhas& percurso) {
    try {
        ler(percurso);
    } catch (const Falha&) {
        static_cast<void>(percurso.terminar()); // that the file was changed says more than what came of it
        throw;
    }
    if (!percurso.terminar()) return parar(Desfecho::Cancelada, {});
    if (!recusa_) return conferirTotais();
    apontar(*recusa_);
    parar(Desfecho::Falhou, recusa_->mensagem);
}

void Conferente::ler(PercursoDeLinhas& percurso) {
    while (const std::optional<VistaTexto> linha = percurso.proxima()) {
        ++resumo_.registros;
        if (resumo_.registros == 1 && (recusa_ = recusaDoTipo(tipo_, *linha))) return;
        conferirLinha(*linha, resumo_.registros);
    }
}

void Conferente::parar(Desfecho desfecho, VistaTexto descricao) {
    resumo_.desfecho = desfecho;
    resumo_.descricao = descricao;
}

std::int64_t Conferente::apontar(Achado achado) {
    achado.n = ++n_;
    if (achado.gravidade == Gravidade::Ocorrencia) ++resumo_.ocorrencias;
    if (contaComoErro(achado.gravidade, achado.discutido)) {
        ++resumo_.erros;
        if (achado.causa == 0) ++resumo_.causas;
    }
    for (Relator* const ouvinte : ouvintes_)
        ouvinte->achado(achado);
    return achado.n;
}

/// A field of a settlement return.
struct Campo {
    VistaTexto nome;
    std::size_t inicio; ///< 1-based
    std::size_t tamanho;

    [[nodiscard]] VistaTexto de(VistaTexto linha) const { return trecho(linha, inicio, tamanho); }
    [[nodiscard]] CampoDoAchado comoAchado(VistaTexto linha, std::optional<Texto> esperado) const {
        return {Texto(nome), static_cast<int>(inicio), static_cast<int>(inicio + tamanho - 1), Texto(de(linha)),
                std::move(esperado)};
    }
};

constexpr Campo valorRecebido{"ValorRecebido"_t, 82, 12};
constexpr Campo totalRegistros{"TotalRegistros"_t, 2, 6};
constexpr Campo valorTotal{"ValorTotal"_t, 8, 17};

constexpr std::int64_t numerosDeRegistros = 1'000'000;     // as many as its field can hold
constexpr std::int64_t semLugar = 100'000'000'000'000'000; // the first sum of cents that does not fit into its field

class ConferenteTAV001 final : public Conferente {
  public:
    ConferenteTAV001(Localidade& localidade, std::span<Relator* const> ouvintes)
        : Conferente(TipoArquivo::TAV001, ouvintes), localidade_(localidade) {}

  private:
    /// What a trailer has to say of the records.
    struct Totais {
        std::int64_t registros = 0;
        std::int64_t valor = 0;    ///< in cents; `semLugar` for any larger sum
        std::int64_t ilegivel = 0; ///< number of the finding about the first amount that cannot be read; 0 for none
    };
    struct Trailer {
        std::int64_t numero;
        Texto linha;
        Totais totais; ///< of the records up to this one
    };

    void conferirLinha(VistaTexto linha, std::int64_t numero) override;
    void conferirTotais() override;

    void somarPagamento(VistaTexto linha, std::int64_t numero);
    void conferirOQueSegue();
    void conferirNumeroDeRegistros();
    void conferirValor();
    void apontarDiferenca(VistaTexto id, const Campo& campo, std::optional<Texto> esperado, Texto mensagem,
                          std::int64_t causa = 0);
    [[nodiscard]] Texto somaPorExtenso() const;

    Localidade& localidade_;
    Totais todos_;
    std::optional<Trailer> trailer_;
    std::int64_t ultimo_ = 0; ///< line number of the last record
    std::int64_t depois_ = 0; ///< line number of the first record behind the trailer; 0 if there is none
    char letraDepois_ = 0;
};

void ConferenteTAV001::conferirLinha(VistaTexto linha, std::int64_t numero) {
    if (semBrancosAEsquerda(linha).empty()) return;
    ++todos_.registros;
    ultimo_ = numero;
    if (trailer_ && depois_ == 0) {
        depois_ = numero;
        letraDepois_ = linha.front();
    }
    if (linha.starts_with('G')) somarPagamento(linha, numero);
    if (linha.starts_with('Z') && !trailer_) trailer_ = Trailer{numero, Texto(linha), todos_};
}

void ConferenteTAV001::somarPagamento(VistaTexto linha, std::int64_t numero) {
    const VistaTexto centavos = valorRecebido.de(linha);
    const std::optional<double> valor = numeroDeDigitos(centavos); // exact: it has fewer digits than a double holds
    if (valor && centavos.size() == valorRecebido.tamanho) {
        todos_.valor = std::min(todos_.valor + static_cast<std::int64_t>(*valor), semLugar);
        return;
    }
    const std::int64_t n = apontar({.id = "tav001.valor.ilegivel"_t,
                                    .linha = numero,
                                    .segmento = 'G',
                                    .campo = valorRecebido.comoAchado(linha, std::nullopt),
                                    .mensagem = Texto("Valor recebido não está em algarismos"_t)});
    if (todos_.ilegivel == 0) todos_.ilegivel = n;
}

void ConferenteTAV001::conferirTotais() {
    if (!trailer_) {
        apontar({.id = "tav001.trailer.ausente"_t,
                 .linha = ultimo_,
                 .campo = std::nullopt,
                 .mensagem = Texto("Trailer (registro 'Z') não encontrado"_t)});
        return;
    }
    conferirOQueSegue();
    conferirNumeroDeRegistros();
    conferirValor();
}

void ConferenteTAV001::conferirOQueSegue() {
    if (depois_ == 0) return;
    apontar(
        {.id = "tav001.depoisDoTrailer"_t,
         .linha = depois_,
         .segmento = letraDepois_,
         .campo = std::nullopt,
         .mensagem = junta("Registros depois do trailer: "_t, textoDe(todos_.registros - trailer_->totais.registros))});
}

void ConferenteTAV001::conferirNumeroDeRegistros() {
    const auto escrito = [](const Totais& totais) {
        return comZeros(totais.registros % numerosDeRegistros, totalRegistros.tamanho);
    };
    const VistaTexto informado = totalRegistros.de(trailer_->linha);
    if (informado == escrito(trailer_->totais) || informado == escrito(todos_)) return;
    apontarDiferenca(
        "tav001.totalRegistros.diferente"_t, totalRegistros, escrito(trailer_->totais),
        junta("Total de registros do trailer difere do número de registros: "_t, textoDe(trailer_->totais.registros)));
}

void ConferenteTAV001::conferirValor() {
    const auto escrito = [](const Totais& totais) -> std::optional<Texto> {
        if (totais.valor == semLugar) return std::nullopt;
        return comZeros(totais.valor, valorTotal.tamanho);
    };
    const VistaTexto informado = valorTotal.de(trailer_->linha);
    const Totais& totais = trailer_->totais;
    if (informado == escrito(totais) || informado == escrito(todos_)) return;
    apontarDiferenca("tav001.valorTotal.diferente"_t, valorTotal, totais.ilegivel == 0 ? escrito(totais) : std::nullopt,
                     junta("Valor total do trailer difere da soma dos pagamentos: "_t, somaPorExtenso()),
                     totais.ilegivel);
}

void ConferenteTAV001::apontarDiferenca(VistaTexto id, const Campo& campo, std::optional<Texto> esperado,
                                        Texto mensagem, std::int64_t causa) {
    apontar({.id = id,
             .linha = trailer_->numero,
             .segmento = 'Z',
             .campo = campo.comoAchado(trailer_->linha, std::move(esperado)),
             .mensagem = std::move(mensagem),
             .causa = causa});
}

Texto ConferenteTAV001::somaPorExtenso() const {
    const Totais& totais = trailer_->totais;
    if (totais.valor == semLugar) return Texto("mais do que cabe no campo"_t);
    Texto soma =
        formatarCentavos(textoDe(totais.valor), localidade_.separadorDeMilhar(), localidade_.separadorDecimal());
    return totais.ilegivel == 0 ? soma : soma += ", sem os valores que não puderam ser lidos"_t;
}

class ConferenteZUL708 final : public Conferente {
  public:
    ConferenteZUL708(BancoDeDados* banco, std::span<Relator* const> ouvintes)
        : Conferente(TipoArquivo::ZUL708, ouvintes), consultas_(banco) {}

  private:
    void conferirLinha(VistaTexto linha, std::int64_t numero) override;
    void encerrar() override;

    void iniciarGuia(VistaTexto linha, std::int64_t numero);
    void contarGuiaComErro();

    ConsultasDaRodada consultas_;
    Texto idGuia_; ///< of the last slip
    std::int64_t linhaDaGuia_ = 0;
    bool guiaComErro_ = false;
};

void ConferenteZUL708::conferirLinha(VistaTexto linha, std::int64_t numero) {
    if (linha.starts_with('S')) iniciarGuia(linha, numero);
    const Ocorrencias ocorrencias(linha);
    if (ocorrencias.nenhuma()) return;
    ContagemDeGuias& guias = resumo().guias;
    const bool daGuia = guias.lidas > 0 && linha.front() >= 'S' && linha.front() != 'Z';
    for (std::size_t i = 0; i < Ocorrencias::lugares; ++i) {
        if (!ocorrencias.tem(i)) continue;
        Achado achado = ocorrencias.achado(i, numero, consultas_);
        if (daGuia) {
            achado.guia = guias.lidas;
            achado.idGuia = idGuia_;
            contarGuiaComErro();
        }
        apontar(std::move(achado));
    }
}

void ConferenteZUL708::contarGuiaComErro() {
    if (std::exchange(guiaComErro_, true)) return;
    ++resumo().guias.comErro;
    apontarGuia({.guia = resumo().guias.lidas,
                 .linha = linhaDaGuia_,
                 .idGuia = idGuia_,
                 .estado = GuiaConferida::Estado::ComErro});
}

void ConferenteZUL708::iniciarGuia(VistaTexto linha, std::int64_t numero) {
    constexpr std::size_t inicio = 12; // as in the remittance that is answered
    constexpr std::size_t tamanho = 15;
    ++resumo().guias.lidas;
    idGuia_ = trecho(linha, inicio, tamanho);
    linhaDaGuia_ = numero;
    guiaComErro_ = false;
}

/// The last slip may have gone on behind the place where the check ended.
void ConferenteZUL708::encerrar() {
    ContagemDeGuias& guias = resumo().guias;
    guias.emParte = resumo().parcial() && guias.lidas > 0 && !guiaComErro_ ? 1 : 0;
    if (guias.emParte > 0)
        apontarGuia(
            {.guia = guias.lidas, .linha = linhaDaGuia_, .idGuia = idGuia_, .estado = GuiaConferida::Estado::EmParte});
    guias.certas = guias.lidas - guias.comErro - guias.emParte;
}

} // namespace

ResumoCompleto conferirRetorno(TipoArquivo tipo, const Ambiente& ambiente, const std::filesystem::path& arquivo,
                               const modVariaveis& globais, std::span<Relator* const> ouvintes,
                               const std::atomic<bool>& cancelado, const std::optional<VersaoDoArquivo>& versao) {
    if (tipo == TipoArquivo::ZUL708)
        return ConferenteZUL708(globais.bancoDeDados, ouvintes).conferir(ambiente, arquivo, cancelado, versao);
    return ConferenteTAV001(ambiente.localidade, ouvintes).conferir(ambiente, arquivo, cancelado, versao);
}

} // namespace quilatador
