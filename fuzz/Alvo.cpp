#include "Alvo.h"

#include "frontend/Trabalho.h"

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

bool terminado(const Resultado& resultado, TipoArquivo tipo) {
    if (tipo == TipoArquivo::ZUL702) return resultado.log.ends_with("Depuração terminada!\r\n"_t);
    return resultado.log.empty() || resultado.log.ends_with("\r\n"_t);
}

} // namespace

void exigir(bool promessa, const char* qual) {
    if (promessa) return;
    std::fprintf(stderr, "broken promise: %s\n", qual);
    std::abort();
}

void exigir(const std::string& desacordo) {
    exigir(desacordo.empty(), desacordo.c_str());
}

Texto entrada(const std::uint8_t* dados, std::size_t tamanho) {
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

bool Resultado::igualA(const Resultado& outro) const {
    return log == outro.log && resumo.desfecho == outro.resumo.desfecho &&
           resumo.totalErros == outro.resumo.totalErros && achados.size() == outro.achados.size() &&
           mensagens.size() == outro.mensagens.size();
}

Resultado analisar(TipoArquivo tipo, VistaTexto arquivo, VistaTexto leiaute, VistaTexto tabelas) {
    testes::MundoFalso mundo;
    mundo.arquivos.conteudo["/programa/Arquivo_ZUL702.xml"] = leiaute;
    mundo.arquivos.conteudo["/programa/TabelaErrosZUL.mdb"] = tabelas;
    mundo.arquivos.conteudo[arquivoAnalisado] = arquivo;
    testes::RelatorMemoria relator;
    Resultado resultado;
    {
        std::atomic<bool> cancelado = false;
        modVariaveis globais;
        Trabalho trabalho(mundo.ambiente, globais, cancelado);
        trabalho.adicionarRelator(relator);
        // The analyses of returns must stand a database that cannot be opened, too.
        if (tipo != TipoArquivo::ZUL702 && !trabalho.iniciar()) mundo.painel.mensagens.clear();
        Pedido pedido;
        pedido.tipoArquivo = tipo;
        pedido.nomeArquivo = arquivoAnalisado;
        pedido.comData = true;
        pedido.FormatoDataBarra = "AAAAMMDD"_t;
        Rodada rodada = trabalho.comecar(pedido);
        resultado.resumo = trabalho.analisar(rodada, pedido);
    }
    exigir(mundo.arquivos.conteudo[arquivoAnalisado] == arquivo, "the input is not touched");
    exigir(mundo.arquivos.tudoFechado(), "every file is closed");
    resultado.log = mundo.arquivos.conteudo["/e.log"];
    resultado.achados = std::move(relator.achados);
    resultado.mensagens = std::move(mundo.painel.mensagens);
    return resultado;
}

void conferirPromessas(TipoArquivo tipo, VistaTexto arquivo, VistaTexto leiaute, VistaTexto tabelas) {
    const Resultado primeiro = analisar(tipo, arquivo, leiaute, tabelas);
    exigir(primeiro.igualA(analisar(tipo, arquivo, leiaute, tabelas)), "two runs give the same");
    exigir(terminado(primeiro, tipo), "the log has its ending");
    const std::int64_t linhas = linhasDe(arquivo);
    // A line number comes from the record's own sequence number, which the first pass has held against the count; but
    // for the header's, which no rule compares.
    for (const Achado& achado : primeiro.achados)
        exigir(achado.segmento == 'A' || (achado.linha >= 0 && achado.linha <= linhas),
               "line numbers lie within the file");
}

} // namespace quilatador::fuzz
