#include "returns/modTrataZUL708.h"

#include <string>

namespace quilatador {

namespace {

constexpr VistaTexto tipoEsperado = "ZUL708"_t;
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

    std::int64_t comOcorrencia_ = 0;
    std::int64_t semOcorrencia_ = 0;
};

std::optional<Achado> AnaliseZUL708::tratarHeader(VistaTexto linha) {
    const VistaTexto tipo = trecho(linha, lugarDoTipo, tipoEsperado.size());
    if (tipo != tipoEsperado)
        return Achado{.id = "zul708.tipoInvalido"_t,
                      .gravidade = Gravidade::Estrutural,
                      .linha = linhaAtual(),
                      .campo = CampoDoAchado{Texto("NomeArquivo"_t), 12, 17, Texto(tipo), Texto(tipoEsperado)},
                      .mensagem = junta("Linha: "_t, sequencial(linha), " - O Arquivo não é do tipo ZUL708!"_t)};
    anunciar(Rotulo::Remessa, junta("Remessa: "_t, trecho(linha, 33, 6)));
    return std::nullopt;
}

void AnaliseZUL708::tratarLinha(VistaTexto linha) {
    if (linha.starts_with('B')) anunciar(Rotulo::Empresa, junta("Convenente: "_t, trecho(linha, 26, 50)));
    Texto ocorrencias(trecho(linha, lugarDosCodigos, codigos * tamanhoDoCodigo));
    ocorrencias.resize(codigos * tamanhoDoCodigo, ' ');
    if (ocorrencias == "000000"_t || ocorrencias == "      "_t) {
        ++semOcorrencia_;
        return;
    }
    ++comOcorrencia_;
    ++rodada().resumo().totalErros;
    for (std::size_t i = 0; i < codigos; ++i)
        explicar(linha, i, VistaTexto(ocorrencias).substr(i * tamanhoDoCodigo, tamanhoDoCodigo));
}

/// Writes one occurrence of a line; `qual` is its 0-based place there.
void AnaliseZUL708::explicar(VistaTexto linha, std::size_t qual, VistaTexto codigo) {
    if (codigo == "00"_t || codigo == "  "_t) return;
    const std::optional<Texto>& texto = consultas().ocorrencia(codigo);
    const auto inicio = static_cast<int>(lugarDosCodigos + qual * tamanhoDoCodigo);
    rodada().escreverErro(
        Achado{.id = "zul708.ocorrencia"_t,
               .gravidade = Gravidade::Ocorrencia,
               .linha = linhaAtual(),
               .segmento = linha.front(),
               .campo = CampoDoAchado{junta("CodigoRetorno"_t, textoDe(static_cast<long long>(qual) + 1)), inicio,
                                      inicio + 1, Texto(codigo), std::nullopt},
               .mensagem = junta("O Registro "_t, sequencial(linha), " apresenta o seguinte erro: "_t, codigo,
                                 texto ? " - "_t : ""_t, texto ? VistaTexto(*texto) : VistaTexto())});
}

void AnaliseZUL708::escreverTotais() {
    rodada().escreverLog(""_t);
    rodada().escreverLog(junta("O Arquivo possui "_t, textoDe(comOcorrencia_), " registros com Ocorrência!"_t));
    rodada().escreverLog(junta("O Arquivo possui "_t, textoDe(semOcorrencia_), " registros sem Ocorrência!"_t));
    rodada().escreverLog(junta("Total de Registros Analisados: "_t, textoDe(linhaAtual())));
}

/// Shows a text in a label and writes it to the log, followed by an empty line.
void AnaliseZUL708::anunciar(Rotulo rotulo, VistaTexto texto) {
    mostrar(rotulo, texto);
    rodada().escreverLog(texto);
    rodada().escreverLog(""_t);
}

} // namespace

Resumo tratarRetornoZUL708(Rodada& rodada, const modVariaveis& globais) {
    AnaliseZUL708 analise(rodada, globais);
    return rodada.executar(analise);
}

} // namespace quilatador
