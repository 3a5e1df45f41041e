#include "returns/modTrataZUL708.h"

#include "returns/Ocorrencias.h"

namespace quilatador {

namespace {

class AnaliseZUL708 final : public AnaliseDeRetorno {
  public:
    AnaliseZUL708(Rodada& rodada, const modVariaveis& globais)
        : AnaliseDeRetorno(TipoArquivo::ZUL708, rodada, globais) {}

  private:
    void tratarHeader(VistaTexto linha) override;
    void tratarLinha(VistaTexto linha) override;
    void escreverTotais() override;

    void anunciar(Rotulo rotulo, VistaTexto texto);

    std::int64_t comOcorrencia_ = 0;
    std::int64_t semOcorrencia_ = 0;
};

void AnaliseZUL708::tratarHeader(VistaTexto linha) {
    anunciar(Rotulo::Remessa, junta("Remessa: "_t, trecho(linha, 33, 6)));
}

void AnaliseZUL708::tratarLinha(VistaTexto linha) {
    if (linha.starts_with('B')) anunciar(Rotulo::Empresa, junta("Convenente: "_t, trecho(linha, 26, 50)));
    const Ocorrencias ocorrencias(linha);
    if (ocorrencias.nenhuma()) {
        ++semOcorrencia_;
        return;
    }
    ++comOcorrencia_;
    ++rodada().resumo().totalErros;
    for (std::size_t i = 0; i < Ocorrencias::lugares; ++i)
        if (ocorrencias.tem(i)) rodada().escreverErro(ocorrencias.achado(i, linhaAtual(), consultas()));
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
