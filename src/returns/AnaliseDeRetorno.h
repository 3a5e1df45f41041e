#pragma once

#include "run/modVariaveis.h"
#include "run/Rodada.h"
#include "tables/ConsultasDaRodada.h"

#include <cstdint>
#include <optional>

namespace quilatador {

/// What the analyses of the two return files share: opening the file, and the walk through its lines with its
/// progress. The derived class knows what a line says.
///
/// An input that cannot be opened is told in an error box, and there is no log then. A failed look-up, or read,
/// becomes the last line of the log.
class AnaliseDeRetorno : public Analise {
  public:
    AnaliseDeRetorno(Rodada& rodada, const modVariaveis& globais);

    [[nodiscard]] std::optional<Texto> preparar() final;
    [[nodiscard]] Desfecho analisar() final;
    [[nodiscard]] std::optional<VersaoDoArquivo> versaoDaEntrada() const noexcept final;
    void fecharEntrada() noexcept final { leitor_.reset(); }

  protected:
    /// Takes the first line for a header: the finding that says why it is none, or none after telling of it.
    [[nodiscard]] virtual std::optional<Achado> tratarHeader(VistaTexto linha) = 0;
    /// Tells of a line, the first one included.
    virtual void tratarLinha(VistaTexto linha) = 0;
    /// Called at the end of the file.
    virtual void escreverTotais() {}

    [[nodiscard]] Rodada& rodada() noexcept { return rodada_; }
    [[nodiscard]] ConsultasDaRodada& consultas() noexcept { return consultas_; }
    /// Number (1-based) of the line in hand; at the end, lines read.
    [[nodiscard]] std::int32_t linhaAtual() noexcept { return rodada_.resumo().totalRegistros; }
    /// Shows a text in a label, and lets the window handle its events.
    void mostrar(Rotulo rotulo, VistaTexto texto);

  private:
    [[nodiscard]] Desfecho recusar(const Achado& achado);

    Rodada& rodada_;
    ConsultasDaRodada consultas_;
    std::optional<LeitorDeLinhas> leitor_;
};

} // namespace quilatador
