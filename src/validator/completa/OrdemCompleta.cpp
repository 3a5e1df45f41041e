#include "validator/completa/OrdemCompleta.h"

#include "common/Numero.h"
#include "validator/Sequencia.h"

#include <algorithm>

namespace quilatador {

namespace {

constexpr std::int16_t lugarDaLetra = 1; ///< of "TipoReg", on which the order of the records rests
constexpr VistaTexto letrasDaGuia = "TUVWXY"_t;
/// The definitions that no remittance can do without.
constexpr VistaTexto definicoesExigidas = "BCDEKL"_t;

constexpr std::size_t indice(char letra) noexcept {
    return static_cast<unsigned char>(letra);
}

} // namespace

std::int64_t OrdemCompleta::acusar(const Ordem::Quebra& quebra, char letra, std::int64_t linha, std::int64_t causa) {
    return faltas_.acusar(faltaDeEstrutura(quebra.id, linha, letra, quebra.mensagem), causa);
}

void OrdemCompleta::receber(char letra, const TipoDeLinha* tipo, std::int64_t linha) {
    if (letra == 'A' && linha == 1) return; // the header itself, which is not whole
    bool temEfeito = true;
    if (letra == 'S')
        receberGuia(tipo, linha);
    else if (letra == 'Z')
        receberTrailer(linha);
    else
        temEfeito = letra > 'S' ? receberDaGuia(letra, tipo, linha) : receberDefinicao(letra, tipo, linha);
    if (temEfeito)
        faltas_.comEfeito();
    else
        faltas_.semEfeito(letra);
}

bool OrdemCompleta::receberDefinicao(char letra, const TipoDeLinha* tipo, std::int64_t linha) {
    if (!temLugarNaDefinicao(letra, linha)) return false;
    marcarPerdidas(letra);
    if (tipo) verificarIDRegistro(letra, *tipo);
    if (!tipo) static_cast<void>(ordem_.idRegistro(letra)); // it is counted all the same
    ordem_.anotar(letra);
    ultimaLetra_ = letra;
    if (tipo)
        conteudo_.definir(*tipo->registro, letra);
    else
        conteudo_.definirSemConteudo(letra, faltas_.daLinha());
    return true;
}

/// Whether a definition has its effect. One in a wrong place, or there for the second time, has none.
bool OrdemCompleta::temLugarNaDefinicao(char letra, std::int64_t linha) {
    if (const Ordem::Quebra* const quebra = ordem_.foraDeOrdem(VistaTexto(&letra, 1))) {
        const std::int64_t dita = faltam_[indice(letra)];
        coletor_.marcar({.letra = letra}, acusar(*quebra, letra, linha, dita != 0 ? dita : faltas_.causa()));
        return false;
    }
    if (letra == 'A') { // no rule asks for a second header
        Achado aviso =
            faltaDeEstrutura("sequencia.a.repetido"_t, linha, letra, "Segundo header, que o log não estranha"_t);
        aviso.gravidade = Gravidade::Aviso;
        coletor_.contar(std::move(aviso), faltas_.causa());
        return false;
    }
    const Ordem::Quebra* const quebra = ordem_.quebra(letra);
    if (!quebra) return true;
    if (quebra->exigida == 0 || ordem_.naDefinicao(quebra->exigida)) {
        acusar(*quebra, letra, linha, faltas_.causa());
        return false;
    }
    faltar(quebra->exigida, *quebra, letra, linha);
    return true;
}

/// A definition is missing in front of a letter, and others of those that must be there may be too. It is told once.
void OrdemCompleta::faltar(char exigida, const Ordem::Quebra& quebra, char letra, std::int64_t linha) {
    if (faltam_[indice(exigida)] != 0) return;
    const std::int64_t raiz = acusar(quebra, letra, linha, faltas_.causa());
    const char ate = std::min(letra, 'S');
    for (const char outra : definicoesExigidas)
        if (outra < ate && !ordem_.naDefinicao(outra) && faltam_[indice(outra)] == 0) {
            faltam_[indice(outra)] = raiz;
            coletor_.marcarAusente(outra, raiz);
        }
    if (faltam_[indice(exigida)] != 0) return;
    faltam_[indice(exigida)] = raiz;
    coletor_.marcarAusente(exigida, raiz);
}

/// Where a wrong number only goes on behind an earlier one of the same letter, it follows from that.
void OrdemCompleta::verificarIDRegistro(char letra, const TipoDeLinha& tipo) {
    const auto certo = ordem_.idRegistro(letra);
    if (!certo || !tipo.idRegistro) return;
    const Fundamento campo{.letra = letra, .campo = tipo.idRegistro->inicio(), .linha = tipo.registro->lugar()};
    try {
        const Valor valor = tipo.registro->getValorCampo(*tipo.idRegistro);
        if (!diferente(valor, *certo)) return;
        const double diferenca = lerNumero(valor.texto()) - static_cast<double>(*certo);
        IDErrado& ultimo = ids_[indice(letra)];
        const bool trocados = ultimo.linha + 1 == campo.linha && ultimo.diferenca == -diferenca;
        const bool continua = ultimo.causa != 0 && (trocados || ultimo.diferenca == diferenca);
        const std::int64_t causa = faltas_.causa() != 0 ? faltas_.causa() : continua ? ultimo.causa : 0;
        ultimo = {campo.linha, diferenca,
                  coletor_.contar(achadoDoIDRegistro(*tipo.registro, letra, campo.linha, *certo), causa)};
        coletor_.marcar(campo, ultimo.causa);
    } catch (const FalhaDeLeitura& falha) {
        coletor_.naoLido(falha, *tipo.registro, campo);
    }
}

/// Where lines are missing in front of this one, what is missing of the definitions or of the slip may have been there.
void OrdemCompleta::marcarPerdidas(char letra) {
    if (faltas_.perda() == 0) return;
    const char ate = letra >= 'S' ? 'L' : letra;
    if (ultimaLetra_ < 'S')
        for (char outra = ultimaLetra_; outra <= ate; ++outra)
            coletor_.marcar({.letra = outra}, faltas_.perda());
    if (ultimaLetra_ >= 'S' && coletor_.temGuia())
        for (const char outra : letrasDaGuia)
            if (outra >= ultimaLetra_ && (letra <= 'S' || letra == 'Z' || outra <= letra))
                coletor_.marcar({.letra = outra}, faltas_.perda());
}

void OrdemCompleta::encerrarGuia(std::int64_t linha) {
    marcarPerdidas('S');
    if (ordem_.temGuia()) acusarFimDaGuia(linha);
    conteudo_.encerrarGuia();
}

void OrdemCompleta::receberGuia(const TipoDeLinha* tipo, std::int64_t linha) {
    encerrarGuia(linha);
    if (const Ordem::Quebra* const quebra = ordem_.quebra('S')) faltar(quebra->exigida, *quebra, 'S', linha);
    faltamNaGuia_.fill(0);
    ordem_.anotar('S');
    ultimaLetra_ = 'S';
    if (tipo)
        conteudo_.iniciarGuia(*tipo->registro);
    else
        conteudo_.iniciarGuiaSemS(linha);
    if (const char ignorada = faltas_.letraSemEfeito();
        ignorada > 'S') { // it stands in front of the S to which it belongs
        faltamNaGuia_[indice(ignorada)] = faltas_.anteriorSemEfeito();
        coletor_.marcar({.letra = ignorada}, faltas_.anteriorSemEfeito());
    }
}

/// The slip in hand ends with the next S. The finding stands there, but is about this slip.
void OrdemCompleta::acusarFimDaGuia(std::int64_t linha) {
    std::int64_t raiz = 0;
    if (const Ordem::Quebra* const quebra = ordem_.semParcelas()) {
        const std::int64_t causa = coletor_.causaDe({.letra = 'Y'});
        raiz = acusar(*quebra, 'S', linha, causa != 0 ? causa : faltas_.causa());
        marcarQueFaltam(raiz);
    }
    if (const Ordem::Quebra* const quebra = ordem_.semObjeto()) {
        const std::int64_t causa = raiz != 0 ? raiz : coletor_.causaDe({.letra = 'V'});
        raiz = acusar(*quebra, 'S', linha, causa != 0 ? causa : faltas_.causa());
        coletor_.marcar({.letra = 'V'}, raiz);
    }
}

/// The records behind the last one of the slip are missing because of this finding.
void OrdemCompleta::marcarQueFaltam(std::int64_t causa) {
    for (const char letra : letrasDaGuia)
        if (letra > ultimaLetra_ && !ordem_.naGuia(letra)) coletor_.marcar({.letra = letra}, causa);
}

void OrdemCompleta::abrirGuiaSemS(std::int64_t linha) {
    conteudo_.encerrarGuia();
    conteudo_.iniciarGuiaSemS(linha);
    faltamNaGuia_.fill(0);
    ordem_.anotar('S');
}

bool OrdemCompleta::receberDaGuia(char letra, const TipoDeLinha* tipo, std::int64_t linha) {
    marcarPerdidas(letra);
    if (const Ordem::Quebra* const quebra = ordem_.quebra(letra); quebra && !temLugarNaGuia(*quebra, letra, linha))
        return quebra->exigida == 0; // one too many is missing nowhere else
    ordem_.anotar(letra);
    ultimaLetra_ = letra;
    if (tipo)
        conteudo_.guardar(*tipo->registro, letra);
    else
        conteudo_.guardarSemConteudo(letra);
    return true;
}

/// Tells what is wrong with a record in the slip, and whether it is kept all the same.
bool OrdemCompleta::temLugarNaGuia(const Ordem::Quebra& quebra, char letra, std::int64_t linha) {
    const char definicao = letra == 'V' ? 'F' : letra == 'W' ? 'G' : '\0';
    if (definicao != '\0' && !ordem_.naDefinicao(definicao)) {
        faltar(definicao, quebra, letra, linha);
        return ordem_.temGuia();
    }
    const std::int64_t atrasada = ordem_.temGuia() ? faltamNaGuia_[indice(letra)] : 0;
    const bool outraGuia = atrasada == 0 && abreOutraGuia(letra);
    if (outraGuia) abrirGuiaSemS(linha);
    const std::int64_t dita = atrasada != 0 || outraGuia ? atrasada : faltamNaGuia_[indice(quebra.exigida)];
    const std::int64_t raiz = acusar(quebra, letra, linha, dita != 0 ? dita : faltas_.causa());
    coletor_.marcar({.letra = letra, .campo = 0, .linha = linha}, raiz);
    coletor_.marcar({.letra = letra, .campo = lugarDaLetra}, raiz);
    if (!ordem_.temGuia()) return false;
    if (quebra.exigida == 0 || (!outraGuia && ordem_.naGuia(letra) && letra != 'X' && letra != 'Y')) return false;
    for (const char outra : letrasDaGuia)
        if (outra < letra && !ordem_.naGuia(outra) && faltamNaGuia_[indice(outra)] == 0) {
            faltamNaGuia_[indice(outra)] = raiz;
            coletor_.marcar({.letra = outra}, raiz);
        }
    return true;
}

/// Whether a record that does not fit into the slip in hand begins another one, whose S is missing.
bool OrdemCompleta::abreOutraGuia(char letra) {
    if (!ordem_.temGuia() && !ordem_.naDefinicao('L')) return false;
    if (faltas_.perda() != 0) return !ordem_.temGuia() || (ordem_.naGuia('Y') && letra < 'X');
    const bool anteriorCompleta = !ordem_.temGuia() || ordem_.naGuia('U');
    const LinhaDoArquivo* const proxima = janela_.olhar(1);
    return letra == 'T' && anteriorCompleta && proxima && proxima->texto.starts_with('U');
}

void OrdemCompleta::receberTrailer(std::int64_t linha) {
    marcarPerdidas('Z');
    if (const Ordem::Quebra* const quebra = ordem_.quebra('Z')) {
        const std::int64_t causa = coletor_.temGuia() ? coletor_.causaDe({.letra = 'Y'}) : 0;
        marcarQueFaltam(acusar(*quebra, 'Z', linha, causa != 0 ? causa : faltas_.causa()));
    }
    conteudo_.encerrarGuia();
    ordem_.anotar('Z');
}

void OrdemCompleta::terminar(std::int64_t linha, std::int64_t causa) {
    const Ordem::Quebra* const quebra = ordem_.semTrailer();
    if (!quebra) return;
    coletor_.conferirEmParte();
    marcarQueFaltam(acusar(*quebra, '\0', linha, causa != 0 ? causa : faltas_.anteriorSemEfeito()));
    conteudo_.encerrarGuia();
}

} // namespace quilatador
