#pragma once

#include "common/Falha.h"
#include "layout/RegistroRemessa.h"
#include "validator/Apontador.h"
#include "validator/RegistrosGuardados.h"

#include <initializer_list>
#include <optional>
#include <vector>

namespace quilatador {

/// What a finding is about. `id` is its stable name. `campo` names the field at fault and stays empty if the finding is
/// about the whole record. `esperado` is the one right value, for rules that know it. `motivo` says why the rule is
/// disputed; a complete check then takes the finding for no fault.
struct Assunto {
    VistaTexto id;
    VistaTexto campo = {};
    std::optional<Texto> esperado = {};
    VistaTexto motivo = {};
};

/// A field of a record type, looked up once by whoever reads it in many records of the type. `campo` is null where the
/// type lacks the field; whoever reads it then gets the `Falha` of `RegistroRemessa` for its name.
struct CampoBuscado {
    VistaTexto nome; ///< view of a text that outlives this object
    const CampoRemessa* campo;

    CampoBuscado(const RegistroRemessa& tipo, VistaTexto nomeCampo)
        : nome(nomeCampo), campo(tipo.procurarCampo(nomeCampo)) {}
};

/// The failure for a value that is no number of the kind that is needed.
[[nodiscard]] FalhaDeLeitura numeroNaoLido(const RegistroRemessa& registro, VistaTexto nomeCampo, const Falha& causa);

/// The value of a field as one of the numbers of `Valor` (`&Valor::paraLongo`). A value that does not convert raises
/// `FalhaDeLeitura`, with number and text of the conversion's failure; so does a field that cannot be read.
template <typename Numero>
[[nodiscard]] Numero numeroDoCampo(const RegistroRemessa& registro, Numero (Valor::*conversao)() const,
                                   const CampoRemessa& campo) {
    const Valor valor = registro.getValorCampo(campo);
    try {
        return (valor.*conversao)();
    } catch (const Falha& falha) {
        throw numeroNaoLido(registro, campo.nome(), falha);
    }
}
template <typename Numero>
[[nodiscard]] Numero numeroDoCampo(const RegistroRemessa& registro, Numero (Valor::*conversao)() const,
                                   VistaTexto nomeCampo) {
    return numeroDoCampo(registro, conversao, registro.obterCampo(nomeCampo));
}

/// Checks one record: it reads the fields, and writes echoes and findings about the record with the right line number.
///
/// A check is a list of steps (`passo`). For a complete check each step notes what it rests on, so that a finding of
/// its can be told from one that only follows from another; what a step reads through this object is noted by itself.
///
/// Order of use: a check creates one, goes through its steps, and asks `aprovada` at the end.
class Conferencia {
  public:
    /// What happens in the run of a log when a field cannot be read, because the record lacks it or its text does not
    /// convert. A complete check reports the field and, but for `Prosseguir`, leaves the step out.
    enum class AoFalhar {
        Propagar,   ///< the `Falha` leaves the check and ends the run
        Prosseguir, ///< the value counts as empty, and `falhou` is true from then on
        PularPasso  ///< the `Falha` ends only the current `passo`
    };

    /// Keeps references: `apontador` and `registro` must outlive this object. `segmento` is the letter that findings
    /// report.
    Conferencia(Apontador& apontador, const RegistroRemessa& registro, char segmento,
                AoFalhar aoFalhar = AoFalhar::Propagar);

