#include "returns/modTrataTAV001.h"

#include "common/Numero.h"

#include <array>

namespace quilatador {

namespace {

constexpr VistaTexto separador = "----------------------------------------------";

/// What the first line must have.
struct Exigencia {
    VistaTexto campo;
    std::size_t inicio;
    VistaTexto valor;
};

constexpr std::array exigencias{Exigencia{"TipoReg", 1, "A"}, Exigencia{"CodigoRemessa", 2, "2"},
                                Exigencia{"VersaoLayout", 80, "03"}};

/// A line that may end before any of its fields does.
struct LinhaQualquer {
    VistaTexto texto;

    [[nodiscard]] VistaTexto campo(std::size_t inicio, std::size_t tamanho) const {
        return trecho(texto, inicio, tamanho);
    }
};

/// A line long enough for all fields of a payment: their lengths are known when this is compiled.
struct PagamentoInteiro {
    static constexpr std::size_t tamanho = 141;
    const char* texto;

    [[nodiscard]] VistaTexto campo(std::size_t inicio, std::size_t quantos) const {
        return {texto + inicio - 1, quantos};
    }
};

void juntar(Bloco::Caneta& caneta, VistaTexto rotulo, VistaTexto valor) {
    caneta.append(rotulo).append(valor).append("\r\n");
}

/// A date year-month-day is shown as day/month/year, whatever stands in its places.
template <typename Linha>
void juntarData(Bloco::Caneta& caneta, VistaTexto rotulo, Linha linha, std::size_t inicio) {
    caneta.append(rotulo).append(linha.campo(inicio + 6, 2)).append("/");
    caneta.append(linha.campo(inicio + 4, 2)).append("/").append(linha.campo(inicio, 4)).append("\r\n");
}

void juntarSeparador(Bloco::Caneta& caneta) {
    caneta.append("\r\n").append(separador).append("\r\n\r\n");
}

class RelatorioTAV001 final : public AnaliseDeRetorno {
  public:
    RelatorioTAV001(Ambiente& ambiente, const modVariaveis& globais, const PedidoDeRetorno& pedido)
        : AnaliseDeRetorno(ambiente, globais, pedido)
        , milhar_(localidade().separadorDeMilhar())
        , decimal_(localidade().separadorDecimal()) {}

  private:
    [[nodiscard]] std::optional<Achado> tratarHeader(VistaTexto linha) override;
    void tratarLinha(VistaTexto linha) override;

    template <typename Linha>
    void juntarPagamento(Linha linha);
    void juntarTotais(VistaTexto linha);
    void juntarValor(Bloco::Caneta& caneta, VistaTexto rotulo, VistaTexto centavos) const;
    /// Bytes of a payment or the header at the most, the names of channel and form aside.
    [[nodiscard]] std::size_t maiorTraco() const {
        constexpr std::size_t rotulosECampos = 1024;
        constexpr std::size_t separadores = 16; // of the amounts
        return rotulosECampos + separadores * (milhar_.size() + decimal_.size());
    }

