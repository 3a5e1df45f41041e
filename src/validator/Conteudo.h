#pragma once

#include "validator/Apontador.h"
#include "validator/Definicao.h"
#include "validator/GuiaEmMaos.h"
#include "validator/LeitorDeRegistros.h"

namespace quilatador {

/// The second pass over a remittance. It checks the characters of every line, hands each definition (A to L) to the
/// check of its letter, and collects the records of the slips (S to Y). The trailer (Z) has the last slip checked.
///
/// Order of use: `verificar`, then `escreverResumo` if it returned true.
class Conteudo {
  public:
    /// Keeps references: all arguments must outlive this object. `definicao` holds what is known before this pass
    /// (agreement, currency, date in the barcode); `guia` has no records yet.
    Conteudo(Rodada& rodada, LeitorDeRegistros& leitor, Definicao& definicao, GuiaEmMaos& guia);

    /// Reads the file, which `leitor` has just opened, to its end or to the number of slips that the display asks for.
    /// Returns false if the run was cancelled. A field that a check needs and cannot read raises a `Falha`.
    [[nodiscard]] bool verificar();
    /// Writes the totals and the elapsed time of a completed run to the log.
    void escreverResumo();

  private:
    void verificarHeader();
    void verificarCaracteres(const RegistroRemessa& registro, char letra);
    [[nodiscard]] bool verificarRegistro(const RegistroRemessa& registro, char letra);
    [[nodiscard]] bool iniciarGuia(const RegistroRemessa& registro);
    void encerrarGuias();

    Rodada& rodada_;
    ApontadorDaRodada apontador_;
    LeitorDeRegistros& leitor_;
    Definicao& definicao_;
    GuiaEmMaos& guia_;
};

} // namespace quilatador
