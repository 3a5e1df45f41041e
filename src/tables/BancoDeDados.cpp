#include "tables/BancoDeDados.h"

#include "common/Falha.h"
#include "common/Numero.h"
#include "tables/ArquivoJet.h"
#include "tables/FalhaDoBanco.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdlib>
#include <cstring>
#include <variant>

#include <mdbtools.h>
#include <sqlite3.h>

namespace quilatador {

namespace {

/// The code tables have some hundreds of rows; a file larger than this is something else.
constexpr std::size_t maiorArquivo = std::size_t{64} << 20;

constexpr std::size_t colunasPorTabela = 3;

struct Tabela {
    const char* nome;
    std::array<const char*, colunasPorTabela> colunas;
};

constexpr std::array<Tabela, 3> tabelas{
    {{"OcorrenciaTAV", {"codigoTipoRetorno", "codigoRetorno", "textoDescricao"}},
     {"FormaArrecadacao", {"codigoFormaArrecadacao", "textoDescricaoFormaArrecadacao", "indicadorEstado"}},
     {"FormaPagamento", {"codigoFormaPagamento", "textoDescricaoFormaPagamento", "indicadorEstado"}}}};
constexpr std::size_t ocorrencias = 0;
constexpr std::size_t formasDeArrecadacao = 1;
constexpr std::size_t formasDePagamento = 2;

/// A value of a row, in UTF-8 where it is a text; none where it is null.
using Campo = std::variant<std::monostate, std::int64_t, double, std::string>;
using Linha = std::array<Campo, colunasPorTabela>;

Falha falha(int numero, VistaTexto descricao) {
    return {numero, "BancoDeDados", Texto(descricao)};
}

template <auto fechar>
struct Fecha {
    template <typename Recurso>
    void operator()(Recurso* recurso) const {
        fechar(recurso);
    }
};

Texto lerArquivo(Arquivos& arquivos, const std::filesystem::path& caminho) {
    try {
        const auto arquivo = arquivos.abrirEntrada(caminho);
        constexpr std::size_t folga = 4096; // where the end shows without another round
        const std::size_t previsto = std::min<std::uint64_t>(arquivos.tamanho(caminho), maiorArquivo);
        Texto bytes;
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

/// The password that a connect string gives, "" where it gives none.
VistaTexto senhaDaConexao(VistaTexto conexao) {
    constexpr VistaTexto chave = "pwd=";
    while (!conexao.empty()) {
        const VistaTexto parte = conexao.substr(0, conexao.find(';'));
        if (iguaisSemCaixa(parte.substr(0, chave.size()), chave)) return parte.substr(chave.size());
        conexao.remove_prefix(std::min(parte.size() + 1, conexao.size()));
    }
    return {};
}

/// A little-endian number.
template <typename Numero>
Numero lerNumeroJet(VistaTexto bytes) {
    std::array<unsigned char, sizeof(Numero)> copia{};
    if (bytes.size() != copia.size())
        throw falha(falhaDoBanco::danificado, "O banco de dados tem um número de tamanho inválido"_t);
    std::memcpy(copia.data(), bytes.data(), bytes.size());
    if constexpr (std::endian::native == std::endian::big) std::ranges::reverse(copia);
    return std::bit_cast<Numero>(copia);
}

bool ehTexto(const MdbColumn& coluna) noexcept {
    return coluna.col_type == MDB_TEXT || coluna.col_type == MDB_MEMO;
}

bool ehNumero(const MdbColumn& coluna) noexcept {
    constexpr std::array<int, 5> tipos{MDB_BYTE, MDB_INT, MDB_LONGINT, MDB_FLOAT, MDB_DOUBLE};
    return std::ranges::find(tipos, coluna.col_type) != tipos.end();
}

/// The code tables as the library gives them, out of a file that was checked before.
class LeitorJet {
  public:
    LeitorJet(Texto bytes, VistaTexto senha);

    /// Whether a column (0-based) of a table holds texts; else it holds numbers.
    [[nodiscard]] bool deTextos(std::size_t tabela, std::size_t coluna) const {
        return ehTexto(*abertas_[tabela].colunas[coluna]);
    }
    /// Calls `receber` with each row of a table, in the order of the file.
    template <typename Receber>
    void percorrer(std::size_t tabela, Receber receber) {
        MdbTableDef* const definicao = abertas_[tabela].definicao.get();
        mdb_rewind_table(definicao);
        while (mdb_fetch_row(definicao) != 0) {
            Linha linha;
            std::ranges::transform(abertas_[tabela].colunas, linha.begin(),
                                   [&](const MdbColumn* coluna) { return campo(*coluna); });
            receber(linha);
        }
    }

  private:
    /// The library keeps the address of `entrada`.
    struct Aberta {
        MdbCatalogEntry entrada{};
        std::unique_ptr<MdbTableDef, Fecha<mdb_free_tabledef>> definicao;
        std::array<const MdbColumn*, colunasPorTabela> colunas{};
    };

    void abrirBiblioteca();
    void abrirTabelas();
    [[nodiscard]] std::array<std::uint32_t, tabelas.size()> paginasDasTabelas();
    void lerDefinicao(Aberta& tabela, const char* nome, std::uint32_t pagina);
    [[nodiscard]] static const MdbColumn& coluna(const Aberta& tabela, const char* nome);
    [[nodiscard]] Campo campo(const MdbColumn& coluna) const;
    [[nodiscard]] VistaTexto bytes(const MdbColumn& coluna) const;
    [[nodiscard]] std::string utf8(const MdbColumn& coluna) const;

    ArquivoJet arquivo_;
    std::unique_ptr<MdbHandle, Fecha<mdb_close>> mdb_;
    std::array<Aberta, tabelas.size()> abertas_;
};

LeitorJet::LeitorJet(Texto bytes, VistaTexto senha) : arquivo_(std::move(bytes)) {
    if (!arquivo_.senha().empty() && arquivo_.senha() != senha)
        throw falha(falhaDoBanco::senhaInvalida, "Senha inválida"_t);
    abrirBiblioteca();
    abrirTabelas();
}

void LeitorJet::abrirBiblioteca() {
    // With what this variable may ask for, the library would print on our standard output.
    static char semOpcoes[] = "MDBOPTS=";
    ::putenv(semOpcoes);
    mdb_.reset(mdb_open_buffer(arquivo_.bytes().data(), arquivo_.bytes().size(), MDB_NOFLAGS));
    if (!mdb_) throw falha(falhaDoBanco::naoReconhecido, "Formato de banco de dados não reconhecido"_t);
    // What the texts are in and what they become, whatever the environment says.
    iconv_close(mdb_->iconv_in);
    mdb_->iconv_in = iconv_open("UTF-8", arquivo_.versao() == VersaoJet::Jet3 ? "CP1252" : "UCS-2LE");
}

void LeitorJet::abrirTabelas() {
    const auto paginas = paginasDasTabelas();
    for (std::size_t i = 0; i < tabelas.size(); ++i) {
        const auto& [nome, colunas] = tabelas[i];
        if (paginas[i] == 0) throw falha(falhaDoBanco::semTabela, junta("O banco de dados não tem a tabela "_t, nome));
        lerDefinicao(abertas_[i], nome, paginas[i]);
        std::ranges::transform(colunas, abertas_[i].colunas.begin(), [&](const char* nomeDaColuna) {
            const MdbColumn& achada = coluna(abertas_[i], nomeDaColuna);
            if (ehNumero(achada) || ehTexto(achada)) return &achada;
            throw falha(falhaDoBanco::colunaDeOutroTipo,
                        junta("A coluna ", nomeDaColuna, " não tem números nem textos"_t));
        });
    }
}

/// Where the definitions of the tables are, 0 for a table that is missing. The library's own reader of the catalogue
/// is not used: it reads the properties of all objects too, and trusts their bytes.
std::array<std::uint32_t, tabelas.size()> LeitorJet::paginasDasTabelas() {
    Aberta catalogo;
    lerDefinicao(catalogo, "MSysObjects", lugarJet::catalogo);
    const MdbColumn& identificador = coluna(catalogo, "Id");
    const MdbColumn& nome = coluna(catalogo, "Name");
    const MdbColumn& tipo = coluna(catalogo, "Type");
    std::array<std::uint32_t, tabelas.size()> paginas{};
    mdb_rewind_table(catalogo.definicao.get());
    while (mdb_fetch_row(catalogo.definicao.get()) != 0) {
        if (lerNumeroJet<std::int16_t>(bytes(tipo)) != MDB_TABLE) continue;
        const std::string este = utf8(nome);
        for (std::size_t i = 0; i < tabelas.size(); ++i) {
            constexpr std::uint32_t semSinais = 0x00FFFFFF;
            if (iguaisSemCaixa(este, tabelas[i].nome))
                paginas[i] = lerNumeroJet<std::uint32_t>(bytes(identificador)) & semSinais;
        }
    }
    return paginas;
}

void LeitorJet::lerDefinicao(Aberta& tabela, const char* nome, std::uint32_t pagina) {
    arquivo_.verificarTabela(pagina);
    tabela.entrada.mdb = mdb_.get();
    tabela.entrada.object_type = MDB_TABLE;
    tabela.entrada.table_pg = pagina;
    std::strncpy(tabela.entrada.object_name, nome, MDB_MAX_OBJ_NAME);
    tabela.definicao.reset(mdb_read_table(&tabela.entrada));
    if (!tabela.definicao || mdb_read_columns(tabela.definicao.get()) == nullptr)
        throw falha(falhaDoBanco::danificado, junta("A tabela ", nome, " está danificada"_t));
}

const MdbColumn& LeitorJet::coluna(const Aberta& tabela, const char* nome) {
    const GPtrArray& colunas = *tabela.definicao->columns;
    for (guint i = 0; i < colunas.len; ++i) {
        const auto& coluna = *static_cast<const MdbColumn*>(colunas.pdata[i]);
        if (iguaisSemCaixa(coluna.name, nome)) return coluna;
    }
    throw falha(falhaDoBanco::semColuna, junta("A tabela ", tabela.entrada.object_name, " não tem a coluna "_t, nome));
}

Campo LeitorJet::campo(const MdbColumn& coluna) const {
    const VistaTexto valor = bytes(coluna);
    if (valor.empty()) return {};
    switch (coluna.col_type) {
    case MDB_BYTE:
        return std::int64_t{lerNumeroJet<std::uint8_t>(valor)};
    case MDB_INT:
        return std::int64_t{lerNumeroJet<std::int16_t>(valor)};
    case MDB_LONGINT:
        return std::int64_t{lerNumeroJet<std::int32_t>(valor)};
    case MDB_FLOAT:
        return double{lerNumeroJet<float>(valor)};
    case MDB_DOUBLE:
        return lerNumeroJet<double>(valor);
    default:
        return utf8(coluna);
    }
}

/// The bytes of a column in the row fetched last; none where it is null.
VistaTexto LeitorJet::bytes(const MdbColumn& coluna) const {
    return {reinterpret_cast<const char*>(mdb_->pg_buf) + coluna.cur_value_start,
            static_cast<std::size_t>(coluna.cur_value_len)};
}

std::string LeitorJet::utf8(const MdbColumn& coluna) const {
    const Texto texto(coluna.col_type == MDB_MEMO ? arquivo_.textoLongo(bytes(coluna)) : Texto(bytes(coluna)));
    if (texto.empty()) return {};
    std::string destino(texto.size() * 3 + 1, '\0'); // no character of a code page or of UCS-2 takes more
    const int tamanho = mdb_unicode2ascii(mdb_.get(), texto.data(), texto.size(), destino.data(), destino.size());
    destino.resize(static_cast<std::size_t>(std::max(tamanho, 0)));
    return destino;
}

using Comando = std::unique_ptr<sqlite3_stmt, Fecha<sqlite3_finalize>>;

/// What a look-up may do: read the code tables.
int autorizar(void*, int acao, const char* tabela, const char*, const char*, const char*) {
    const auto eh = [&](const Tabela& uma) { return VistaTexto(tabela) == uma.nome; };
    const bool permitida = acao == SQLITE_SELECT || (acao == SQLITE_READ && std::ranges::any_of(tabelas, eh));
    return permitida ? SQLITE_OK : SQLITE_DENY;
}

/// The engine that runs the queries, with the tables copied to it so far.
class Motor {
  public:
    Motor();

    /// Copies a table.
    void copiar(std::size_t tabela, LeitorJet& leitor);
    /// The value of a column (0-based) in the first row of a query, "" where it is null; none without rows.
    [[nodiscard]] std::optional<Texto> consultar(VistaTexto sql, int coluna) const;

  private:
    [[nodiscard]] Comando preparar(VistaTexto sql) const;

    std::unique_ptr<sqlite3, Fecha<sqlite3_close>> sqlite_;
};

/// The engine failed for want of memory: there is nothing else in its way.
void exigirRecursos(bool teve) {
    if (!teve) throw falha(falhaDoBanco::motor, "Recursos do sistema excedidos");
}

Motor::Motor() {
    sqlite3* aberto = nullptr;
    constexpr int opcoes = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY | SQLITE_OPEN_NOMUTEX;
    const int situacao = sqlite3_open_v2(":memory:", &aberto, opcoes, nullptr);
    sqlite_.reset(aberto);
    exigirRecursos(situacao == SQLITE_OK);
}

void darCampo(sqlite3_stmt* comando, int parametro, const Campo& campo) {
    int situacao = SQLITE_OK;
    if (const auto* inteiro = std::get_if<std::int64_t>(&campo)) {
        situacao = sqlite3_bind_int64(comando, parametro, *inteiro);
    } else if (const auto* duplo = std::get_if<double>(&campo)) {
        situacao = sqlite3_bind_double(comando, parametro, *duplo);
    } else if (const auto* texto = std::get_if<std::string>(&campo)) {
        const int bytes = static_cast<int>(texto->size());
        situacao = sqlite3_bind_text(comando, parametro, texto->data(), bytes, SQLITE_TRANSIENT);
    } else {
        situacao = sqlite3_bind_null(comando, parametro);
    }
    exigirRecursos(situacao == SQLITE_OK);
}

void executar(sqlite3_stmt* comando) {
    exigirRecursos(sqlite3_step(comando) == SQLITE_DONE);
    sqlite3_reset(comando);
}

void Motor::copiar(std::size_t tabela, LeitorJet& leitor) {
    const auto& nome = tabelas[tabela].nome;
    const auto& colunas = tabelas[tabela].colunas;
    const auto declaracao = [&](std::size_t i) {
        return junta(colunas[i], leitor.deTextos(tabela, i) ? " TEXT COLLATE NOCASE" : " NUMERIC");
    };
    sqlite3_set_authorizer(sqlite_.get(), nullptr, nullptr);
    executar(preparar(junta("CREATE TABLE ", nome, " (", declaracao(0), ", ", declaracao(1), ", ", declaracao(2), ")"))
                 .get());
    const Comando inclusao = preparar(junta("INSERT INTO ", nome, " VALUES (?, ?, ?)"));
    leitor.percorrer(tabela, [&](const Linha& linha) {
        for (std::size_t i = 0; i < linha.size(); ++i)
            darCampo(inclusao.get(), static_cast<int>(i) + 1, linha[i]);
        executar(inclusao.get());
    });
    sqlite3_set_authorizer(sqlite_.get(), autorizar, nullptr);
}

std::optional<Texto> Motor::consultar(VistaTexto sql, int coluna) const {
    const Comando consulta = preparar(sql);
    const int situacao = sqlite3_step(consulta.get());
    if (situacao == SQLITE_DONE) return std::nullopt;
    exigirRecursos(situacao == SQLITE_ROW);
    if (sqlite3_column_type(consulta.get(), coluna) == SQLITE_NULL) return Texto();
    const auto* const valor = reinterpret_cast<const char*>(sqlite3_column_text(consulta.get(), coluna));
    exigirRecursos(valor != nullptr);
    return textoDeUtf8({valor, static_cast<std::size_t>(sqlite3_column_bytes(consulta.get(), coluna))});
}

/// One whole statement: whatever is behind its end makes it wrong too.
Comando Motor::preparar(VistaTexto sql) const {
    const std::string utf8 = utf8DeTexto(sql);
    sqlite3_stmt* comando = nullptr;
    const char* resto = nullptr;
    const int situacao =
        sqlite3_prepare_v2(sqlite_.get(), utf8.data(), static_cast<int>(utf8.size()), &comando, &resto);
    Comando preparado(comando);
    exigirRecursos(situacao != SQLITE_NOMEM);
    if (situacao != SQLITE_OK || !preparado || resto != utf8.data() + utf8.size())
        throw falha(falhaDoBanco::consultaRecusada, junta("Erro de sintaxe na consulta: ", sql));
    return preparado;
}

} // namespace

/// A table is copied to the engine by the first look-up in it: most runs of the program make none.
struct BancoDeDados::Conexao {
    [[nodiscard]] std::optional<Texto> consultar(std::size_t tabela, VistaTexto condicao, int coluna);
    /// Looks a code up in a table of code and description.
    [[nodiscard]] Texto descricao(std::size_t tabela, Texto& codigo);

    LeitorJet leitor;
    std::optional<Motor> motor{};
    std::array<bool, tabelas.size()> copiada{};
    std::size_t consultas = 0;
};

std::optional<Texto> BancoDeDados::Conexao::consultar(std::size_t tabela, VistaTexto condicao, int coluna) {
    if (!motor) motor.emplace();
    if (!copiada[tabela]) motor->copiar(tabela, leitor);
    copiada[tabela] = true;
    const auto& [nome, colunas] = tabelas[tabela];
    ++consultas;
    return motor->consultar(junta("SELECT ", nome, ".", colunas[0], ", ", nome, ".", colunas[1], ", ", nome, ".",
                                  colunas[2], " From ", nome, " WHERE ", condicao),
                            coluna);
}

Texto BancoDeDados::Conexao::descricao(std::size_t tabela, Texto& codigo) {
    if (codigo.empty()) return {};
    codigo = maiusculas(codigo);
    const auto& [nome, colunas] = tabelas[tabela];
    return consultar(tabela, junta("(((", nome, ".", colunas[0], ")='", codigo, "'))"), 1).value_or("");
}

BancoDeDados::BancoDeDados(Arquivos& arquivos, const std::filesystem::path& caminho, VistaTexto conexao)
    : conexao_(new Conexao{.leitor = {lerArquivo(arquivos, caminho), senhaDaConexao(conexao)}}) {}

BancoDeDados::~BancoDeDados() = default;

Texto BancoDeDados::descricaoFormaArrecadacao(Texto& codigo) {
    return conexao_->descricao(formasDeArrecadacao, codigo);
}

Texto BancoDeDados::descricaoFormaPagamento(Texto& codigo) {
    return conexao_->descricao(formasDePagamento, codigo);
}

std::optional<Texto> BancoDeDados::ocorrencia(VistaTexto codigo) {
    const Texto numero = textoDoNumero(lerNumero(codigo));
    return conexao_->consultar(
        ocorrencias, junta("OcorrenciaTAV.codigoTipoRetorno = 1 AND OcorrenciaTAV.codigoRetorno = ", numero), 2);
}

std::size_t BancoDeDados::consultas() const noexcept {
    return conexao_->consultas;
}

} // namespace quilatador
