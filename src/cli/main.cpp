#include "cli/Programa.h"
#include "platform/ArquivosDoSistema.h"
#include "platform/CanaisPadrao.h"
#include "platform/Interrupcao.h"
#include "platform/LancadorDoSistema.h"
#include "platform/LocalidadeDoSistema.h"
#include "platform/Pastas.h"
#include "platform/RelogioDoSistema.h"
#include "platform/Terminal.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    using namespace quilatador;
    ocuparCanaisFechados();
    try {
        std::ios::sync_with_stdio(false);
        const Interrupcao interrupcao;
        RelogioDoSistema relogio;
        LocalidadeDoSistema localidade;
        LancadorDoSistema lancador;
        ArquivosDoSistema arquivos;
        return executar({argv + 1, argv + argc}, {.relogio = relogio,
                                                  .localidade = localidade,
                                                  .lancador = lancador,
                                                  .arquivos = arquivos,
                                                  .saida = std::cout,
                                                  .erros = std::cerr,
                                                  .saidaColorida = temCores(Fluxo::Padrao),
                                                  .errosNoTerminal = redesenha(Fluxo::Erro),
                                                  .larguraDoTerminal = larguraDoTerminal(Fluxo::Erro),
                                                  .pastaDoPrograma = pastaDoPrograma(),
                                                  .interrompido = [&] { return interrupcao.pedida(); }});
    } catch (const std::exception& erro) {
        std::cerr << "Erro interno: " << erro.what() << std::endl;
        return situacao::naoRodou;
    }
}
