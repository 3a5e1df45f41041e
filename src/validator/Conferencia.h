#pragma once

#include "common/Falha.h"
#include "layout/RegistroRemessa.h"
#include "run/Rodada.h"

#include <optional>
#include <vector>

namespace quilatador {

/// What a finding is about. `id` is its stable name. `campo` names the field at fault and stays empty if the finding is
/// about the whole record. `esperado` is the one right value, for rules that know it.
struct Assunto {
    VistaTexto id;
    VistaTexto campo = {};
    std::optional<Texto> esperado = {};
};

/// The failure for a value that is no number of the kind that is needed.
[[nodiscard]] FalhaDeLeitura numeroNaoLido(const RegistroRemessa& registro, VistaTexto nomeCampo, const Falha& causa);

/// The value of a field as one of the numbers of `Valor` (`&Valor::paraLongo`). A value that does not convert raises
/// `FalhaDeLeitura`, with number and text of the conversion's failure; so does a field that cannot be read.
template <typename Numero>
[[nodiscard]] Numero numeroDoCampo(const RegistroRemessa& registro, Numero (Valor::*conversao)() const,
                                   VistaTexto nomeCampo) {
    const Valor valor = registro.getValorCampo(nomeCampo);
    try {
        return (valor.*conversao)();
    } catch (const Falha& falha) {
        throw numeroNaoLido(registro, nomeCampo, falha);
    }
}

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
    /// The value of a field as one of the numbers of `Valor`; see `numeroDoCampo`, whose failures it raises.
    template <typename Numero>
    [[nodiscard]] Numero numero(Numero (Valor::*conversao)() const, VistaTexto nomeCampo) const {
        return numeroDoCampo(registro_, conversao, nomeCampo);
    }
    /// Whether any field could not be read so far. Only `Prosseguir` sets it.
    [[nodiscard]] bool falhou() const noexcept { return falhou_; }
    /// The field to name in a finding that is due to a field that could not be read: `nomeCampo` if that is one of
    /// them, otherwise the first of them; "" if the only ones belong to other records.
    [[nodiscard]] VistaTexto campoNaoLido(VistaTexto nomeCampo) const;

    /// Today's date, the same from the start of the run to its end.
    [[nodiscard]] const Data& hoje() const noexcept { return rodada_.hoje(); }

    /// Writes a plain line to the log: the label, directly followed by the content.
    void eco(VistaTexto rotulo, VistaTexto conteudo);
    void ecoDoTexto(VistaTexto rotulo, VistaTexto nomeCampo) { eco(rotulo, texto(nomeCampo)); }

    /// Writes an error about this record. Its line number is `linha` or, without one, the record's `Sequencial`. If
    /// that cannot be read, `Propagar` lets the `Falha` end the run, and otherwise the line number is 0.
    void erro(const Assunto& assunto, VistaTexto mensagem, std::optional<std::int64_t> linha = {});
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
    [[nodiscard]] auto ler(const RegistroRemessa& registro, VistaTexto nomeCampo, Leitura leitura)
        -> decltype(leitura());
    [[nodiscard]] std::int64_t linhaDoRegistro() const;

    Rodada& rodada_;
    const RegistroRemessa& registro_;
    char segmento_;
    AoFalhar aoFalhar_;
    bool falhou_ = false;
    std::vector<VistaTexto> naoLidos_; ///< the fields of this record that could not be read; views of literals
    bool aprovada_ = true;
};

} // namespace quilatador
