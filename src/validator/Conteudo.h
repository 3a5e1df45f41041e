#pragma once

#include "validator/Definicao.h"
#include "validator/GuiaEmMaos.h"
#include "validator/LeitorDeRegistros.h"

namespace quilatador {

/// The second pass over a remittance: looks at the characters of every line, hands each definition to the check of its
/// letter, and gathers the slips, of which the trailer has the last one checked.
class Conteudo {
  public:
    /// All must live as long. `definicao` has what is known before the file is read, `guia` is one without records.
    Conteudo(Rodada& rodada, LeitorDeRegistros& leitor, Definicao& definicao, GuiaEmMaos& guia);

    /// Walks through the file, which the reader has just opened, up to its end or to the number of slips that the
    /// display asks for. False where the run was cancelled on the way.
    [[nodiscard]] bool verificar();
    /// The lines that end the log of a run that came to its end.
    void escreverResumo();

  private:
    void verificarHeader();
    void verificarCaracteres(const RegistroRemessa& registro);
    [[nodiscard]] bool verificarRegistro(const RegistroRemessa& registro, char letra);
    void verificarDefinicao(const RegistroRemessa& registro, char letra);
    [[nodiscard]] bool iniciarGuia(const RegistroRemessa& registro);
    void guardarNaGuia(const RegistroRemessa& registro, char letra);
    void encerrarGuias();
    void escreverErro(VistaTexto id, VistaTexto mensagem);

    Rodada& rodada_;
    LeitorDeRegistros& leitor_;
    Definicao& definicao_;
    GuiaEmMaos& guia_;
};

} // namespace quilatador
