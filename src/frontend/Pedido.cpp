#include "frontend/Pedido.h"

#include "common/Falha.h"
#include "common/LeitorDeLinhas.h"
#include "validator/CampoLivre.h"

namespace quilatador {

namespace {

std::optional<TipoArquivo> tipoDaLinha(VistaTexto linha) {
    const VistaTexto nome = trecho(linha, 12, 6);
    if (nome == "ZUL702"_t) return TipoArquivo::ZUL702;
    if (nome == "ZUL708"_t) return TipoArquivo::ZUL708;
    if (linha.starts_with("A2"_t)) return TipoArquivo::TAV001;
    return std::nullopt;
}

} // namespace

std::optional<Texto> recusaDaPosicao(double posicao) {
    if (posicao >= campoLivre::primeiraPosicao && posicao <= campoLivre::ultimaPosicao) return std::nullopt;
    return Texto("Posição da data no código de barras deve estar entre 20 e 41 (limites do campo livre)!"_t);
}

std::optional<Texto> recusaDoFormato(double posicao, VistaTexto formato) {
    const int ultima = campoLivre::ultimaPosicaoPara(static_cast<int>(formato.size()));
    if (posicao <= ultima) return std::nullopt;
    return junta("Posição da data no código de barras para este formato não pode ser maior que "_t, textoDe(ultima));
}

std::optional<Texto> recusaDaData(double posicao, VistaTexto formato) {
    const auto daPosicao = recusaDaPosicao(posicao);
    return daPosicao ? daPosicao : recusaDoFormato(posicao, formato);
}

std::optional<TipoArquivo> reconhecerTipo(const std::filesystem::path& arquivo, Arquivos& arquivos) {
    constexpr int tentativas = 2; // a file that is locked for a moment must not be taken for one of another type
    for (int tentativa = 0; tentativa < tentativas; ++tentativa) {
        try {
            LeitorDeLinhas leitor(arquivos.abrirEntrada(arquivo));
            return tipoDaLinha(leitor.proxima().value_or(VistaTexto()));
        } catch (const Falha&) {
            continue; // the analysis that follows reports what is wrong with the file
        }
    }
    return std::nullopt;
}

} // namespace quilatador
