#include "support/Falsos.h"

#include <algorithm>
#include <array>

namespace quilatador::testes {

Texto LocalidadeFixa::nomeDoMes(unsigned mes) const {
    static constexpr std::array<VistaTexto, 12> meses{"janeiro"_t,  "fevereiro"_t, "março"_t,    "abril"_t,
                                                      "maio"_t,     "junho"_t,     "julho"_t,    "agosto"_t,
                                                      "setembro"_t, "outubro"_t,   "novembro"_t, "dezembro"_t};
    return Texto(meses.at(mes - 1));
}

void PainelFalso::rotulo(Rotulo qual, VistaTexto texto) {
    static constexpr std::array<VistaTexto, 3> nomes{"Operacao"_t, "Empresa"_t, "Remessa"_t};
    chamadas.push_back(junta("rotulo "_t, nomes.at(static_cast<std::size_t>(qual)), ": "_t, texto));
}

void PainelFalso::iniciarProgresso(const Progresso& progresso) {
    ++fase_;
    anotar("iniciar"_t, progresso);
}

void PainelFalso::avancar(const Progresso& progresso) {
    anotar("avancar"_t, progresso);
    if (acao_ && quando_ == std::pair(fase_, progresso.registroAtual)) acao_();
}

void PainelFalso::concluirProgresso(const Progresso& progresso) {
    anotar("concluir"_t, progresso);
}

void PainelFalso::processarEventos() {
    chamadas.emplace_back("eventos"_t);
    if (nosEventos) nosEventos();
}

void PainelFalso::mensagem(const Mensagem& mensagem) {
    chamadas.push_back(junta("mensagem ["_t, mensagem.titulo, "] "_t, mensagem.texto));
    mensagens.push_back(mensagem);
}

std::optional<std::filesystem::path> PainelFalso::outroLugarParaOLog(const Mensagem& recusa,
                                                                     const std::filesystem::path& recusado) {
    mensagem(recusa);
    const auto outro = outrosLugares.find(recusado);
    return outro == outrosLugares.end() ? std::nullopt : std::optional(outro->second);
}

void PainelFalso::naLinha(std::int64_t linha, std::function<void()> acao, int fase) {
    quando_ = {fase, linha};
    acao_ = std::move(acao);
}

void PainelFalso::anotar(VistaTexto operacao, const Progresso& progresso) {
    ultimo = progresso;
    chamadas.push_back(junta(operacao, " "_t, textoDe(progresso.registroAtual), "/"_t,
                             textoDe(progresso.totalRegistros), " guias "_t, textoDe(progresso.guias)));
}

class ArquivosEmMemoria::Entrada final : public ArquivoEntrada {
  public:
    Entrada(ArquivosEmMemoria& dono, std::filesystem::path caminho, Texto bytes)
        : dono_(dono), caminho_(std::move(caminho)), bytes_(std::move(bytes)) {}

    [[nodiscard]] std::size_t ler(std::span<char> destino) override {
        dono_.contar(Operacao::Ler);
        const std::size_t lidos = bytes_.copy(destino.data(), destino.size(), posicao_);
        posicao_ += lidos;
        return lidos;
    }
    [[nodiscard]] VersaoDoArquivo versao() const noexcept override {
        return dono_.versao(caminho_).value_or(VersaoDoArquivo());
    }

  private:
    ArquivosEmMemoria& dono_;
    std::shared_ptr<const bool> aberto_ = dono_.aberto_;
    std::filesystem::path caminho_;
    Texto bytes_;
    std::size_t posicao_ = 0;
};

class ArquivosEmMemoria::Saida final : public ArquivoSaida {
  public:
    Saida(ArquivosEmMemoria& dono, std::filesystem::path caminho) : dono_(dono), caminho_(std::move(caminho)) {}

    void escrever(std::string_view bytes) override {
        dono_.contar(Operacao::Escrever);
        dono_.conteudo[caminho_].append(textoDosBytes(bytes));
    }

    void fechar() override {
        aberto_.reset(); // closed, whatever it reports
        dono_.contar(Operacao::Fechar);
    }

