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
        arquivo += junta(linha, "\r\n"_t);
    return arquivo;
}

/// A return file, with the code tables open.
struct Bancada {
    using Tratar = Resumo (*)(Rodada&, const modVariaveis&);

    explicit Bancada(Tratar qual, Texto conteudo = {}) : tratar(qual) {
        mundo.arquivos.conteudo["/d/março.ret"] = std::move(conteudo);
        globais.bancoDeDados = &banco;
    }

    Resumo rodar() {
        const TipoArquivo tipo = tratar == tratarRetornoZUL708 ? TipoArquivo::ZUL708 : TipoArquivo::TAV001;
        Rodada rodada(mundo.ambiente, {.tipoArquivo = tipo, .nomeArquivo = "/d/março.ret", .ouvintes = ouvintes},
                      cancelado);
        rodada.resumo().totalRegistros = lidas;
        if (canceladoNoInicio) cancelado = true;
        return resumo = tratar(rodada, globais);
    }
    /// The log of a run behind its title and the empty line.
    Texto log() {
        rodar();
        const Texto& todo = mundo.arquivos.conteudo["/d/março.log"];
        const VistaTexto titulo = "LOG DE DEPURAÇÃO DO ARQUIVO /d/março.ret  -   10/03/2026\r\n\r\n"_t;
        return todo.starts_with(titulo) ? todo.substr(titulo.size()) : junta("(sem título) "_t, todo);
    }

    /// What the panel was asked for, a line each, without blanks at the end.
    [[nodiscard]] Texto chamadas() const {
        Texto todas;
        for (const Texto& chamada : mundo.painel.chamadas)
            todas += junta(semBrancosADireita(chamada), "\n"_t);
        return todas;
    }

    MundoFalso mundo;
    RelatorMemoria ouvinte;
    std::vector<Relator*> ouvintes{&ouvinte};
    BancoDeDados banco = abrirBanco(lerBanco("jet4.mdb"));
    modVariaveis globais;
    Tratar tratar;
    std::atomic<bool> cancelado = false;
    bool canceladoNoInicio = false;
    std::int64_t lidas = 0; ///< lines that count as read before the first
    Resumo resumo;          ///< of the last run
};

} // namespace quilatador::testes
