#pragma once

#include "run/modVariaveis.h"
#include "run/Rodada.h"
#include "tables/ConsultasDaRodada.h"

#include <cstdint>
#include <optional>

namespace quilatador {

/// What the analyses of both kinds of return files share: opening the file and reading its lines, with progress. The
/// derived class knows what a line says.
///
/// If the input cannot be opened, an error box says so and there is no log. A look-up or a read that fails becomes the
/// last line of the log.
class AnaliseDeRetorno : public Analise {
  public:
    /// `tipo` is the one that the file must have. `rodada` and the code tables of `globais` must outlive this object.
    /// Without code tables each look-up raises `Falha` 3420.
    AnaliseDeRetorno(TipoArquivo tipo, Rodada& rodada, const modVariaveis& globais);

    [[nodiscard]] std::optional<Texto> preparar() final;
    [[nodiscard]] Desfecho analisar() final;
    void fecharEntrada() noexcept final { leitor_.reset(); }

  protected:
    /// Writes what the first line says as the header of the file. A file of another type does not come so far.
    virtual void tratarHeader(VistaTexto linha) = 0;
    /// Handles one line. The first line comes here too, after `tratarHeader`.
    virtual void tratarLinha(VistaTexto linha) = 0;
    /// Called at the end of the file, unless the run was cancelled. Does nothing by default.
    virtual void escreverTotais() {}

    [[nodiscard]] Rodada& rodada() noexcept { return rodada_; }
    [[nodiscard]] ConsultasDaRodada& consultas() noexcept { return consultas_; }
    /// 1-based number of the current line; after the last line, the number of lines read.
    [[nodiscard]] std::int64_t linhaAtual() noexcept { return rodada_.resumo().totalRegistros; }
    /// Shows a text in a label and lets the window handle its events.
    void mostrar(Rotulo rotulo, VistaTexto texto);

  private:
    [[nodiscard]] Desfecho recusar(const Achado& achado);

    TipoArquivo tipo_;
    Rodada& rodada_;
    ConsultasDaRodada consultas_;
    std::optional<LeitorDeLinhas> leitor_;
};

} // namespace quilatador
