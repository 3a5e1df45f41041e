#include "returns/modTrataTAV001.h"

#include "common/Numero.h"

namespace quilatador {

namespace {

/// Ends the report on one record.
constexpr VistaTexto separador = "\r\n\r\n----------------------------------------------\r\n\r\n"_t;

/// A line of any length. A field that goes beyond its end is cut, or empty.
struct LinhaQualquer {
    VistaTexto texto;

    [[nodiscard]] VistaTexto campo(std::size_t inicio, std::size_t tamanho) const {
        return trecho(texto, inicio, tamanho);
    }
};

/// A line that is long enough for all fields of a payment. Their lengths are known at compile time, which makes copying
/// them faster.
struct PagamentoInteiro {
    static constexpr std::size_t tamanho = 141;
    const char* texto;

    [[nodiscard]] VistaTexto campo(std::size_t inicio, std::size_t quantos) const {
        return {texto + inicio - 1, quantos};
    }
};

/// The day, month and year of a date in the order year, month, day. They are copied without a check, whatever they
/// contain.
template <typename Linha>
struct DataDaLinha {
    VistaTexto dia;
    VistaTexto mes;
    VistaTexto ano;

    DataDaLinha(Linha linha, std::size_t inicio)
        : dia(linha.campo(inicio + 6, 2)), mes(linha.campo(inicio + 4, 2)), ano(linha.campo(inicio, 4)) {}
};

class RelatorioTAV001 final : public AnaliseDeRetorno {
  public:
    RelatorioTAV001(Rodada& rodada, const modVariaveis& globais)
        : AnaliseDeRetorno(TipoArquivo::TAV001, rodada, globais)
        , milhar_(rodada.ambiente().localidade.separadorDeMilhar())
        , decimal_(rodada.ambiente().localidade.separadorDecimal()) {}

  private:
    void tratarHeader(VistaTexto linha) override;
    void tratarLinha(VistaTexto linha) override;

    template <typename Linha>
    void juntarPagamento(Linha linha);
    void juntarTotais(VistaTexto linha);
    void juntarValor(Bloco::Caneta& caneta, VistaTexto centavos) const;
    /// The largest number of bytes of a header or a payment, not counting the names of channel and form.
    [[nodiscard]] std::size_t maiorTraco() const {
        constexpr std::size_t rotulosECampos = 1024;
        constexpr std::size_t separadores = 16; // more than the amounts of a record need
        return rotulosECampos + separadores * (milhar_.size() + decimal_.size());
    }

    Texto milhar_;
    Texto decimal_;
};

void RelatorioTAV001::tratarHeader(VistaTexto linha) {
    mostrar(Rotulo::Remessa, junta("Sequencial: "_t, trecho(linha, 74, 6)));
    mostrar(Rotulo::Empresa, junta("Empresa/Órgão: "_t, trecho(linha, 23, 20)));
    const DataDaLinha geracao(LinhaQualquer{linha}, 66);
    Bloco::Caneta caneta = rodada().comecar(maiorTraco());
    caneta.append("Convênio...............: "_t, trecho(linha, 3, 20), "\r\n"_t, //
                  "Empresa/Órgão..........: "_t, trecho(linha, 23, 20), "\r\n"_t, "Código do Banco........: "_t,
                  trecho(linha, 43, 3), "\r\n"_t, //
                  "Nome do Banco..........: "_t, trecho(linha, 46, 20), "\r\n"_t, "Data Geração do Arquivo: "_t,
                  geracao.dia, "/"_t, geracao.mes, "/"_t, geracao.ano, "\r\n"_t, "Sequencial.............: "_t,
                  trecho(linha, 74, 6), "\r\n"_t, //
                  "Versão do Leiaute......: "_t, trecho(linha, 80, 2), separador);
    rodada().terminar(caneta);
}

void RelatorioTAV001::tratarLinha(VistaTexto linha) {
    const bool pagamento = linha.starts_with('G');
    if (pagamento && linha.size() >= PagamentoInteiro::tamanho) juntarPagamento(PagamentoInteiro{linha.data()});
    if (pagamento && linha.size() < PagamentoInteiro::tamanho) juntarPagamento(LinhaQualquer{linha});
    if (linha.starts_with('Z')) juntarTotais(linha);
}

template <typename Linha>
void RelatorioTAV001::juntarPagamento(Linha linha) {
    const DataDaLinha pagamento(linha, 22);
    const DataDaLinha credito(linha, 30);
    Bloco::Caneta caneta = rodada().comecar(maiorTraco());
    caneta.append("Agência/Conta Creditada: "_t, linha.campo(2, 20), "\r\nData de Pagamento......: "_t, pagamento.dia,
                  "/"_t, pagamento.mes, "/"_t, pagamento.ano, "\r\nData de Crédito........: "_t, credito.dia, "/"_t,
                  credito.mes, "/"_t, credito.ano, "\r\nCódigo de Barras.......: "_t, linha.campo(38, 44),
                  "\r\nValor Recebido.........: "_t);
    juntarValor(caneta, linha.campo(82, 12));
    caneta.append("\r\nValor da Tarifa........: "_t);
    juntarValor(caneta, linha.campo(94, 7));
    caneta.append("\r\nSequencial de Registro.: "_t, linha.campo(101, 8), //
                  "\r\nAgência Arrecadadora...: "_t, linha.campo(109, 8), "\r\n"_t);
    rodada().terminar(caneta); // written before the look-ups, so that it is in the log if one of them fails

    const VistaTexto canal = consultas().formaArrecadacao(linha.campo(117, 1));
    caneta = rodada().comecar(maiorTraco() + canal.size());
    caneta.append("Forma de Arrecadação...: "_t, canal, //
                  "\r\nAutenticação...........: "_t, linha.campo(118, 23), "\r\n"_t);
    rodada().terminar(caneta);

    const VistaTexto forma = consultas().formaPagamento(linha.campo(141, 1));
    caneta = rodada().comecar(maiorTraco() + forma.size());
    caneta.append("Forma de Pagamento.....: "_t, forma, separador);
    rodada().terminar(caneta);
}

void RelatorioTAV001::juntarTotais(VistaTexto linha) {
    Bloco::Caneta caneta = rodada().comecar(maiorTraco());
    caneta.append("Total de Registros do Arquivo: "_t, trecho(linha, 2, 6), "\r\nValor Total Recebido.........: "_t);
    juntarValor(caneta, trecho(linha, 8, 17));
    caneta.append("\r\n\r\n"_t);
    rodada().terminar(caneta);
}

void RelatorioTAV001::juntarValor(Bloco::Caneta& caneta, VistaTexto centavos) const {
    if (soDigitos(centavos)) {
        const Centavos valor(centavos, milhar_, decimal_);
        valor.escrever(caneta.reservar(valor.tamanho()));
    } else {
        caneta.append(formatarCentavos(centavos, milhar_, decimal_));
    }
}

} // namespace

Resumo tratarRetornoTAV001(Rodada& rodada, const modVariaveis& globais) {
    RelatorioTAV001 relatorio(rodada, globais);
    return rodada.executar(relatorio);
}

} // namespace quilatador
