#include "validator/Sequencia.h"

#include "run/ParadaEstrutural.h"

namespace quilatador {

namespace {

constexpr VistaTexto naoEhHeader = "Primeira linha do arquivo não corresponde ao Header!"_t;

/// A structural finding whose message does not name the line; `linha` (1-based) is the line that it is about.
ParadaEstrutural paradaSemLinha(VistaTexto id, std::int64_t linha, VistaTexto mensagem) {
    return {"Importação"_t, Achado{.id = id,
                                   .gravidade = Gravidade::Estrutural,
                                   .linha = linha,
                                   .segmento = 0,
                                   .campo = {},
                                   .mensagem = Texto(mensagem)}};
}

} // namespace

Achado achadoDoIDRegistro(const RegistroRemessa& registro, char letra, std::int64_t linha, std::int64_t esperado) {
    const CampoRemessa& campo = registro.obterCampo("IDRegistro"_t);
    const bool zero = esperado == 0;
    return {.id = zero ? "sequencia.idRegistro.naoZero"_t : "sequencia.idRegistro.inesperado"_t,
            .gravidade = Gravidade::Erro,
            .linha = linha,
            .segmento = letra,
            .campo = CampoDoAchado{.nome = campo.nome(),
                                   .inicio = campo.inicio(),
                                   .fim = campo.Fim(),
                                   .encontrado = Texto(registro.textoNaLinha(campo)),
                                   .esperado = textoDe(esperado)},
            .mensagem = zero ? Texto("Número de identificação do registro inválido, deve ser Zero"_t)
                             : junta("Número de identificação do registro inválido. Esperado "_t, textoDe(esperado))};
}

bool Sequencia::verificar() {
    Progresso& progresso = rodada_.progresso();
    rodada_.escreverLog("VERIFICAÇÃO DA SEQUÊNCIA DE REGISTROS!"_t);
    rodada_.painel().rotulo(Rotulo::Operacao, "Verificando a integridade do arquivo..."_t);
    rodada_.iniciarFase(progresso.totalRegistros);
    irParaRegistro(progresso, 1);
    verificarHeader();
    for (;;) {
        const RegistroRemessa& registro = leitor_.ler();
        if (registro.linha().empty()) break;
        verificarTamanho(registro);
        irParaRegistro(progresso, progresso.registroAtual + 1);
        rodada_.painel().avancar(progresso);
        if (rodada_.cancelada()) return false;
        verificarOrdem(registro);
    }
    if (const Ordem::Quebra* quebra = ordem_.semTrailer()) parar(*quebra, 0);
    progresso.totalRegistros = progresso.registroAtual;
    rodada_.resumo().totalRegistros = progresso.registroAtual;
    return true;
}

/// Reads the first line. A line that is missing, empty or of no known type is no header.
const RegistroRemessa& Sequencia::lerHeader() {
    try {
        const RegistroRemessa& registro = leitor_.ler();
        if (!registro.linha().empty()) return registro;
    } catch (const Falha& falha) {
        if (falha.fonte() != "ArquivoRemessa"_t) throw;
    }
    throw paradaSemLinha("sequencia.a.ausente"_t, 1, naoEhHeader);
}

void Sequencia::verificarHeader() {
    const RegistroRemessa& registro = lerHeader();
    verificarTamanho(registro);
    if (diferente(registro.getValorCampo("TipoReg"_t), "A"_t))
        throw paradaSemLinha("sequencia.a.ausente"_t, 1, naoEhHeader);
    if (diferente(registro.getValorCampo("NomeArquivo"_t), "ZUL702"_t))
        throw paradaSemLinha("sequencia.a.nomeArquivo"_t, 1, "Arquivo não é ZUL702!"_t);
    // Every revision of version 1.00 is accepted; the content pass has additional checks for "1.00.01".
    if (trecho(registro.getValorCampoString("VersaoLayout"_t), 1, 4) != "1.00"_t)
        throw paradaSemLinha("sequencia.a.versaoLayout"_t, 1, "Versao de layout incompatível. Esperada: 1.00"_t);
    convenioHeader_ = registro.getValorCampoString("Convenio"_t);
    verificarIDRegistro(registro, 'A');
}

void Sequencia::verificarTamanho(const RegistroRemessa& registro) const {
    if (registro.linha().size() == static_cast<std::size_t>(registro.Tamanho())) return;
    throw paradaSemLinha("sequencia.tamanho"_t, leitor_.lidas(),
                         junta("Tamanho de registro inválido. Esperado "_t, textoDe(registro.Tamanho())));
}

void Sequencia::verificarOrdem(const RegistroRemessa& registro) {
    const char letra = leitor_.letra();
    const auto pararSe = [&](const Ordem::Quebra* quebra) {
        if (quebra) parar(*quebra, letra);
    };
    if (diferente(leitor_.sequencial(), linhaAtual()))
        parar({"sequencia.sequencial"_t, "Sequencial de registro inválido."_t}, letra);
    pararSe(ordem_.foraDeOrdem(leitor_.tipo()));
    if (leitor_.convenio() != convenioHeader_)
        parar({"sequencia.convenio"_t, "Número de convênio diferente do constante no header."_t}, letra);
    if (letra == 'S') pararSe(ordem_.fimDaGuia());
    pararSe(ordem_.quebra(letra));
    if (letra != 'A') verificarIDRegistro(registro, letra); // there is no rule for a second A
    ordem_.anotar(letra);
}

void Sequencia::verificarIDRegistro(const RegistroRemessa& registro, char letra) {
    const auto esperado = ordem_.idRegistro(letra);
    if (esperado && diferente(leitor_.idRegistro(), *esperado))
        rodada_.escreverErro(achadoDoIDRegistro(registro, letra, linhaAtual(), *esperado));
}

void Sequencia::parar(const Ordem::Quebra& quebra, char letra) const {
    throw ParadaEstrutural(
        "Depurador "_t, Achado{.id = quebra.id,
                               .gravidade = Gravidade::Estrutural,
                               .linha = linhaAtual(),
                               .segmento = letra,
                               .campo = std::nullopt,
                               .mensagem = junta("Linha: "_t, comZeros(linhaAtual(), 6), " -  "_t, quebra.mensagem)});
}

} // namespace quilatador
