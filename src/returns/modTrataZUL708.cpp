#include "returns/modTrataZUL708.h"

#include <string>

namespace quilatador {

namespace {

constexpr VistaTexto tipoEsperado = "ZUL708";
constexpr std::size_t lugarDoTipo = 12;

constexpr std::size_t lugarDosCodigos = 229;
constexpr std::size_t codigos = 3;
constexpr std::size_t tamanhoDoCodigo = 2;

VistaTexto sequencial(VistaTexto linha) {
    return trecho(linha, 235, 6);
}

class AnaliseZUL708 final : public AnaliseDeRetorno {
  public:
    using AnaliseDeRetorno::AnaliseDeRetorno;

  private:
    [[nodiscard]] std::optional<Achado> tratarHeader(VistaTexto linha) override;
    void tratarLinha(VistaTexto linha) override;
    void escreverTotais() override;

    void anunciar(Rotulo rotulo, VistaTexto texto);
    void explicar(VistaTexto linha, std::size_t qual, VistaTexto codigo);

    std::int32_t comOcorrencia_ = 0;
    std::int32_t semOcorrencia_ = 0;
};

std::optional<Achado> AnaliseZUL708::tratarHeader(VistaTexto linha) {
    const VistaTexto tipo = trecho(linha, lugarDoTipo, tipoEsperado.size());
    if (tipo != tipoEsperado)
        return Achado{.id = "zul708.tipoInvalido",
                      .gravidade = Gravidade::Estrutural,
                      .linha = linhaAtual(),
                      .campo = CampoDoAchado{"NomeArquivo", 12, 17, Texto(tipo), Texto(tipoEsperado)},
                      .mensagem = junta("Linha: ", sequencial(linha), " - O Arquivo não é do tipo ZUL708!"_t)};
    anunciar(Rotulo::Remessa, junta("Remessa: ", trecho(linha, 33, 6)));
    return std::nullopt;
}

void AnaliseZUL708::tratarLinha(VistaTexto linha) {
    if (linha.starts_with('B')) anunciar(Rotulo::Empresa, junta("Convenente: ", trecho(linha, 26, 50)));
    Texto ocorrencias(trecho(linha, lugarDosCodigos, codigos * tamanhoDoCodigo));
    ocorrencias.resize(codigos * tamanhoDoCodigo, ' ');
    if (ocorrencias == "000000" || ocorrencias == "      ") {
        ++semOcorrencia_;
        return;
    }
    ++comOcorrencia_;
    contarErro();
    for (std::size_t i = 0; i < codigos; ++i)
        explicar(linha, i, VistaTexto(ocorrencias).substr(i * tamanhoDoCodigo, tamanhoDoCodigo));
}

/// Tells of the occurrence `qual` (0-based) of a line.
void AnaliseZUL708::explicar(VistaTexto linha, std::size_t qual, VistaTexto codigo) {
    if (codigo == "00" || codigo == "  ") return;
    const std::optional<Texto>& texto = consultas().ocorrencia(codigo);
    const auto inicio = static_cast<int>(lugarDosCodigos + qual * tamanhoDoCodigo);
    escrever(Achado{.id = "zul708.ocorrencia",
                    .gravidade = Gravidade::Ocorrencia,
                    .linha = linhaAtual(),
                    .segmento = linha.front(),
                    .campo = CampoDoAchado{junta("CodigoRetorno", std::to_string(qual + 1)), inicio, inicio + 1,
                                           Texto(codigo), std::nullopt},
                    .mensagem = junta("O Registro ", sequencial(linha), " apresenta o seguinte erro: ", codigo,
                                      texto ? " - " : "", texto ? VistaTexto(*texto) : VistaTexto())});
}

void AnaliseZUL708::escreverTotais() {
    escrever("");
    escrever(junta("O Arquivo possui ", std::to_string(comOcorrencia_), " registros com Ocorrência!"_t));
    escrever(junta("O Arquivo possui ", std::to_string(semOcorrencia_), " registros sem Ocorrência!"_t));
    escrever(junta("Total de Registros Analisados: ", std::to_string(linhaAtual())));
}

/// Shows a text and writes it to the log, with an empty line behind it.
void AnaliseZUL708::anunciar(Rotulo rotulo, VistaTexto texto) {
    mostrar(rotulo, texto);
    escrever(texto);
    escrever("");
}

} // namespace

ResultadoRetorno tratarRetornoZUL708(Ambiente& ambiente, const modVariaveis& globais, const PedidoDeRetorno& pedido,
                                     const std::atomic<bool>& cancelado) {
    return AnaliseZUL708(ambiente, globais, pedido).executar(cancelado);
}

} // namespace quilatador