    /// The text of a field and its converted value. `AoFalhar` says what happens if the field cannot be read.
    [[nodiscard]] Texto texto(VistaTexto nomeCampo) { return texto(CampoBuscado(registro_, nomeCampo)); }
    [[nodiscard]] Texto texto(const CampoBuscado& campo);
    [[nodiscard]] Valor valor(VistaTexto nomeCampo) { return valorEm(registro_, segmento_, nomeCampo); }
    [[nodiscard]] Valor valor(const CampoBuscado& campo) { return valorEm(registro_, segmento_, campo); }
    /// `semConteudo` and `comConteudo` of the value of a field, of which no copy is made if it is a text.
    [[nodiscard]] bool semConteudo(VistaTexto nomeCampo);
    [[nodiscard]] bool comConteudo(VistaTexto nomeCampo);
    /// The value of a field of another record, with the letter of its segment. A field that cannot be read has the same
    /// consequences as in `valor`.
    [[nodiscard]] Valor valorEm(const RegistroRemessa& registro, char letra, VistaTexto nomeCampo) {
        return valorEm(registro, letra, CampoBuscado(registro, nomeCampo));
    }
    [[nodiscard]] Valor valorEm(const RegistroRemessa& registro, char letra, const CampoBuscado& campo);
    /// The raw text of a field of another record.
    [[nodiscard]] Texto textoEm(const RegistroRemessa& registro, char letra, VistaTexto nomeCampo) {
        return textoEm(registro, letra, CampoBuscado(registro, nomeCampo));
    }
    [[nodiscard]] Texto textoEm(const RegistroRemessa& registro, char letra, const CampoBuscado& campo);
    /// The value of a field as one of the numbers of `Valor`; see `numeroDoCampo`, whose failures it raises.
    template <typename Numero>
    [[nodiscard]] Numero numero(Numero (Valor::*conversao)() const, VistaTexto nomeCampo) {
        return numeroEm(registro_, segmento_, conversao, CampoBuscado(registro_, nomeCampo));
    }
    template <typename Numero>
    [[nodiscard]] Numero numero(Numero (Valor::*conversao)() const, const CampoBuscado& campo) {
        return numeroEm(registro_, segmento_, conversao, campo);
    }
    template <typename Numero>
    [[nodiscard]] Numero numeroEm(const RegistroRemessa& registro, char letra, Numero (Valor::*conversao)() const,
                                  const CampoBuscado& campo) {
        anotar(registro, letra, campo);
        return campo.campo ? numeroDoCampo(registro, conversao, *campo.campo)
                           : numeroDoCampo(registro, conversao, campo.nome);
    }
    /// The record under check.
    [[nodiscard]] const RegistroRemessa& registro() const noexcept { return registro_; }
    /// Whether any field could not be read so far. Only `Prosseguir` sets it.
    [[nodiscard]] bool falhou() const noexcept { return falhou_; }
    /// The field to name in a finding that is due to a field that could not be read: `nomeCampo` if that is one of
    /// them, otherwise the first of them; "" if the only ones belong to other records.
    [[nodiscard]] VistaTexto campoNaoLido(VistaTexto nomeCampo) const;

    /// Notes that the current step rests on something that it does not read through this object: a field of this or of
    /// another record, or all records of a segment. Returns false if a complete check has to leave the step out,
    /// because that is missing or could not be read; the run of a log never does.
    bool temBase(const RegistroRemessa& registro, char letra, VistaTexto nomeCampo) {
        return !completa_ || temBase(registro, letra, registro.procurarCampo(nomeCampo));
    }
    bool temBase(char letra);
    /// The same for a field that was looked up before; null if the record lacks it.
    bool temBase(const RegistroRemessa& registro, char letra, const CampoRemessa* campo) {
        if (!completa_) return true;
        fundamentos_.push_back({letra, campo ? campo->inicio() : std::int16_t{0}, registro.lugar()});
        return &registro == &registro_ || temOutro(registro);
    }
    /// The same for what tells the records of a segment apart, so that one of them may be missing: these fields of the
    /// accepted ones, and their "IDRegistro".
    bool temBase(char letra, const RegistrosGuardados& aceitos, std::initializer_list<VistaTexto> nomesDosCampos);
    void apoiar(VistaTexto nomeCampo) { static_cast<void>(temBase(registro_, segmento_, nomeCampo)); }
    void apoiar(const CampoRemessa* campo) { static_cast<void>(temBase(registro_, segmento_, campo)); }
    /// Notes that the step rests on all fields of this record.
    void apoiarNoRegistro();

