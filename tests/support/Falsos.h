#pragma once

#include "common/Falha.h"
#include "run/Ambiente.h"
#include "run/Relator.h"

#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace quilatador::testes {

/// Time that passes only when a test says so.
class RelogioFixo final : public Relogio {
  public:
    explicit RelogioFixo(const Data& hoje = fazData(2026, 3, 10)) : hoje_(hoje) {}

    [[nodiscard]] Data hoje() const override { return hoje_; }
    [[nodiscard]] Instante agora() const override { return agora_; }

    void avancar(Instante tempo) { agora_ += tempo; }

  private:
    Data hoje_;
    Instante agora_{};
};

/// The Brazilian language, unless a test gives other separators.
class LocalidadeFixa final : public Localidade {
  public:
    explicit LocalidadeFixa(VistaTexto milhar = "."_t, VistaTexto decimal = ","_t)
        : milhar_(milhar), decimal_(decimal) {}

    [[nodiscard]] Texto separadorDeMilhar() const override { return milhar_; }
    [[nodiscard]] Texto separadorDecimal() const override { return decimal_; }
    [[nodiscard]] Texto nomeDoMes(unsigned mes) const override;

  private:
    Texto milhar_;
    Texto decimal_;
};

/// Keeps what it was to show, and does at a given line what a user might do there.
class PainelFalso final : public Painel {
  public:
    void rotulo(Rotulo qual, VistaTexto texto) override;
    void iniciarProgresso(const Progresso& progresso) override;
    void avancar(const Progresso& progresso) override;
    void concluirProgresso(const Progresso& progresso) override;
    void processarEventos() override;
    void mensagem(const Mensagem& mensagem) override;
    [[nodiscard]] std::optional<std::filesystem::path>
    outroLugarParaOLog(const Mensagem& recusa, const std::filesystem::path& recusado) override;
    [[nodiscard]] std::optional<double> primeirasGuias() const override { return primeiras; }

    /// Calls `acao` when record `linha` (1-based) of phase `fase` (1-based) is shown.
    void naLinha(std::int64_t linha, std::function<void()> acao, int fase = 1);

    /// One line a call, in order: "rotulo Empresa: ACME", "iniciar 0/10 guias 0", "avancar 3/10 guias 1",
    /// "concluir 10/10 guias 2", "eventos", "mensagem [title] text".
    std::vector<Texto> chamadas;
    std::vector<Mensagem> mensagens;
    std::optional<double> primeiras;  ///< answer of `primeirasGuias`
    std::function<void()> nosEventos; ///< what the user does when events are handled
    Progresso ultimo;                 ///< as it was told last
    /// Answers of `outroLugarParaOLog`, by the refused place; none for the others.
    std::map<std::filesystem::path, std::filesystem::path> outrosLugares;

  private:
    void anotar(VistaTexto operacao, const Progresso& progresso);

    int fase_ = 0;
    std::pair<int, std::int64_t> quando_; ///< phase and line of the action
    std::function<void()> acao_;
};

/// Opens nothing: keeps the paths, in order.
class LancadorFalso final : public Lancador {
  public:
    void abrirTexto(const std::filesystem::path& caminho) override { textos.push_back(caminho); }
    void abrirDocumento(const std::filesystem::path& caminho) override { documentos.push_back(caminho); }

    std::vector<std::filesystem::path> textos;
    std::vector<std::filesystem::path> documentos;
};

/// Files that are only in memory, by their path as given, and that fail when a test says so.
class ArquivosEmMemoria final : public Arquivos {
  public:
    enum class Operacao { Abrir, Ler, Criar, Escrever, Fechar };

