#include "tables/MotorDeConsultas.h"

#include "common/Falha.h"
#include "tables/FalhaDoBanco.h"

#include <algorithm>
#include <string>

#include <sqlite3.h>

namespace quilatador {

namespace {

struct Finaliza {
    void operator()(sqlite3_stmt* comando) const noexcept { sqlite3_finalize(comando); }
};
using Comando = std::unique_ptr<sqlite3_stmt, Finaliza>;

Falha falha(int numero, VistaTexto descricao) {
    return {numero, "BancoDeDados"_t, descricao};
}

/// Lack of memory is the only reason why these operations can fail, since the database is in memory.
void exigirRecursos(bool teve) {
    if (!teve) throw falha(falhaDoBanco::motor, "Recursos do sistema excedidos"_t);
}

/// Allows a query to read the code tables, and nothing else.
int autorizar(void*, int acao, const char* tabela, const char*, const char*, const char*) {
    const auto eh = [&](const EsquemaDeTabela& uma) { return textoDosBytes(tabela) == uma.nome; };
    const bool permitida = acao == SQLITE_SELECT || (acao == SQLITE_READ && std::ranges::any_of(tabelasDeCodigos, eh));
    return permitida ? SQLITE_OK : SQLITE_DENY;
}

/// Prepares a text that must be one whole statement. Anything after its end is an error too.
Comando preparar(sqlite3& sqlite, VistaTexto sql) {
    const std::string utf8 = utf8DeTexto(sql);
    sqlite3_stmt* comando = nullptr;
    const char* resto = nullptr;
    const int situacao = sqlite3_prepare_v2(&sqlite, utf8.data(), static_cast<int>(utf8.size()), &comando, &resto);
    Comando preparado(comando);
    exigirRecursos(situacao != SQLITE_NOMEM);
    if (situacao != SQLITE_OK || !preparado || resto != utf8.data() + utf8.size())
        throw falha(falhaDoBanco::consultaRecusada, junta("Erro de sintaxe na consulta: "_t, sql));
    return preparado;
}

void darValor(sqlite3_stmt* comando, int parametro, const ValorJet& valor) {
    int situacao = SQLITE_OK;
    if (const auto* inteiro = std::get_if<std::int64_t>(&valor)) {
        situacao = sqlite3_bind_int64(comando, parametro, *inteiro);
    } else if (const auto* duplo = std::get_if<double>(&valor)) {
        situacao = sqlite3_bind_double(comando, parametro, *duplo);
    } else if (const auto* texto = std::get_if<std::string>(&valor)) {
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

} // namespace

void MotorDeConsultas::Fecha::operator()(sqlite3* sqlite) const noexcept {
    sqlite3_close(sqlite);
}

MotorDeConsultas::MotorDeConsultas() {
    sqlite3* aberto = nullptr;
    constexpr int opcoes = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY | SQLITE_OPEN_NOMUTEX;
    const int situacao = sqlite3_open_v2(":memory:", &aberto, opcoes, nullptr);
    sqlite_.reset(aberto);
    exigirRecursos(situacao == SQLITE_OK);
}

void MotorDeConsultas::copiar(TabelaDeCodigos qual, const TabelasDeCodigos& tabelas) {
    bool& copiada = copiadas_[static_cast<std::size_t>(qual)];
    if (copiada) return;
    const EsquemaDeTabela& tabela = esquema(qual);
    const auto declaracao = [&](std::size_t i) {
        return junta(tabela.colunas[i], tabelas.deTextos(qual, i) ? " TEXT COLLATE NOCASE"_t : " NUMERIC"_t);
    };
    sqlite3_set_authorizer(sqlite_.get(), nullptr, nullptr);
    const Texto criacao = junta("CREATE TABLE "_t, tabela.nome, " ("_t, declaracao(0), ", "_t, declaracao(1), ", "_t,
                                declaracao(2), ")"_t);
    executar(preparar(*sqlite_, criacao).get());
    const Comando inclusao = preparar(*sqlite_, junta("INSERT INTO "_t, tabela.nome, " VALUES (?, ?, ?)"_t));
    tabelas.percorrer(qual, [&](const TabelasDeCodigos::Linha& linha) {
        for (std::size_t i = 0; i < linha.size(); ++i)
            darValor(inclusao.get(), static_cast<int>(i) + 1, linha[i]);
        executar(inclusao.get());
    });
    sqlite3_set_authorizer(sqlite_.get(), autorizar, nullptr);
    copiada = true;
}

std::optional<Texto> MotorDeConsultas::consultar(VistaTexto sql, int coluna) const {
    const Comando consulta = preparar(*sqlite_, sql);
    const int situacao = sqlite3_step(consulta.get());
    if (situacao == SQLITE_DONE) return std::nullopt;
    exigirRecursos(situacao == SQLITE_ROW);
    if (sqlite3_column_type(consulta.get(), coluna) == SQLITE_NULL) return Texto();
    const auto* const valor = reinterpret_cast<const char*>(sqlite3_column_text(consulta.get(), coluna));
    exigirRecursos(valor != nullptr);
    return textoDeUtf8({valor, static_cast<std::size_t>(sqlite3_column_bytes(consulta.get(), coluna))});
}

} // namespace quilatador
