#pragma once

#include "validator/completa/Coletor.h"
#include "validator/completa/ConteudoCompleto.h"
#include "validator/completa/JanelaDeLinhas.h"
#include "validator/completa/TiposDeLinha.h"
#include "validator/Ordem.h"

#include <array>
#include <functional>

namespace quilatador {

/// Goes through a remittance from its first line to its last and tells every fault of its structure, with a way on
/// behind each: lines of the wrong length, breaks in the numbers, letters out of place, records of another agreement.
/// What has its place goes on to `ConteudoCompleto`.
///
/// At one place a break in the number comes first, then the rule of the letter, then the content: the later ones follow
/// from the earlier one.
class PercursoCompleto {
  public:
    /// Tells whether all records behind the header have this agreement ("Convenio"); it reads the file by itself.
    using TodosTem = std::function<bool(VistaTexto convenio)>;

    /// Keeps references: all must outlive this object.
    PercursoCompleto(JanelaDeLinhas& janela, TiposDeLinha& tipos, Coletor& coletor, ConteudoCompleto& conteudo,
                     TodosTem todosTem);

    /// Goes through the lines until the file ends, what is behind its end included, or until no more come because the
    /// user has cancelled; then nothing is said of an end that is missing. The first line decides whether it is a
    /// remittance at all.
    void percorrer(const std::function<bool()>& cancelada);

  private:
    enum class Depois { Continuar, LinhaTratada };

    [[nodiscard]] bool verificarHeader();
    void verificarHeaderInteiro(const TipoDeLinha& tipo, const LinhaDoArquivo& linha);
    [[nodiscard]] bool dizOTipo(const LinhaDoArquivo& linha);
    void decidirConvenio(VistaTexto doHeader);

    void verificarLinha(const LinhaDoArquivo& linha);
    void verificarLinhaTorta(const LinhaDoArquivo& linha, const TipoDeLinha* tipo);
    [[nodiscard]] bool juntarPartida(const LinhaDoArquivo& linha);
    [[nodiscard]] bool separarEmendada(const LinhaDoArquivo& linha, const TipoDeLinha& tipo);
    void acusarTamanho(const LinhaDoArquivo& linha, const TipoDeLinha& tipo);
    void verificarRegistro(const LinhaDoArquivo& linha, const TipoDeLinha& tipo);

    [[nodiscard]] Depois verificarNumero(const LinhaDoArquivo& linha, const TipoDeLinha& tipo);
    [[nodiscard]] Depois tratarQuebraDoNumero(const LinhaDoArquivo& linha, const TipoDeLinha& tipo,
                                              std::int64_t numero);
    void acusarSequencial(const LinhaDoArquivo& linha, const TipoDeLinha& tipo);
    [[nodiscard]] bool linhaDeslocada(const TipoDeLinha& tipo);
    void verificarConvenio(const TipoDeLinha& tipo);

    bool receber(char letra, const TipoDeLinha* tipo, std::int64_t lugar);
    [[nodiscard]] bool receberDefinicao(char letra, const TipoDeLinha* tipo, std::int64_t lugar);
    [[nodiscard]] bool temLugarNaDefinicao(char letra, std::int64_t lugar);
    void faltar(char exigida, const Ordem::Quebra& quebra, char letra, std::int64_t lugar);
    void verificarIDRegistro(char letra, const TipoDeLinha& tipo);
    void receberGuia(const TipoDeLinha* tipo, std::int64_t lugar);
    [[nodiscard]] bool receberDaGuia(char letra, const TipoDeLinha* tipo, std::int64_t lugar);
    void abrirGuiaSemS(std::int64_t linha);
    [[nodiscard]] bool temLugarNaGuia(const Ordem::Quebra& quebra, char letra, std::int64_t lugar);
    [[nodiscard]] bool abreOutraGuia(char letra);
    void receberTrailer(std::int64_t lugar);
    void acusarFimDaGuia(std::int64_t lugar);
    void marcarQueFaltam(std::int64_t causa);
    void marcarPerdidas(char letra);

    void terminarNaLinhaVazia();
    void terminarDepoisDoTrailer();
    void terminarSemTrailer();

    /// Tells a structural finding about the line at hand, due to `causa`; what breaks at the same place follows from
    /// it.
    std::int64_t acusar(Achado achado, std::int64_t causa);
    std::int64_t acusar(const Ordem::Quebra& quebra, char letra, std::int64_t lugar, std::int64_t causa);
    /// What a letter out of place here follows from: what is wrong with this line, or else with the one before.
    [[nodiscard]] std::int64_t causaAqui() const noexcept { return daLinha_ != 0 ? daLinha_ : daAnterior_; }
    /// The number of the finding that says that lines are missing right in front of this one; 0 if none does.
    [[nodiscard]] std::int64_t perda() const noexcept { return perdaAqui_ != 0 ? perdaAqui_ : perdaAntes_; }
    [[nodiscard]] std::int64_t esperado(const LinhaDoArquivo& linha) const noexcept { return linha.lugar + desvio_; }

    JanelaDeLinhas& janela_;
    TiposDeLinha& tipos_;
    Coletor& coletor_;
    ConteudoCompleto& conteudo_;
    TodosTem todosTem_;
    Ordem ordem_;
    Texto convenio_;
    Texto anterior_;                               ///< the line before, to see one that stands twice
    std::int64_t desvio_ = 0;                      ///< the number of a record less the number of its line
    std::size_t numerosVistos_ = 0;                ///< so many lines from this one on have had their numbers checked
    std::int64_t ultimaLinha_ = 0;                 ///< the last one that was looked at, 1-based
    std::int64_t daLinha_ = 0;                     ///< finding about the structure of this line; 0 if there is none
    std::int64_t daAnterior_ = 0;                  ///< the same of the line before
    std::int64_t perdaAqui_ = 0;                   ///< finding that says that lines are missing in front of this one
    std::int64_t perdaAntes_ = 0;                  ///< finding about the line before, which has no effect; 0 if it has
    char ignorada_ = '\0';                         ///< the letter of that line, if it is known
    char ultimaLetra_ = 'A';                       ///< of the last record that has its effect
    std::array<std::int64_t, 256> faltam_{};       ///< finding that says that a definition is missing, by letter
    std::array<std::int64_t, 256> faltamNaGuia_{}; ///< the same for the records of the slip in hand
    /// The last wrong "IDRegistro" of a letter: by how much, and the finding.
    struct IDErrado {
        std::int64_t linha = 0;
        double diferenca = 0;
        std::int64_t causa = 0;
    };
    std::array<IDErrado, 256> ids_{};
};

} // namespace quilatador
