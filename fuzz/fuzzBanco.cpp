#include "Alvo.h"

#include "tables/BancoDeDados.h"

using namespace quilatador;
using namespace quilatador::fuzz;

namespace {

/// What a damaged database answers, or why it does not: texts of either kind, never a crash.
Texto consultar(VistaTexto banco) {
    testes::MundoFalso mundo;
    mundo.arquivos.conteudo["/b.mdb"] = banco;
    Texto respostas;
    try {
        BancoDeDados aberto(mundo.arquivos, "/b.mdb");
        for (const VistaTexto codigo : {"05"_t, "12"_t, "07"_t, "99"_t, "x"_t})
            respostas += junta(aberto.ocorrencia(codigo).value_or(Texto(1, '-')), "|"_t);
        for (const VistaTexto procurado : {"1"_t, "a"_t, "X"_t, ""_t}) {
            Texto codigo(procurado);
            respostas += junta(aberto.descricaoFormaArrecadacao(codigo), aberto.descricaoFormaPagamento(codigo), "|"_t);
        }
    } catch (const Falha& falha) {
        exigir(!falha.descricao().empty(), "a failure says what happened");
        respostas += falha.descricao();
    }
    exigir(mundo.arquivos.conteudo["/b.mdb"] == banco, "the database is not touched");
    return respostas;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* dados, std::size_t tamanho) {
    const Texto banco = entrada(dados, tamanho);
    exigir(consultar(banco) == consultar(banco), "two openings give the same");
    return 0;
}
