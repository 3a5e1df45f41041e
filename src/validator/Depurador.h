#pragma once

#include "layout/ArquivoRemessa.h"
#include "run/Achado.h"
#include "run/Ambiente.h"
#include "run/modVariaveis.h"
#include "run/Relator.h"
#include "run/RelatorLog.h"

#include <array>
#include <atomic>
#include <filesystem>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace quilatador {

class Conferencia;

/// Validates ZUL702 remittances: first the order and sequence of the records, then the content of every segment. Each
/// finding is a line of the log beside the file; whoever else listens gets it with all that is known about it.
///
/// One `Depurador` serves for many runs. Nothing of one run shows in the next, whatever became of it, but `moeda`,
/// which stays until the next segment C.
class Depurador {
  public:
    /// Loads the layout description from the program's folder. Where that fails a message box says why, and each run
    /// writes "Leiaute não carregado!".
    Depurador(Ambiente& ambiente, modVariaveis& globais);
    Depurador(const Depurador&) = delete;
    Depurador& operator=(const Depurador&) = delete;

    /// Set by whoever wants the run to stop; read at every line. A run starts by clearing it. May be set from a signal
    /// handler.
    std::atomic<bool> Cancelado = false;
    /// Position (1-based) of the due date in the barcode; 0 for none.
    std::int16_t PosicaoDataBarra = 0;
    /// Format of that date, as `Diversos::String2Data` has them; segment C replaces it with the agreement's own.
    Texto FormatoDataBarra;

    /// Further listeners of all runs to come, called behind the log. Not owned.
    void adicionarRelator(Relator& relator);

    /// Validates a file and opens its log. `log` takes the place of the usual path.
    Resumo DepurarArquivo(const std::filesystem::path& nomeArquivo, std::optional<std::filesystem::path> log = {});

    /// Writes one line to the log.
    void escreverLog(VistaTexto texto);
    /// Writes a finding as an error line and counts it: about line `linha`, or the line in hand.
    void escreverErro(const Achado& achado);
    void escreverErro(VistaTexto id, VistaTexto mensagem, std::optional<std::int32_t> linha = {});
    /// Opens a text in the system's editor.
    void VisualizarArquivo(const std::filesystem::path& caminho);

    /// Checks the slip in hand, all its segments in order; true where none wrote an error.
    [[nodiscard]] bool VerificarGuia();
    /// Segment S: the slip's identification. True without errors, as those below.
    [[nodiscard]] bool VerificarIdentificacaoGuia(const RegistroRemessa& registro);
    /// Segment V: the object.
    [[nodiscard]] bool VerificarObjeto(const RegistroRemessa& registro);

    /// Turns a mask of an identifier ("A" letter, "9" digit, separators) into one of places "@", appended to
    /// `mascaraConvertida`. Gives the message, "" for none; a separator sets one though it is converted: kept on
    /// purpose, the test `converterMascara` holds it.
    [[nodiscard]] static Texto converterMascara(VistaTexto mascara, VistaTexto tipo, int tamanho,
                                                Texto& mascaraConvertida);
    /// Compares an identifier with its mask and, where it fits, takes the separators out of it. Gives the message, ""
    /// for none.
    [[nodiscard]] static Texto conferirMascara(Texto& identificador, VistaTexto mascara);

  private:
    friend class Conferencia;

    /// What is asked for on every line, found once per record type; null where the type lacks the field.
    struct CamposDeTodaLinha {
        /// The letter of all lines of the type, where that is what tells the type; none where each line must be asked.
        std::optional<Texto> letra;
        const CampoRemessa* tipoReg;
        const CampoRemessa* sequencial;
        const CampoRemessa* convenio;
        const CampoRemessa* idRegistro;
    };

    /// All that a run owns; a new run starts with a new one.
    struct Execucao {
        std::filesystem::path nomeArquivo;
        std::filesystem::path nomeArquivoLog;
        std::unique_ptr<RelatorLog> log;
        Data hoje{};
        std::optional<VersaoDoArquivo> versao; ///< of the file as it was when it was first opened
        std::int32_t totalRegistrosEstimado = 0;
        std::int32_t totalRegistros = 0;
        std::int32_t linhaAtual = 0; ///< 1-based
        std::int32_t totalErros = 0;
        std::int32_t guias = 0;
        std::int32_t guiasAceitas = 0;
        std::int32_t guiasRejeitadas = 0;
        Relogio::Instante inicio{};

        Texto convenioHeader;
        /// Letters met so far, a letter repeated at the end only once: no rule asks how often.
        Texto historicoDefinicao;
        Texto historicoGuia;
        std::array<std::int32_t, 256> ordinais{}; ///< records met, by letter

        RegistroRemessa registroA, registroB, registroC, registroD, registroE, registroF;
        RegistroRemessa registroS, registroT, registroU, registroV, registroW;
        std::array<RegistroRemessa, 4> mensagensX;
        /// The slip's installments: room is made as they come, up to `parcelasPrevistas`.
        std::vector<RegistroRemessa> parcelasY;
        std::size_t parcelasPrevistas = 0; ///< one for each L line
        std::size_t contagemX = 0;         ///< X and Y lines of the slip in hand
        std::size_t contagemY = 0;
        std::vector<RegistroRemessa> caracteristicas, receitas, opcoesPagamento;

