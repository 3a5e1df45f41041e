#pragma once

#include "common/Falha.h"
#include "layout/RegistroRemessa.h"
#include "run/Rodada.h"

#include <optional>

namespace quilatador {

/// What a finding is about: its id, the field where it is about one, and the value expected where there is one.
struct Assunto {
    VistaTexto id;
    VistaTexto campo = {};
    std::optional<Texto> esperado = {};
};

/// One record under check: reads its fields, and writes echoes and findings about it with the right line number. A
/// check makes one, goes through its steps, and asks at the end whether the record was approved.
class Conferencia {
  public:
    /// What happens where a field cannot be read.
    enum class AoFalhar {
        Propagar,   ///< the failure goes up and ends the run
        Prosseguir, ///< the value is empty and the failure stays noted (`falhou`)
        PularPasso  ///< the failure goes up to the `passo` in hand; an unreadable `Sequencial` is line 0
    };

    /// All that is given must live as long.
    Conferencia(Rodada& rodada, const RegistroRemessa& registro, char segmento, AoFalhar aoFalhar = AoFalhar::Propagar);

    [[nodiscard]] Texto texto(VistaTexto nomeCampo);
    [[nodiscard]] Valor valor(VistaTexto nomeCampo) { return valorDe(registro_, nomeCampo); }
    /// The value of another record's field, with the same consequences.
    [[nodiscard]] Valor valorDe(const RegistroRemessa& registro, VistaTexto nomeCampo);
    /// Whether a value could not be read so far.
    [[nodiscard]] bool falhou() const noexcept { return falhou_; }

    /// The day of the run.
    [[nodiscard]] const Data& hoje() const noexcept { return rodada_.hoje(); }

    /// Writes a line of label and content, nothing between them.
    void eco(VistaTexto rotulo, VistaTexto conteudo);
    void ecoDoTexto(VistaTexto rotulo, VistaTexto nomeCampo) { eco(rotulo, texto(nomeCampo)); }

    /// Writes an error about this record: with its `Sequencial` as line number, or with `linha`.
    void erro(const Assunto& assunto, VistaTexto mensagem, std::optional<std::int32_t> linha = {});
    /// The same where the value of the field has no character.
    void exigir(const Assunto& assunto, VistaTexto mensagem);
    /// The same where the value of the field equals 0.
    void exigirNaoZero(const Assunto& assunto, VistaTexto mensagem);
    /// Whether no error was written.
    [[nodiscard]] bool aprovada() const noexcept { return aprovada_; }

    /// Does one step. One with a field that cannot be read is left out whole, so a step reads before it writes.
    template <typename Passo>
    void passo(Passo passo) {
        try {
            passo();
        } catch (const Falha& falha) {
            if (falha.doAmbiente()) throw; // the log or the file is at fault, not the record
        }
    }

  private:
    template <typename Leitura>
    [[nodiscard]] auto ler(Leitura leitura) -> decltype(leitura());
    [[nodiscard]] std::int32_t linhaDoRegistro() const;
    [[nodiscard]] std::optional<CampoDoAchado> campoDoAchado(const Assunto& assunto) const;

    Rodada& rodada_;
    const RegistroRemessa& registro_;
    char segmento_;
    AoFalhar aoFalhar_;
    bool falhou_ = false;
    bool aprovada_ = true;
};

} // namespace quilatador