  private:
    ArquivosEmMemoria& dono_;
    std::shared_ptr<const bool> aberto_ = dono_.aberto_;
    std::filesystem::path caminho_;
};

class ArquivosEmMemoria::Provisorio final : public ArquivoProvisorio {
  public:
    Provisorio(ArquivosEmMemoria& dono, std::filesystem::path caminho) : dono_(dono), caminho_(std::move(caminho)) {}

    void escrever(std::string_view bytes) override {
        dono_.contar(Operacao::Escrever);
        bytes_.append(textoDosBytes(bytes));
    }

    void confirmar() override {
        dono_.contar(Operacao::Fechar);
        dono_.conteudo[caminho_] = bytes_;
    }

  private:
    ArquivosEmMemoria& dono_;
    std::shared_ptr<const bool> aberto_ = dono_.aberto_;
    std::filesystem::path caminho_;
    Texto bytes_;
};

std::unique_ptr<ArquivoEntrada> ArquivosEmMemoria::abrirEntrada(const std::filesystem::path& caminho) {
    contar(Operacao::Abrir);
    const auto achado = conteudo.find(caminho);
    if (achado == conteudo.end())
        throw Falha(numeroDeFalha::arquivoNaoEncontrado, "Gravacao"_t, "Arquivo não encontrado"_t);
    return std::make_unique<Entrada>(*this, caminho, achado->second);
}

std::unique_ptr<ArquivoSaida> ArquivosEmMemoria::criarSaida(const std::filesystem::path& caminho) {
    contar(Operacao::Criar);
    conteudo[caminho].clear();
    return std::make_unique<Saida>(*this, caminho);
}

std::unique_ptr<ArquivoProvisorio> ArquivosEmMemoria::criarProvisorio(const std::filesystem::path& caminho) {
    contar(Operacao::Criar);
    const auto ligacao = ligacoes.find(caminho);
    return std::make_unique<Provisorio>(*this, ligacao == ligacoes.end() ? caminho : ligacao->second);
}

std::unique_ptr<SomaDoArquivo> ArquivosEmMemoria::somar(const std::filesystem::path& caminho) {
    struct SomaFixa final : SomaDoArquivo {
        std::string texto;
        [[nodiscard]] std::string hexadecimal(const std::function<bool()>&) override { return texto; }
    };
    auto pronta = std::make_unique<SomaFixa>();
    if (existe(caminho)) pronta->texto = soma;
    return pronta;
}

bool ArquivosEmMemoria::existe(const std::filesystem::path& caminho) const {
    return conteudo.contains(caminho);
}

bool ArquivosEmMemoria::ehPasta(const std::filesystem::path& caminho) const {
    return std::ranges::any_of(conteudo,
                               [&](const auto& arquivo) { return arquivo.first.parent_path() / "" == caminho / ""; });
}

std::uint64_t ArquivosEmMemoria::tamanho(const std::filesystem::path& caminho) const {
    const auto achado = conteudo.find(caminho);
    return achado == conteudo.end() ? 0 : achado->second.size();
}

std::optional<VersaoDoArquivo> ArquivosEmMemoria::versao(const std::filesystem::path& caminho) const {
    const auto achado = conteudo.find(caminho);
    if (achado == conteudo.end()) return std::nullopt;
    return VersaoDoArquivo{.arquivo = std::hash<std::string_view>()(bytesDoTexto(achado->second))};
}

Destino ArquivosEmMemoria::destino(const std::filesystem::path& caminho) const {
    const auto ligacao = ligacoes.find(caminho);
    return {.falta = ligacao == ligacoes.end() ? caminho : ligacao->second};
}

std::optional<Data> ArquivosEmMemoria::modificadoEm(const std::filesystem::path& caminho) const {
    const auto achada = datas.find(caminho);
    return achada == datas.end() ? std::nullopt : std::optional(achada->second);
}

void ArquivosEmMemoria::falhar(Operacao operacao, int vez, Falha falha) {
    falhas_.insert_or_assign({operacao, vez}, std::move(falha));
}

int ArquivosEmMemoria::vezes(Operacao operacao) const {
    const auto achada = vezes_.find(operacao);
    return achada == vezes_.end() ? 0 : achada->second;
}

void ArquivosEmMemoria::contar(Operacao operacao) {
    const auto falha = falhas_.find({operacao, ++vezes_[operacao]});
    if (falha != falhas_.end()) throw falha->second;
}

} // namespace quilatador::testes
