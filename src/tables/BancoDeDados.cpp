#include "tables/BancoDeDados.h"

#include "common/Falha.h"
#include "common/Numero.h"
#include "tables/FalhaDoBanco.h"
#include "tables/MotorDeConsultas.h"
#include "tables/TabelasDeCodigos.h"

#include <algorithm>
#include <string>

namespace quilatador {

namespace {

/// The code tables have a few hundred rows, so a file that is larger than this must be something else.
constexpr std::size_t maiorArquivo = std::size_t{64} << 20;

Falha falha(int numero, VistaTexto descricao) {
    return {numero, "BancoDeDados"_t, descricao};
}

std::string lerArquivo(Arquivos& arquivos, const std::filesystem::path& caminho) {
    try {
        const auto arquivo = arquivos.abrirEntrada(caminho);
        constexpr std::size_t folga = 4096; // lets the first read reach the end of the file
        const std::size_t previsto = std::min<std::uint64_t>(arquivos.tamanho(caminho), maiorArquivo);
        std::string bytes;
        std::size_t lidos = 0;
        for (std::size_t agora = 1; agora != 0 && lidos <= maiorArquivo; lidos += agora) {
            bytes.resize(std::max(previsto, lidos) + folga);
            agora = arquivo->ler(std::span(bytes).subspan(lidos));
        }
        if (lidos > maiorArquivo) throw falha(falhaDoBanco::arquivo, "O arquivo é grande demais"_t);
        bytes.resize(lidos);
        return bytes;
    } catch (const Falha& causa) {
        throw falha(falhaDoBanco::arquivo, causa.descricao());
    }
}

/// The password in a connection string, or "" when it has none.
VistaTexto senhaDaConexao(VistaTexto conexao) {
    constexpr VistaTexto chave = "pwd="_t;
    while (!conexao.empty()) {
        const VistaTexto parte = conexao.substr(0, conexao.find(';'));
        if (iguaisSemCaixa(parte.substr(0, chave.size()), chave)) return parte.substr(chave.size());
        conexao.remove_prefix(std::min(parte.size() + 1, conexao.size()));
    }
    return {};
}

} // namespace

/// A table is copied into the engine by the first look-up that needs it, because most runs of the program need none.
struct BancoDeDados::Conexao {
    /// The value of a column (0-based) in the first row that meets the condition.
    [[nodiscard]] std::optional<Texto> consultar(TabelaDeCodigos qual, VistaTexto condicao, int coluna);
    /// Looks up the description of a code.
    [[nodiscard]] Texto descricao(TabelaDeCodigos qual, Texto& codigo);

    TabelasDeCodigos tabelas;
    std::optional<MotorDeConsultas> motor{};
    std::size_t consultas = 0;
};

std::optional<Texto> BancoDeDados::Conexao::consultar(TabelaDeCodigos qual, VistaTexto condicao, int coluna) {
    tabelas.exigir(qual);
    if (!motor) motor.emplace();
    motor->copiar(qual, tabelas);
    const auto& [nome, colunas] = esquema(qual);
    ++consultas;
    return motor->consultar(junta("SELECT "_t, nome, "."_t, colunas[0], ", "_t, nome, "."_t, colunas[1], ", "_t, nome,
                                  "."_t, colunas[2], " From "_t, nome, " WHERE "_t, condicao),
                            coluna);
}

Texto BancoDeDados::Conexao::descricao(TabelaDeCodigos qual, Texto& codigo) {
    codigo = maiusculas(codigo);
    if (codigo.empty() || codigo.find('\0') != Texto::npos) return {}; // no table has such a code
    const auto& [nome, colunas] = esquema(qual);
    return consultar(qual, junta("((("_t, nome, "."_t, colunas[0], ")='"_t, codigo, "'))"_t), 1).value_or(Texto());
}

BancoDeDados::BancoDeDados(Arquivos& arquivos, const std::filesystem::path& caminho, VistaTexto conexao)
    : conexao_(new Conexao{.tabelas = {lerArquivo(arquivos, caminho), senhaDaConexao(conexao)}}) {}

BancoDeDados::~BancoDeDados() = default;

Texto BancoDeDados::descricaoFormaArrecadacao(Texto& codigo) {
    return conexao_->descricao(TabelaDeCodigos::FormaArrecadacao, codigo);
}

Texto BancoDeDados::descricaoFormaPagamento(Texto& codigo) {
    return conexao_->descricao(TabelaDeCodigos::FormaPagamento, codigo);
}

std::optional<Texto> BancoDeDados::ocorrencia(VistaTexto codigo) {
    const Texto numero = textoDoNumero(lerNumero(codigo));
    return conexao_->consultar(
        TabelaDeCodigos::Ocorrencia,
        junta("OcorrenciaTAV.codigoTipoRetorno = 1 AND OcorrenciaTAV.codigoRetorno = "_t, numero), 2);
}

std::size_t BancoDeDados::consultas() const noexcept {
    return conexao_->consultas;
}

} // namespace quilatador
