#pragma once

#include "cli/Programa.h"
#include "support/Remessas.h"

namespace quilatador::testes {

/// The command line in a world of fakes, with a few files in /d and the program's own in /programa.
struct BancadaDoPrograma : testes::MundoComRemessa {
    BancadaDoPrograma() : MundoComRemessa(remessa(), "/d/boa.rem") {
        static const Texto tabelas = lerTexto(QUILATADOR_TABELAS);
        arquivos.conteudo["/programa/TabelaErrosZUL.mdb"] = tabelas;
        arquivos.conteudo["/d/ruim.rem"] = remessa({.guias = 3, .falhas = true});
        arquivos.conteudo["/d/cortada.rem"] = remessa().substr(0, 1000);
        arquivos.conteudo["/d/impressao.ret"] = remessa({.tipo = gerador::Tipo::ZUL708, .guias = 5});
        arquivos.conteudo["/d/liquidacao"] = remessa({.tipo = gerador::Tipo::TAV001, .registros = 3});
    }

    [[nodiscard]] Maquina maquina() {
        return {.relogio = relogio,
                .localidade = localidade,
                .lancador = lancador,
                .arquivos = arquivos,
                .saida = saida,
                .erros = erros,
                .saidaColorida = colorida,
                .errosNoTerminal = noTerminal,
                .larguraDoTerminal = largura,
                .pastaDoPrograma = "/programa",
                .interrompido = interrompido};
    }
    int rodar(std::vector<std::string> argumentos) { return executar(std::move(argumentos), maquina()); }

    std::ostringstream saida;
    std::ostringstream erros;
    bool colorida = false;
    bool noTerminal = false;
    int largura = 80;
    std::function<bool()> interrompido = [] { return false; };
};

} // namespace quilatador::testes
