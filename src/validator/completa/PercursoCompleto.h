#pragma once

#include "validator/completa/Coletor.h"
#include "validator/completa/ConteudoCompleto.h"
#include "validator/completa/JanelaDeLinhas.h"
#include "validator/completa/OrdemCompleta.h"
#include "validator/completa/TiposDeLinha.h"

#include <functional>

namespace quilatador {

class SegundaMetade;

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

    /// Leaves out the slips that begin in front of this line (1-based), as if there were none.
    void saltarGuiasAntesDe(std::int64_t linha) noexcept { primeiraGuia_ = linha; }
    /// Leaves the rest of the file to another thread, if that has nothing to tell of it. It must outlive this object.
    void dividirCom(SegundaMetade& outra) noexcept { outra_ = &outra; }
    /// Goes through the lines until the file ends, what is behind its end included, or until no more come because the
    /// user has cancelled; then nothing is said of an end that is missing. The first line decides whether it is a
    /// remittance at all.
    void percorrer(const std::function<bool()>& cancelada);

  private:
    enum class Depois { Continuar, LinhaTratada };

    void saltarGuias();
    [[nodiscard]] bool restoEstaLimpo(std::int64_t linha);
    [[nodiscard]] bool verificarHeader();
    void verificarHeaderInteiro(const TipoDeLinha& tipo, const LinhaDoArquivo& linha);
    [[nodiscard]] bool dizOTipo(const LinhaDoArquivo& linha);
    void decidirConvenio(VistaTexto doHeader);

    void verificarLinha(const LinhaDoArquivo& linha);
    void verificarLinhaTorta(const LinhaDoArquivo& linha, const TipoDeLinha* tipo);
    /// A record that stands in several lines, put together.
    struct Partida {
        Texto texto;
        std::size_t pedacos;
    };
    [[nodiscard]] std::optional<Partida> procurarPedacos(const LinhaDoArquivo& linha);
    [[nodiscard]] bool juntarPartida(const LinhaDoArquivo& linha);
    [[nodiscard]] bool separarEmendada(const LinhaDoArquivo& linha, const TipoDeLinha& tipo);
    void acusarTamanho(const LinhaDoArquivo& linha, const TipoDeLinha& tipo);
    void verificarRegistro(const LinhaDoArquivo& linha, const TipoDeLinha& tipo);

    [[nodiscard]] Depois verificarNumero(const LinhaDoArquivo& linha, const TipoDeLinha& tipo);
    [[nodiscard]] Depois tratarQuebraDoNumero(const LinhaDoArquivo& linha, const TipoDeLinha& tipo,
                                              std::int64_t numero);
    [[nodiscard]] std::optional<std::int64_t> sequencialAdiante(std::size_t adiante);
    [[nodiscard]] Depois saltarRepetida(const LinhaDoArquivo& linha, char letra);
    [[nodiscard]] Depois destrocar(const LinhaDoArquivo& linha, char letra, std::int64_t numero);
    void acusarLinhaAMais(const LinhaDoArquivo& linha, char letra);
    void acusarSalto(const LinhaDoArquivo& linha, char letra, std::int64_t numero);
    [[nodiscard]] Depois receberSemConteudo(const LinhaDoArquivo& linha, char letra);
    void acusarSequencial(const LinhaDoArquivo& linha, const TipoDeLinha& tipo);
    [[nodiscard]] bool linhaDeslocada(const TipoDeLinha& tipo);
    void verificarConvenio(const TipoDeLinha& tipo);
    void avisarDatasTrocadas(const TipoDeLinha& tipo);

    /// What stands behind the end of the remittance.
    struct Resto {
        std::int64_t linhas = 0;
        bool comEfeito = false; ///< whether the log stops at it
    };
    [[nodiscard]] Resto lerResto();
    void acusarResto(std::int64_t primeira, const Resto& resto);
    void acusarCtrlZ();
    [[nodiscard]] std::int64_t esperado(const LinhaDoArquivo& linha) const noexcept { return linha.lugar + desvio_; }

    JanelaDeLinhas& janela_;
    TiposDeLinha& tipos_;
    Coletor& coletor_;
    ConteudoCompleto& conteudo_;
    TodosTem todosTem_;
    SegundaMetade* outra_ = nullptr;
    std::int64_t primeiraGuia_ = 0; ///< slips that begin in front of this line are left out
    FaltasDoLugar faltas_;
    OrdemCompleta ordem_;
    Texto convenio_;
    Texto anterior_;                ///< the line before, to see one that stands twice
    std::int64_t desvio_ = 0;       ///< the number of a record less the number of its line
    std::size_t numerosVistos_ = 0; ///< so many lines from this one on have had their numbers checked
    std::int64_t ultimaLinha_ = 0;  ///< the last one that was looked at, 1-based
    bool ultimaTorta_ = false;      ///< whether that line has the wrong length or no known type
    std::int64_t fimForcado_ = 0;   ///< finding that says that the file ends where it should not; 0 if there is none
};

} // namespace quilatador
