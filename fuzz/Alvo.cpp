#include "Alvo.h"

#include "returns/modTrataTAV001.h"
#include "returns/modTrataZUL708.h"
#include "tables/BancoDeDados.h"
#include "validator/Depurador.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace quilatador::fuzz {

namespace {

constexpr const char* arquivoAnalisado = "/e.arq";

Texto lerArquivo(const char* caminho) {
    std::ifstream arquivo(caminho, std::ios::binary);
    exigir(arquivo.good(), caminho);
    return {std::istreambuf_iterator<char>(arquivo), {}};
}

/// Lines of a file as the loosest reader would count them.
std::int64_t linhasDe(VistaTexto arquivo) {
    return 1 + std::ranges::count_if(arquivo, [](char c) { return c == '\r' || c == '\n'; });
}

bool terminado(const Rodada& rodada, Analise tipo) {
    if (tipo == Analise::ZUL702) return rodada.log.ends_with(junta("Depuração terminada!"_t, "\r\n"));
    return rodada.log.empty() || rodada.log.ends_with("\r\n");
}

} // namespace

void exigir(bool promessa, const char* qual) {
    if (promessa) return;
    std::fprintf(stderr, "broken promise: %s\n", qual);
    std::abort();
}

Texto textoDe(const std::uint8_t* dados, std::size_t tamanho) {
    return {reinterpret_cast<const char*>(dados), tamanho};
}

const Texto& leiauteDoPrograma() {
    static const Texto leiaute = lerArquivo(QUILATADOR_LEIAUTE);
    return leiaute;
}

const Texto& tabelasDoPrograma() {
    static const Texto tabelas = lerArquivo(QUILATADOR_TABELAS);
    return tabelas;
}

bool Rodada::igualA(const Rodada& outra) const {
    return log == outra.log && resumo.desfecho == outra.resumo.desfecho &&
           resumo.totalErros == outra.resumo.totalErros && achados.size() == outra.achados.size() &&
           mensagens.size() == outra.mensagens.size();
}

Rodada analisar(Analise tipo, VistaTexto arquivo, VistaTexto leiaute, VistaTexto tabelas) {
    testes::MundoFalso mundo;
    mundo.arquivos.conteudo["/programa/Arquivo_ZUL702.xml"] = leiaute;
    mundo.arquivos.conteudo["/programa/TabelaErrosZUL.mdb"] = tabelas;
    mundo.arquivos.conteudo[arquivoAnalisado] = arquivo;
    testes::RelatorMemoria relator;
    modVariaveis globais;
    Rodada rodada;
    if (tipo == Analise::ZUL702) {
        Depurador depurador(mundo.ambiente, globais);
        depurador.adicionarRelator(relator);
        depurador.PosicaoDataBarra = 20;
        depurador.FormatoDataBarra = "AAAAMMDD";
        rodada.resumo = depurador.DepurarArquivo(arquivoAnalisado);
    } else {
        std::unique_ptr<BancoDeDados> banco;
        try {
            banco = std::make_unique<BancoDeDados>(mundo.arquivos, "/programa/TabelaErrosZUL.mdb");
        } catch (const Falha&) {
            banco = nullptr; // the analysis must stand that, too
        }
        globais.bancoDeDados = banco.get();
        Relator* const ouvintes[] = {&relator};
        const std::atomic<bool> cancelado = false;
        const auto tratar = tipo == Analise::ZUL708 ? tratarRetornoZUL708 : tratarRetornoTAV001;
        rodada.resumo =
            tratar(mundo.ambiente, globais, {.nomeArquivo = arquivoAnalisado, .ouvintes = ouvintes}, cancelado).resumo;
    }
    exigir(mundo.arquivos.conteudo[arquivoAnalisado] == arquivo, "the input is not touched");
    exigir(mundo.arquivos.tudoFechado(), "every file is closed");
    rodada.log = mundo.arquivos.conteudo["/e.log"];
    rodada.achados = std::move(relator.achados);
    rodada.mensagens = std::move(mundo.painel.mensagens);
    return rodada;
}

void conferirPromessas(Analise tipo, VistaTexto arquivo, VistaTexto leiaute, VistaTexto tabelas) {
    const Rodada primeira = analisar(tipo, arquivo, leiaute, tabelas);
    exigir(primeira.igualA(analisar(tipo, arquivo, leiaute, tabelas)), "two runs give the same");
    exigir(terminado(primeira, tipo), "the log has its ending");
    const std::int64_t linhas = linhasDe(arquivo);
    // A line number comes from the record's own sequence number, which the first pass has held against the count; but
    // for the header's, which no rule compares.
    for (const Achado& achado : primeira.achados)
        exigir(achado.segmento == 'A' || (achado.linha >= 0 && achado.linha <= linhas),
               "line numbers lie within the file");
}

} // namespace quilatador::fuzz
