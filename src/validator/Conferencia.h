#pragma once

#include "common/Falha.h"
#include "layout/RegistroRemessa.h"
#include "run/Rodada.h"

#include <optional>

namespace quilatador {

/// What a finding is about. `id` is its stable name. `campo` names the field at fault and stays empty if the finding is
/// about the whole record. `esperado` is the one right value, for rules that know it.
struct Assunto {
    VistaTexto id;
    VistaTexto campo = {};
    std::optional<Texto> esperado = {};
};

/// Checks one record: it reads the fields, and writes echoes and findings about the record with the right line number.
///
/// Order of use: a check creates one, goes through its steps, and asks `aprovada` at the end.
class Conferencia {
  public:
    /// What happens when a field cannot be read, because the record lacks it or its text does not convert.
    enum class AoFalhar {
        Propagar,   ///< the `Falha` leaves the check and ends the run
        Prosseguir, ///< the value counts as empty, and `falhou` is true from then on
        PularPasso  ///< the `Falha` ends only the current `passo`
    };

    /// Keeps references: `rodada` and `registro` must outlive this object. `segmento` is the letter that findings
    /// report.
    Conferencia(Rodada& rodada, const RegistroRemessa& registro, char segmento, AoFalhar aoFalhar = AoFalhar::Propagar);

    /// The text of a field and its converted value. `AoFalhar` says what happens if the field cannot be read.
    [[nodiscard]] Texto texto(VistaTexto nomeCampo);
    [[nodiscard]] Valor valor(VistaTexto nomeCampo) { return valorDe(registro_, nomeCampo); }
    /// The value of a field of another record. A field that cannot be read has the same consequences as in `valor`.
    [[nodiscard]] Valor valorDe(const RegistroRemessa& registro, VistaTexto nomeCampo);
    /// Whether any field could not be read so far. Only `Prosseguir` sets it.
    [[nodiscard]] bool falhou() const noexcept { return falhou_; }

    /// Today's date, the same from the start of the run to its end.
    [[nodiscard]] const Data& hoje() const noexcept { return rodada_.hoje(); }

    /// Writes a plain line to the log: the label, directly followed by the content.
    void eco(VistaTexto rotulo, VistaTexto conteudo);
    void ecoDoTexto(VistaTexto rotulo, VistaTexto nomeCampo) { eco(rotulo, texto(nomeCampo)); }

    /// Writes an error about this record. Its line number is `linha` or, without one, the record's `Sequencial`. If
    /// that cannot be read, `Propagar` lets the `Falha` end the run, and otherwise the line number is 0.
    void erro(const Assunto& assunto, VistaTexto mensagem, std::optional<std::int32_t> linha = {});
    /// Writes the error if the value of `assunto.campo` has no character. A null value is not reported.
    void exigir(const Assunto& assunto, VistaTexto mensagem);
    /// Writes the error if the value of `assunto.campo` equals 0; an empty value does, a null one does not.
    void exigirNaoZero(const Assunto& assunto, VistaTexto mensagem);
    /// Whether no error has been written so far.
    [[nodiscard]] bool aprovada() const noexcept { return aprovada_; }

    /// Runs one step of a check with `PularPasso`. A field that cannot be read ends the step, so a step reads all its
    /// fields before it writes: it is then left out as a whole. A `Falha` of the environment still ends the run.
    template <typename Passo>
    void passo(Passo passo) {
        try {
            passo();
        } catch (const Falha& falha) {
            if (falha.doAmbiente()) throw; // the log or the input failed, which is no fault of the record
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