    /// Today's date, the same from the start of the run to its end.
    [[nodiscard]] const Data& hoje() const { return apontador_.hoje(); }
    /// Whether this is part of a complete check.
    [[nodiscard]] bool completa() const noexcept { return completa_; }

    /// Writes a plain line to the log: the label, directly followed by the content.
    void eco(VistaTexto rotulo, VistaTexto conteudo);
    void ecoDoTexto(VistaTexto rotulo, VistaTexto nomeCampo) { eco(rotulo, texto(nomeCampo)); }
    /// Shows a text in a label of the display.
    void rotulo(Rotulo qual, VistaTexto texto) { apontador_.rotulo(qual, texto); }

    /// Writes an error about this record. Its line number is `linha` or, without one, the record's `Sequencial`. If
    /// that cannot be read, `Propagar` lets the `Falha` end the run, and otherwise the line number is 0. A complete
    /// check takes the place of the record in the file instead.
    void erro(const Assunto& assunto, VistaTexto mensagem, std::optional<std::int64_t> linha = {});
    /// Takes a notice about this record. Only a complete check has notices.
    void aviso(const Assunto& assunto, VistaTexto mensagem);
    /// Takes a notice that a field passes only because an empty or a longer text, too, is found within the list of what
    /// is allowed.
    void avisarSePassa(const Assunto& assunto, VistaTexto conteudo, VistaTexto lista);
    /// Writes the error if the value of `assunto.campo` has no character. A null value is not reported.
    void exigir(const Assunto& assunto, VistaTexto mensagem);
    /// Writes the error if the value of `assunto.campo` equals 0; an empty value does, a null one does not.
    void exigirNaoZero(const Assunto& assunto, VistaTexto mensagem);
    /// Whether no error has been written so far.
    [[nodiscard]] bool aprovada() const noexcept { return aprovada_; }

    /// Runs one step of a check, and returns whether it came to its end. A field that cannot be read ends the step, see
    /// `AoFalhar`; so a step reads all its fields before it writes, and is then left out as a whole. A `Falha` of the
    /// environment still ends the run.
    template <typename Passo>
    bool passo(Passo passo) {
        const std::size_t antes = fundamentos_.size();
        bool feito = false;
        try {
            passo();
            feito = true;
        } catch (const SemBase&) { // a complete check has said so already
        } catch (const FalhaDeLeitura& falha) {
            if (!deixar(falha)) throw;
        } catch (const Falha& falha) {
            if (falha.doAmbiente() || aoFalhar_ != AoFalhar::PularPasso) throw;
        }
        fundamentos_.resize(antes);
        return feito;
    }

  private:
    /// Thrown where a step reads a record that the file lacks.
    struct SemBase {};

    template <typename Leitura>
    [[nodiscard]] auto ler(const RegistroRemessa& registro, VistaTexto nomeCampo, Leitura leitura)
        -> decltype(leitura());
    /// Notes in a complete check that the current step reads a field. A record that the file lacks ends the step.
    void anotar(const RegistroRemessa& registro, char letra, const CampoBuscado& campo) {
        if (!temBase(registro, letra, campo.campo)) throw SemBase();
    }
    [[nodiscard]] bool temOutro(const RegistroRemessa& registro);
    [[nodiscard]] bool deixar(const FalhaDeLeitura& falha);
    [[nodiscard]] Achado achadoDe(const Assunto& assunto, VistaTexto mensagem, std::int64_t linha);
    [[nodiscard]] std::int64_t linhaDoRegistro() const;

    Apontador& apontador_;
    const RegistroRemessa& registro_;
    char segmento_;
    AoFalhar aoFalhar_;
    bool completa_;
    bool falhou_ = false;
    bool aprovada_ = true;
    std::vector<VistaTexto> naoLidos_;    ///< the fields of this record that could not be read; views of literals
    std::vector<Fundamento> fundamentos_; ///< of the current step; noted only in a complete check
};

} // namespace quilatador
