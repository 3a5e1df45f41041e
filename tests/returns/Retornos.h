#pragma once

#include "returns/modTrataTAV001.h"
#include "returns/modTrataZUL708.h"
#include "tables/Bancos.h"

#include <utility>

namespace quilatador::testes {

/// A record with texts at positions (1-based) and blanks elsewhere, without its line end.
inline Texto registro(std::initializer_list<std::pair<std::size_t, VistaTexto>> campos, std::size_t tamanho = 240) {
    Texto linha(tamanho, ' ');
    for (const auto& [posicao, texto] : campos)
        linha.replace(posicao - 1, texto.size(), texto);
    return linha;
}

/// Lines as a file has them.
inline Texto linhas(std::initializer_list<VistaTexto> todas) {
    Texto arquivo;
    for (const VistaTexto linha : todas)
        arquivo += junta(linha, "\r\n");
    return arquivo;
}

/// A return file, with the code tables open.
struct Bancada {
    using Analise = ResultadoRetorno (*)(Ambiente&, const modVariaveis&, const PedidoDeRetorno&,
                                         const std::atomic<bool>&);

    explicit Bancada(Analise qual, Texto conteudo = {}, std::filesystem::path caminho = "/d/retorno.ret")
        : analise(qual), pedido{.nomeArquivo = std::move(caminho)} {
        mundo.arquivos.conteudo[pedido.nomeArquivo] = std::move(conteudo);
        globais.bancoDeDados = &banco;
    }

    Resumo rodar() { return resumo = analise(mundo.ambiente, globais, pedido, cancelado).resumo; }
    /// The log of a run behind its title and the empty line.
    Texto log() {
        rodar();
        const Texto& todo = mundo.arquivos.conteudo["/d/retorno.log"];
        const VistaTexto titulo = "LOG DE DEPURAÇÃO DO ARQUIVO /d/retorno.ret  -   10/03/2026\r\n\r\n"_t;
        return todo.starts_with(titulo) ? todo.substr(titulo.size()) : junta("(sem título) "_t, todo);
    }

    MundoFalso mundo;
    BancoDeDados banco = abrirBanco(lerBanco("jet4.mdb"));
    modVariaveis globais;
    Analise analise;
    PedidoDeRetorno pedido;
    std::atomic<bool> cancelado = false;
    Resumo resumo; ///< of the last run
};

} // namespace quilatador::testes
