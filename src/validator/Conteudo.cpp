#include "validator/Conteudo.h"

#include "validator/checks/Guia.h"
#include "validator/checks/Registros.h"
#include "validator/checks/SegmentosABC.h"

namespace quilatador {

namespace {

constexpr VistaTexto separador = "=================================================================="_t;

} // namespace

Conteudo::Conteudo(Rodada& rodada, LeitorDeRegistros& leitor, Definicao& definicao, GuiaEmMaos& guia)
    : rodada_(rodada), apontador_(rodada), leitor_(leitor), definicao_(definicao), guia_(guia) {}

bool Conteudo::verificar() {
    Progresso& progresso = rodada_.progresso();
    rodada_.escreverLog(""_t);
    rodada_.escreverLog("VERIFICAÇÃO DE CONTEÚDO"_t);
    rodada_.escreverLog(""_t);
    rodada_.painel().rotulo(Rotulo::Operacao, "Verificando registros de definição!"_t);
    rodada_.iniciarFase(progresso.totalRegistros);
    irParaRegistro(progresso, 1);
    verificarHeader();
    for (;;) {
        const RegistroRemessa& registro = leitor_.ler();
        if (rodada_.cancelada()) return false;
        if (registro.linha().empty()) return true;
        irParaRegistro(progresso, progresso.registroAtual + 1);
        const char letra = leitor_.letra();
        verificarCaracteres(registro, letra);
        rodada_.painel().avancar(progresso);
        if (!verificarRegistro(registro, letra)) return true;
    }
}

void Conteudo::verificarHeader() {
    const RegistroRemessa& header = leitor_.ler();
    definicao_.registroA = header.copia();
    verificarSegmentoA(apontador_, definicao_);
    verificarCaracteres(header, leitor_.letra());
}

void Conteudo::verificarCaracteres(const RegistroRemessa& registro, char letra) {
    quilatador::verificarCaracteres(apontador_, registro, letra, rodada_.progresso().registroAtual);
}

/// Handles one line. Returns false if the rest of the file is not to be read. H, I and J have no content checks, and
/// the sequence pass has already reported letters that are out of place.
bool Conteudo::verificarRegistro(const RegistroRemessa& registro, char letra) {
    if (letra == 'S') return iniciarGuia(registro);
    if (letra == 'Z')
        encerrarGuias();
    else if (letra >= 'T')
        guardarNaGuia(apontador_, registro, letra, rodada_.progresso().registroAtual, guia_, definicao_);
    else
        verificarDefinicao(apontador_, registro, letra, definicao_);
    return true;
}

bool Conteudo::iniciarGuia(const RegistroRemessa& registro) {
    std::int64_t& guias = rodada_.resumo().guiasDepuradas;
    rodada_.painel().rotulo(Rotulo::Operacao, "Depurando guias"_t);
    const std::optional<double> primeiras = rodada_.painel().primeirasGuias();
    if (primeiras && *primeiras <= static_cast<double>(guias)) return false;
    guia_.iniciar(registro);
    // The number shown leaves out the slip that begins: kept on purpose, the test `progressoUmaVezPorLinha` holds it.
    rodada_.progresso().guias = guias++;
    return true;
}

/// A slip is checked only here, at the trailer. Of however many slips a file holds, the last one alone is therefore
/// accepted or rejected, and at a second trailer once more: kept on purpose, the cases `guia-...` of
/// samples/variacoes.txt hold it.
void Conteudo::encerrarGuias() {
    Resumo& resumo = rodada_.resumo();
    if (guia_.iniciada()) {
        const bool aceita = verificarGuia(apontador_, guia_, definicao_);
        if (rodada_.cancelada()) return; // perhaps before all of it was checked
        ++(aceita ? resumo.guiasAceitas : resumo.guiasRejeitadas);
    }
    rodada_.progresso().guias = resumo.guiasDepuradas;
}

void Conteudo::escreverResumo() {
    const Resumo& resumo = rodada_.resumo();
    const auto linha = [&](VistaTexto rotulo, std::int64_t numero) {
        rodada_.escreverLog(junta(rotulo, textoDe(numero)));
    };
    rodada_.escreverLog(""_t);
    rodada_.escreverLog(separador);
    rodada_.escreverLog(""_t);
    linha("Erros encontrados: "_t, resumo.totalErros);
    rodada_.escreverLog(""_t);
    linha("Guias depuradas  : "_t, resumo.guiasRejeitadas + resumo.guiasAceitas);
    linha("Guias aceitas    : "_t, resumo.guiasAceitas);
    linha("Guias rejeitadas : "_t, resumo.guiasRejeitadas);
    rodada_.escreverLog(""_t);
    rodada_.escreverLog(separador);
    const Progresso& progresso = rodada_.progresso();
    rodada_.escreverLog(
        junta("Tempo Decorrido  : "_t, formatarTempo(tempoDecorrido(progresso, rodada_.ambiente().relogio.agora()))));
}

} // namespace quilatador