        Texto siglaIdentificador;
        Valor tamanhoIdentificador;
        bool temTransmitente = false;
        bool checarData = false;
        bool checarValor = false;
        bool temSegmentoF = false;
    };

    /// The company's identification in the barcode, from position 16 on.
    struct EmpresaNaBarra {
        VistaTexto id; ///< of the finding where it is another
        Texto identificacao;
        std::size_t largura;
        VistaTexto mensagem;
    };

    // The run (Depurador.cpp)
    void carregarLeiaute();
    void prepararExecucao(const std::filesystem::path& nomeArquivo, std::optional<std::filesystem::path> log);
    [[nodiscard]] Resumo rodar();
    [[nodiscard]] Resumo verificarArquivo();
    [[nodiscard]] Resumo cancelar();
    [[nodiscard]] Resumo naoCompletar(Desfecho desfecho, VistaTexto descricao);
    [[nodiscard]] Resumo resumo(Desfecho desfecho) const;
    void encerrar();
    void abrirEntrada();
    /// Whether the file is no longer the one that the run began with: its passes would speak of different files.
    [[nodiscard]] bool entradaAlterada() const noexcept;
    void criarRegistrosDaGuia();
    [[nodiscard]] RegistroRemessa registroVazio(VistaTexto nome);
    [[nodiscard]] Desfecho verificarConteudo();
    void escreverResumo();
    void verificarCaracteres(const RegistroRemessa& registro);
    [[nodiscard]] bool verificarRegistro(const RegistroRemessa& registro, char letra);
    [[nodiscard]] bool iniciarGuia(const RegistroRemessa& registro);
    void guardarMensagem(const RegistroRemessa& registro);
    void guardarParcela(const RegistroRemessa& registro);
    void encerrarGuias();
    [[nodiscard]] Progresso progresso() const;
    void iniciarFase(VistaTexto operacao, std::int32_t total);
    void publicar(const Achado& achado);
    [[nodiscard]] Valor valorDaLinha(const RegistroRemessa& registro, const CampoRemessa* campo, VistaTexto nome) const;
    [[nodiscard]] const CamposDeTodaLinha& camposDaLinha() const;
    /// "TipoReg" of the line in hand, as text; valid until the next call.
    [[nodiscard]] const Texto& tipoDaLinha(const RegistroRemessa& registro);

    // The order of the records (Sequencia.cpp)
    void verificarSequencia();
    [[nodiscard]] const RegistroRemessa& lerHeader();
    void verificarHeader();
    void verificarOrdem(const RegistroRemessa& registro);
    void verificarRegrasDaLetra(char letra);
    void verificarFimDaGuia();
    void verificarIDRegistro(const RegistroRemessa& registro, char letra);
    void anotarLetra(char letra);
    void verificarTamanho(const RegistroRemessa& registro) const;
    [[noreturn]] void pararNaLinha(VistaTexto id, char letra, VistaTexto mensagem) const;

    // Header and agreement (SegmentosABC.cpp)
    void verificarSegmentoA();
    void verificarSegmentoB();
    void verificarSegmentoC();
    void verificarIDFebraban(Conferencia& c, std::int32_t segmento);
    void verificarMoeda(Conferencia& c);
    void verificarFormatoData(Conferencia& c);

    // Definition of the receivable (SegmentosDEF.cpp, SegmentosGKL.cpp)
    void verificarSegmentoD();
    void verificarIdentificadorDoCliente(Conferencia& c);
    void verificarSegmentoE();
    void verificarSegmentoF();
    [[nodiscard]] int maiorTamanhoDeIdentificador() const;
    void verificarSegmentoG(const RegistroRemessa& registro);
    void verificarSegmentoK(const RegistroRemessa& registro);
    void verificarSegmentoL(const RegistroRemessa& registro);

    // The slip (Guia.cpp, Parcelas.cpp)
    [[nodiscard]] bool verificarSegmentoT(const RegistroRemessa& registro);
    [[nodiscard]] bool verificarSegmentoU(const RegistroRemessa& registro);
    [[nodiscard]] bool verificarSegmentoW(const RegistroRemessa& registro);
    [[nodiscard]] bool verificarSegmentoX(std::span<const RegistroRemessa> mensagensX);
    [[nodiscard]] bool verificarSegmentoY(std::span<const RegistroRemessa> parcelasY);
    void verificarParcela(Conferencia& c);
    [[nodiscard]] Texto verificarPartes(Conferencia& c);
    void verificarBarra(Conferencia& c, VistaTexto barra);
    [[nodiscard]] EmpresaNaBarra empresaEsperada() const;
    void verificarEmpresaNaBarra(Conferencia& c, VistaTexto barra);
    void verificarDataNaBarra(Conferencia& c, VistaTexto barra);
    [[nodiscard]] Texto digitoDaBarra(VistaTexto digitos) const;
    [[nodiscard]] bool versaoComIndicadores() const;

    Ambiente& ambiente_;
    modVariaveis& globais_;
    std::unique_ptr<ArquivoRemessa> arquivoRemessa_;
    std::vector<CamposDeTodaLinha> camposDeTodaLinha_; ///< by place in `tiposRegistros`
    Texto tipoLido_;                                   ///< holds what `tipoDaLinha` gives where the type's lines differ
    std::vector<Relator*> ouvintes_;
    Execucao execucao_;
};

} // namespace quilatador