    Texto milhar_;
    Texto decimal_;
};

std::optional<Achado> RelatorioTAV001::tratarHeader(VistaTexto linha) {
    for (const auto& [campo, inicio, valor] : exigencias) {
        const VistaTexto encontrado = trecho(linha, inicio, valor.size());
        if (encontrado == valor) continue;
        return Achado{.id = "tav001.tipoInvalido",
                      .gravidade = Gravidade::Estrutural,
                      .linha = linhaAtual(),
                      .campo =
                          CampoDoAchado{Texto(campo), static_cast<int>(inicio),
                                        static_cast<int>(inicio + valor.size() - 1), Texto(encontrado), Texto(valor)},
                      .mensagem = junta("Linha: ", trecho(linha, 235, 6),
                                        " - O Arquivo não é do tipo TAV001 ou a versão é diferente de 03!"_t)};
    }
    mostrar(Rotulo::Remessa, junta("Sequencial: ", trecho(linha, 74, 6)));
    mostrar(Rotulo::Empresa, junta("Empresa/Órgão: "_t, trecho(linha, 23, 20)));
    Bloco::Caneta caneta = bloco().comecar(maiorTraco());
    juntar(caneta, "Convênio...............: "_t, trecho(linha, 3, 20));
    juntar(caneta, "Empresa/Órgão..........: "_t, trecho(linha, 23, 20));
    juntar(caneta, "Código do Banco........: "_t, trecho(linha, 43, 3));
    juntar(caneta, "Nome do Banco..........: ", trecho(linha, 46, 20));
    juntarData(caneta, "Data Geração do Arquivo: "_t, LinhaQualquer{linha}, 66);
    juntar(caneta, "Sequencial.............: ", trecho(linha, 74, 6));
    juntar(caneta, "Versão do Leiaute......: "_t, trecho(linha, 80, 2));
    juntarSeparador(caneta);
    bloco().terminar(caneta);
    return std::nullopt;
}

void RelatorioTAV001::tratarLinha(VistaTexto linha) {
    const bool pagamento = linha.starts_with('G');
    if (pagamento && linha.size() >= PagamentoInteiro::tamanho) juntarPagamento(PagamentoInteiro{linha.data()});
    if (pagamento && linha.size() < PagamentoInteiro::tamanho) juntarPagamento(LinhaQualquer{linha});
    if (linha.starts_with('Z')) juntarTotais(linha);
}

template <typename Linha>
void RelatorioTAV001::juntarPagamento(Linha linha) {
    Bloco::Caneta caneta = bloco().comecar(maiorTraco());
    juntar(caneta, "Agência/Conta Creditada: "_t, linha.campo(2, 20));
    juntarData(caneta, "Data de Pagamento......: ", linha, 22);
    juntarData(caneta, "Data de Crédito........: "_t, linha, 30);
    juntar(caneta, "Código de Barras.......: "_t, linha.campo(38, 44));
    juntarValor(caneta, "Valor Recebido.........: ", linha.campo(82, 12));
    juntarValor(caneta, "Valor da Tarifa........: ", linha.campo(94, 7));
    juntar(caneta, "Sequencial de Registro.: ", linha.campo(101, 8));
    juntar(caneta, "Agência Arrecadadora...: "_t, linha.campo(109, 8));
    bloco().terminar(caneta); // what stands before a look-up that fails is in the log

    const VistaTexto canal = consultas().formaArrecadacao(linha.campo(117, 1));
    caneta = bloco().comecar(maiorTraco() + canal.size());
    juntar(caneta, "Forma de Arrecadação...: "_t, canal);
    juntar(caneta, "Autenticação...........: "_t, linha.campo(118, 23));
    bloco().terminar(caneta);

    const VistaTexto forma = consultas().formaPagamento(linha.campo(141, 1));
    caneta = bloco().comecar(maiorTraco() + forma.size());
    juntar(caneta, "Forma de Pagamento.....: ", forma);
    juntarSeparador(caneta);
    bloco().terminar(caneta);
}

void RelatorioTAV001::juntarTotais(VistaTexto linha) {
    Bloco::Caneta caneta = bloco().comecar(maiorTraco());
    juntar(caneta, "Total de Registros do Arquivo: ", trecho(linha, 2, 6));
    juntarValor(caneta, "Valor Total Recebido.........: ", trecho(linha, 8, 17));
    caneta.append("\r\n");
    bloco().terminar(caneta);
}

void RelatorioTAV001::juntarValor(Bloco::Caneta& caneta, VistaTexto rotulo, VistaTexto centavos) const {
    caneta.append(rotulo);
    if (soDigitos(centavos))
        juntarCentavos(caneta, centavos, milhar_, decimal_);
    else
        caneta.append(formatarCentavos(centavos, milhar_, decimal_));
    caneta.append("\r\n");
}

} // namespace

ResultadoRetorno tratarRetornoTAV001(Ambiente& ambiente, const modVariaveis& globais, const PedidoDeRetorno& pedido,
                                     const std::atomic<bool>& cancelado) {
    return RelatorioTAV001(ambiente, globais, pedido).executar(cancelado);
}

} // namespace quilatador
