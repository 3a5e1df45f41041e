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
    void juntar(VistaTexto rotulo, VistaTexto valor) { bloco().append(rotulo).append(valor).append("\r\n"); }
    template <typename Linha>
    void juntarData(VistaTexto rotulo, Linha linha, std::size_t inicio);
    void juntarValor(VistaTexto rotulo, VistaTexto centavos);
    void juntarSeparador();

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
    juntar("Convênio...............: "_t, trecho(linha, 3, 20));
    juntar("Empresa/Órgão..........: "_t, trecho(linha, 23, 20));
    juntar("Código do Banco........: "_t, trecho(linha, 43, 3));
    juntar("Nome do Banco..........: ", trecho(linha, 46, 20));
    juntarData("Data Geração do Arquivo: "_t, LinhaQualquer{linha}, 66);
    juntar("Sequencial.............: ", trecho(linha, 74, 6));
    juntar("Versão do Leiaute......: "_t, trecho(linha, 80, 2));
    juntarSeparador();
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
    juntar("Agência/Conta Creditada: "_t, linha.campo(2, 20));
    juntarData("Data de Pagamento......: ", linha, 22);
    juntarData("Data de Crédito........: "_t, linha, 30);
    juntar("Código de Barras.......: "_t, linha.campo(38, 44));
    juntarValor("Valor Recebido.........: ", linha.campo(82, 12));
    juntarValor("Valor da Tarifa........: ", linha.campo(94, 7));
    juntar("Sequencial de Registro.: ", linha.campo(101, 8));
    juntar("Agência Arrecadadora...: "_t, linha.campo(109, 8));
    juntar("Forma de Arrecadação...: "_t, consultas().formaArrecadacao(linha.campo(117, 1)));
    juntar("Autenticação...........: "_t, linha.campo(118, 23));
    juntar("Forma de Pagamento.....: ", consultas().formaPagamento(linha.campo(141, 1)));
    juntarSeparador();
}

void RelatorioTAV001::juntarTotais(VistaTexto linha) {
    juntar("Total de Registros do Arquivo: ", trecho(linha, 2, 6));
    juntarValor("Valor Total Recebido.........: ", trecho(linha, 8, 17));
    juntar("", "");
}

/// A date year-month-day is shown as day/month/year, whatever stands in its places.
template <typename Linha>
void RelatorioTAV001::juntarData(VistaTexto rotulo, Linha linha, std::size_t inicio) {
    bloco().append(rotulo).append(linha.campo(inicio + 6, 2)).append("/");
    bloco().append(linha.campo(inicio + 4, 2)).append("/").append(linha.campo(inicio, 4)).append("\r\n");
}

void RelatorioTAV001::juntarValor(VistaTexto rotulo, VistaTexto centavos) {
    if (!soDigitos(centavos)) {
        juntar(rotulo, formatarCentavos(centavos, milhar_, decimal_));
        return;
    }
    juntarCentavos(bloco().append(rotulo), centavos, milhar_, decimal_);
    bloco().append("\r\n");
}

void RelatorioTAV001::juntarSeparador() {
    juntar("", "");
    juntar(separador, "");
    juntar("", "");
}

} // namespace

ResultadoRetorno tratarRetornoTAV001(Ambiente& ambiente, const modVariaveis& globais, const PedidoDeRetorno& pedido,
                                     const std::atomic<bool>& cancelado) {
    return RelatorioTAV001(ambiente, globais, pedido).executar(cancelado);
}

} // namespace quilatador
