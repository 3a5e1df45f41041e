#include "returns/modTrataTAV001.h"

#include "common/Falha.h"
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

/// A report is made of many small texts: those of one record are joined in a block, always the same one, and written
/// at once.
class RelatorioTAV001 final : public AnaliseDeRetorno {
  public:
    RelatorioTAV001(Ambiente& ambiente, const modVariaveis& globais, const PedidoDeRetorno& pedido)
        : AnaliseDeRetorno(ambiente, globais, pedido)
        , milhar_(localidade().separadorDeMilhar())
        , decimal_(localidade().separadorDecimal()) {}

  private:
    [[nodiscard]] std::optional<Achado> tratarHeader(VistaTexto linha) override;
    void tratarLinha(VistaTexto linha) override;

    void juntarPagamento(VistaTexto linha);
    void juntarTotais(VistaTexto linha);
    void juntar(VistaTexto rotulo, VistaTexto valor);
    void juntarData(VistaTexto rotulo, VistaTexto data);
    void juntarValor(VistaTexto rotulo, VistaTexto centavos);
    void juntarSeparador();
    void escreverBlocoEmMaos();

    Texto milhar_;
    Texto decimal_;
    Texto bloco_;
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
    juntarData("Data Geração do Arquivo: "_t, trecho(linha, 66, 8));
    juntar("Sequencial.............: ", trecho(linha, 74, 6));
    juntar("Versão do Leiaute......: "_t, trecho(linha, 80, 2));
    juntarSeparador();
    escreverBlocoEmMaos();
    return std::nullopt;
}

void RelatorioTAV001::tratarLinha(VistaTexto linha) {
    try {
        if (linha.starts_with('G')) juntarPagamento(linha);
        if (linha.starts_with('Z')) juntarTotais(linha);
    } catch (const Falha&) {
        escreverBlocoEmMaos(); // what comes before the code that could not be looked up
        throw;
    }
    escreverBlocoEmMaos();
}

void RelatorioTAV001::juntarPagamento(VistaTexto linha) {
    juntar("Agência/Conta Creditada: "_t, trecho(linha, 2, 20));
    juntarData("Data de Pagamento......: ", trecho(linha, 22, 8));
    juntarData("Data de Crédito........: "_t, trecho(linha, 30, 8));
    juntar("Código de Barras.......: "_t, trecho(linha, 38, 44));
    juntarValor("Valor Recebido.........: ", trecho(linha, 82, 12));
    juntarValor("Valor da Tarifa........: ", trecho(linha, 94, 7));
    juntar("Sequencial de Registro.: ", trecho(linha, 101, 8));
    juntar("Agência Arrecadadora...: "_t, trecho(linha, 109, 8));
    juntar("Forma de Arrecadação...: "_t, consultas().formaArrecadacao(trecho(linha, 117, 1)));
    juntar("Autenticação...........: "_t, trecho(linha, 118, 23));
    juntar("Forma de Pagamento.....: ", consultas().formaPagamento(trecho(linha, 141, 1)));
    juntarSeparador();
}

void RelatorioTAV001::juntarTotais(VistaTexto linha) {
    juntar("Total de Registros do Arquivo: ", trecho(linha, 2, 6));
    juntarValor("Valor Total Recebido.........: ", trecho(linha, 8, 17));
    juntar("", "");
}

void RelatorioTAV001::juntar(VistaTexto rotulo, VistaTexto valor) {
    bloco_.append(rotulo).append(valor).append("\r\n");
}

/// A date year-month-day is shown as day/month/year, whatever stands in its places.
void RelatorioTAV001::juntarData(VistaTexto rotulo, VistaTexto data) {
    bloco_.append(rotulo).append(trecho(data, 7, 2)).append("/");
    bloco_.append(trecho(data, 5, 2)).append("/").append(trecho(data, 1, 4)).append("\r\n");
}

void RelatorioTAV001::juntarValor(VistaTexto rotulo, VistaTexto centavos) {
    juntar(rotulo, formatarCentavos(centavos, milhar_, decimal_));
}

void RelatorioTAV001::juntarSeparador() {
    juntar("", "");
    juntar(separador, "");
    juntar("", "");
}

void RelatorioTAV001::escreverBlocoEmMaos() {
    escreverBloco(bloco_);
    bloco_.clear();
}

} // namespace

ResultadoRetorno tratarRetornoTAV001(Ambiente& ambiente, const modVariaveis& globais, const PedidoDeRetorno& pedido,
                                     const std::atomic<bool>& cancelado) {
    return RelatorioTAV001(ambiente, globais, pedido).executar(cancelado);
}

} // namespace quilatador
