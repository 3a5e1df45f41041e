#include "cli/ComandoConferir.h"

#include "cli/TextoNoTerminal.h"
#include "common/Falha.h"
#include "frontend/Laudo.h"

namespace quilatador {

namespace {

/// The sum of a file; "" if the user stops it. Raises the failures of `Arquivos::abrirEntrada`, and `Falha` 57 when it
/// cannot be read.
std::string somaDoArquivo(Sessao& sessao, const std::filesystem::path& arquivo) {
    Arquivos& arquivos = sessao.ambiente().arquivos;
    static_cast<void>(arquivos.abrirEntrada(arquivo)); // which says why, where the sum would only be missing
    std::string soma = arquivos.somar(arquivo)->hexadecimal([&] {
        sessao.ambiente().painel.processarEventos();
        return sessao.cancelado().load(std::memory_order_relaxed);
    });
    if (soma.empty() && !sessao.cancelado())
        throw Falha(numeroDeFalha::erroDeDispositivo, "ComandoConferir"_t,
                    "o arquivo não pôde ser lido, ou foi alterado enquanto isso"_t);
    return soma;
}

/// The sum that a report tells. Raises `Falha` where it tells none, or is none.
std::string somaEsperada(Sessao& sessao, const std::filesystem::path& laudo) {
    const auto falha = [&](VistaTexto motivo) {
        return Falha(numeroDeFalha::geral, "ComandoConferir"_t, junta(motivo, ": "_t, textoDoCaminho(laudo)));
    };
    try {
        const auto soma = somaNoLaudo(laudo, sessao.ambiente().arquivos);
        if (!soma) throw falha("não é um laudo deste programa"_t);
        if (soma->empty()) throw falha("o laudo não traz o SHA-256"_t);
        return *soma;
    } catch (const Falha& outra) {
        if (outra.numero() == numeroDeFalha::geral) throw;
        throw falha(junta("o laudo não pôde ser lido ("_t, outra.descricao(), ")"_t));
    }
}

int responder(Sessao& sessao, const std::filesystem::path& arquivo, const std::filesystem::path& laudo) {
    const auto semResposta = [&](VistaTexto motivo) {
        sessao.dizer(junta(nomeParaMensagem(arquivo), ": não foi possível conferir com o laudo: "_t, motivo));
        return situacao::naoRodou;
    };
    try {
        const std::string esperada = somaEsperada(sessao, laudo);
        const std::string soma = somaDoArquivo(sessao, arquivo);
        if (soma.empty()) {
            sessao.dizer(junta(nomeParaMensagem(arquivo), ": leitura cancelada"_t));
            return situacao::interrompido;
        }
        const bool mesmo = soma == esperada;
        sessao.maquina().saida << paraTerminal(junta(nomeParaMensagem(arquivo),
                                                     mesmo ? ": é o arquivo do laudo "_t
                                                           : ": não é o arquivo do laudo, ou mudou depois dele: "_t,
                                                     textoDoCaminho(laudo)))
                               << std::endl;
        return mesmo ? situacao::nadaEncontrado : situacao::haAchados;
    } catch (const Falha& falha) {
        return semResposta(falha.descricao());
    }
}

} // namespace

int conferirLaudo(Sessao& sessao) {
    const Argumentos& argumentos = sessao.argumentos();
    const std::filesystem::path& arquivo = argumentos.arquivos.front();
    if (const auto motivo = recusaDoNome(arquivo)) {
        sessao.dizer(junta(nomeParaMensagem(arquivo), ": não foi possível conferir com o laudo: "_t, *motivo));
        return situacao::naoRodou;
    }
    return responder(sessao, arquivo, argumentos.conferir);
}

} // namespace quilatador