    [[nodiscard]] std::unique_ptr<ArquivoEntrada> abrirEntrada(const std::filesystem::path& caminho) override;
    [[nodiscard]] std::unique_ptr<ArquivoSaida> criarSaida(const std::filesystem::path& caminho) override;
    /// Its `confirmar` counts as `Fechar`.
    [[nodiscard]] std::unique_ptr<ArquivoProvisorio> criarProvisorio(const std::filesystem::path& caminho) override;
    /// Of every file the same sum.
    [[nodiscard]] std::unique_ptr<SomaDoArquivo> somar(const std::filesystem::path& caminho) override;
    [[nodiscard]] bool existe(const std::filesystem::path& caminho) const override;
    [[nodiscard]] bool ehPasta(const std::filesystem::path& caminho) const override;
    [[nodiscard]] std::uint64_t tamanho(const std::filesystem::path& caminho) const override;
    [[nodiscard]] std::optional<VersaoDoArquivo> versao(const std::filesystem::path& caminho) const override;
    [[nodiscard]] Destino destino(const std::filesystem::path& caminho) const override;
    [[nodiscard]] std::optional<Data> modificadoEm(const std::filesystem::path& caminho) const override;

    /// The `vez`-th operation of a kind (1-based, over all files) fails with `falha` in place of its effect.
    void falhar(Operacao operacao, int vez, Falha falha);
    /// How many operations of a kind there were: a loop over the faults ends past this one.
    [[nodiscard]] int vezes(Operacao operacao) const;
    /// Whether every file that was opened or created is closed again.
    [[nodiscard]] bool tudoFechado() const noexcept { return aberto_.use_count() == 1; }

    /// What `somar` gives for a file that exists.
    static constexpr std::string_view soma = "0123456789abcdef0123456789abcdef0123456789abcdef0123456789abcdef";

    std::map<std::filesystem::path, Texto> conteudo;
    std::map<std::filesystem::path, Data> datas;                     ///< of the last change, where a test needs one
    std::map<std::filesystem::path, std::filesystem::path> ligacoes; ///< other names, with those that they lead to

  private:
    class Entrada;
    class Saida;
    class Provisorio;

    void contar(Operacao operacao);

    std::map<Operacao, int> vezes_;
    std::map<std::pair<Operacao, int>, Falha> falhas_;
    std::shared_ptr<const bool> aberto_ = std::make_shared<const bool>(); ///< each open file holds it as well
};

inline const Falha discoCheio(numeroDeFalha::discoCheio, "Gravacao"_t, Texto("Disco cheio"_t));

/// Calls `rodada(operacao, vez)` for the first, second, ... operation of each kind, which that run has to make fail,
/// and goes on to the next kind when it says that there was no such operation. How many there were in all.
template <typename Rodada>
int emCadaFalhaDeArquivo(Rodada rodada) {
    using enum ArquivosEmMemoria::Operacao;
    int falhas = 0;
    for (const auto operacao : {Abrir, Ler, Criar, Escrever, Fechar})
        for (int vez = 1; rodada(operacao, vez); ++vez)
            ++falhas;
    return falhas;
}

/// Keeps what a run tells: lines and findings each in their order, and its end.
class RelatorMemoria final : public Relator {
  public:
    void linha(VistaTexto texto) override { linhas.emplace_back(texto); }
    void achado(const Achado& novo) override { achados.push_back(novo); }
    void resumo(const Resumo& final) override { resumos.push_back(final); }

    std::vector<Texto> linhas;
    std::vector<Achado> achados;
    std::vector<Resumo> resumos;
};

/// A whole world of fakes. Its `ambiente` refers to the other members, so it is neither copied nor moved.
struct MundoFalso {
    MundoFalso() = default;
    MundoFalso(const MundoFalso&) = delete;
    MundoFalso& operator=(const MundoFalso&) = delete;

    PainelFalso painel;
    RelogioFixo relogio;
    LocalidadeFixa localidade;
    LancadorFalso lancador;
    ArquivosEmMemoria arquivos;
    Ambiente ambiente{painel, relogio, localidade, lancador, arquivos, "/programa"};
};

} // namespace quilatador::testes
