#include "validator/completa/PercursoCompleto.h"

#include "common/Diversos.h"
#include "common/Numero.h"
#include "validator/completa/Deslize.h"
#include "validator/Sequencia.h"

#include <algorithm>
#include <utility>

namespace quilatador {

namespace {

constexpr std::int16_t lugarDaLetra = 1; ///< of "TipoReg", on which the order of the records rests
constexpr VistaTexto letrasDaGuia = "TUVWXY"_t;
/// The definitions that no remittance can do without.
constexpr VistaTexto definicoesExigidas = "BCDEKL"_t;

constexpr std::size_t indice(char letra) noexcept {
    return static_cast<unsigned char>(letra);
}

Achado estrutural(VistaTexto id, std::int64_t linha, char letra, VistaTexto mensagem) {
    return {.id = id,
            .gravidade = Gravidade::Estrutural,
            .linha = linha,
            .segmento = letra,
            .campo = std::nullopt,
            .mensagem = Texto(mensagem)};
}

CampoDoAchado campoDo(const TipoDeLinha& tipo, const CampoRemessa& campo, std::optional<Texto> esperado) {
    return {.nome = campo.nome(),
            .inicio = campo.inicio(),
            .fim = campo.Fim(),
            .encontrado = Texto(tipo.registro->textoNaLinha(campo)),
            .esperado = std::move(esperado)};
}

Texto contagemDeLinhas(std::int64_t linhas) {
    return junta(textoDe(linhas), linhas == 1 ? " linha"_t : " linhas"_t);
}

Texto linhaVazia(std::int64_t depois) {
    if (depois == 0) return Texto("Linha vazia, que termina o arquivo"_t);
    return junta("Linha vazia, que termina o arquivo: "_t,
                 depois == 1 ? Texto("a linha depois dela não é lida"_t)
                             : junta("as "_t, textoDe(depois), " linhas depois dela não são lidas"_t));
}

} // namespace

PercursoCompleto::PercursoCompleto(JanelaDeLinhas& janela, TiposDeLinha& tipos, Coletor& coletor,
                                   ConteudoCompleto& conteudo, TodosTem todosTem)
    : janela_(janela), tipos_(tipos), coletor_(coletor), conteudo_(conteudo), todosTem_(std::move(todosTem)) {}

void PercursoCompleto::percorrer(const std::function<bool()>& cancelada) {
    if (!verificarHeader()) return;
    const LinhaDoArquivo* linha = nullptr;
    while ((linha = janela_.olhar()) && !linha->texto.empty() && !ordem_.naDefinicao('Z'))
        verificarLinha(*linha);
    const std::int64_t primeira = linha ? linha->lugar : 0;
    const Resto resto = linha ? lerResto() : Resto();
    if (cancelada()) return;
    if (linha) acusarResto(primeira, resto);
    if (janela_.terminouEmCtrlZ()) acusarCtrlZ();
    terminarSemTrailer();
}

std::int64_t PercursoCompleto::acusar(Achado achado, std::int64_t causa) {
    const std::int64_t raiz = coletor_.contar(std::move(achado), causa);
    if (daLinha_ == 0) daLinha_ = raiz;
    return raiz;
}

std::int64_t PercursoCompleto::acusar(const Ordem::Quebra& quebra, char letra, std::int64_t lugar, std::int64_t causa) {
    return acusar(estrutural(quebra.id, lugar, letra, quebra.mensagem), causa);
}

// --- The header -----------------------------------------------------------------------------------------------------

bool PercursoCompleto::verificarHeader() {
    const LinhaDoArquivo* const linha = janela_.olhar();
    const VistaTexto texto = linha ? VistaTexto(linha->texto) : VistaTexto();
    const TipoDeLinha* tipo = tipos_.reconhecer(texto, 1);
    if (!tipo) tipo = tipos_.reconhecerDeslocada(texto, 1);
    if (!linha || !tipo || tipo->letra != 'A') {
        acusar(estrutural("sequencia.a.ausente"_t, 1, '\0', "Primeira linha do arquivo não corresponde ao Header!"_t),
               0);
        return false;
    }
    const bool inteiro = tipo->temTamanho(texto) && texto == tipo->registro->linha();
    if (inteiro ? diferente(tipo->registro->getValorCampo("NomeArquivo"_t), "ZUL702"_t) : !dizOTipo(*linha)) {
        acusar(estrutural("sequencia.a.nomeArquivo"_t, 1, 'A', "Arquivo não é ZUL702!"_t), 0);
        return false;
    }
    ultimaLinha_ = 1;
    if (inteiro) {
        verificarHeaderInteiro(*tipo, *linha);
        janela_.avancar();
    } else {
        verificarLinhaTorta(*linha, tipo);
        coletor_.marcarAusente('A', daLinha_);
    }
    decidirConvenio(inteiro ? convenio_ : Texto());
    return true;
}

/// Whether a header that is not whole still names its type of file, perhaps behind a line end that does not belong
/// there.
bool PercursoCompleto::dizOTipo(const LinhaDoArquivo& linha) {
    const LinhaDoArquivo* const proxima = janela_.olhar(1);
    return junta(linha.texto, proxima ? VistaTexto(proxima->texto) : VistaTexto()).find("ZUL702"_t) != Texto::npos;
}

void PercursoCompleto::verificarHeaderInteiro(const TipoDeLinha& tipo, const LinhaDoArquivo& linha) {
    if (trecho(tipo.registro->getValorCampoString("VersaoLayout"_t), 1, 4) != "1.00"_t)
        acusar(estrutural("sequencia.a.versaoLayout"_t, 1, 'A', "Versao de layout incompatível. Esperada: 1.00"_t), 0);
    verificarIDRegistro('A', tipo);
    if (sequencialDo(tipo) != 1) {
        Achado aviso =
            estrutural("a.sequencial.naoConferido"_t, 1, 'A', "Sequencial do header, que o log não confere"_t);
        aviso.gravidade = Gravidade::Aviso;
        if (tipo.sequencial)
            aviso.campo =
                campoDo(tipo, *tipo.sequencial, comZeros(1, static_cast<std::size_t>(tipo.sequencial->Tamanho())));
        coletor_.contar(std::move(aviso), 0);
    }
    convenio_ = tipo.registro->getValorCampoString("Convenio"_t);
    conteudo_.header(*tipo.registro);
    anterior_ = linha.texto;
}

/// The number of the agreement that all records must have: the header's, unless all others share another. `doHeader`
/// is "" where that cannot be known.
void PercursoCompleto::decidirConvenio(VistaTexto doHeader) {
    const LinhaDoArquivo* const segunda = janela_.olhar();
    const TipoDeLinha* const tipo = segunda ? tipos_.reconhecer(segunda->texto, segunda->lugar) : nullptr;
    if (tipo && tipo->convenio && tipo->temTamanho(segunda->texto)) {
        const Texto dosOutros(tipo->registro->textoNaLinha(*tipo->convenio));
        if (doHeader.empty()) {
            convenio_ = dosOutros;
        } else if (dosOutros != doHeader && todosTem_(dosOutros)) {
            Achado achado = estrutural("sequencia.convenio"_t, 1, 'A',
                                       "Número de convênio do header diferente do de todos os outros registros."_t);
            achado.campo = CampoDoAchado{.nome = tipo->convenio->nome(),
                                         .inicio = tipo->convenio->inicio(),
                                         .fim = tipo->convenio->Fim(),
                                         .encontrado = Texto(doHeader),
                                         .esperado = dosOutros};
            coletor_.marcar({.letra = 'A', .campo = tipo->convenio->inicio()}, coletor_.contar(std::move(achado), 0));
            convenio_ = dosOutros;
        }
    }
    conteudo_.convenio(convenio_);
}

// --- One line -------------------------------------------------------------------------------------------------------

void PercursoCompleto::verificarLinha(const LinhaDoArquivo& linha) {
    daAnterior_ = std::exchange(daLinha_, 0);
    perdaAqui_ = 0;
    ultimaLinha_ = linha.lugar;
    coletor_.irParaLinha(linha.lugar);
    const TipoDeLinha* const tipo = tipos_.reconhecer(linha.texto, linha.lugar);
    if (tipo && tipo->temTamanho(linha.texto)) return verificarRegistro(linha, *tipo);
    verificarLinhaTorta(linha, tipo);
    numerosVistos_ -= std::min<std::size_t>(numerosVistos_, 1);
}

void PercursoCompleto::verificarRegistro(const LinhaDoArquivo& linha, const TipoDeLinha& tipo) {
    if (verificarNumero(linha, tipo) == Depois::LinhaTratada) return;
    conteudo_.verificarCaracteres(*tipo.registro, tipo.letra);
    avisarDatasTrocadas(tipo);
    verificarConvenio(tipo);
    const char letra = tipo.letra;
    perdaAntes_ = receber(letra, &tipo, linha.lugar) ? 0 : daLinha_;
    ignorada_ = perdaAntes_ != 0 ? letra : '\0';
    anterior_.assign(linha.texto);
    janela_.avancar();
}

/// A field reads a date of year and day of the year with day and month exchanged, as far as that gives a date.
void PercursoCompleto::avisarDatasTrocadas(const TipoDeLinha& tipo) {
    for (const CampoRemessa* const campo : tipo.julianas) {
        const auto escrita =
            Diversos::String2Data(tipo.registro->textoNaLinha(*campo), campo->formato(), tipo.registro->anoCorrente());
        if (!escrita || igual(tipo.registro->getValorCampo(*campo), *escrita)) continue;
        Achado aviso = estrutural("data.trocada"_t, tipo.registro->lugar(), tipo.letra,
                                  "Data em ADDD, que o log lê com o dia e o mês trocados"_t);
        aviso.gravidade = Gravidade::Aviso;
        aviso.campo = campoDo(tipo, *campo, std::nullopt);
        coletor_.contar(std::move(aviso), 0);
    }
}

/// A line of the wrong length or of no known type. What it says is not looked at; its letter takes its place.
void PercursoCompleto::verificarLinhaTorta(const LinhaDoArquivo& linha, const TipoDeLinha* tipo) {
    if (juntarPartida(linha)) return;
    if (!tipo) tipo = tipos_.reconhecerDeslocada(linha.texto, linha.lugar);
    if (!tipo) {
        perdaAntes_ =
            acusar(estrutural("leitura.tipo"_t, linha.lugar, '\0', "Tipo de registro não identificado!"_t), 0);
        return janela_.avancar();
    }
    if (separarEmendada(linha, *tipo)) return;
    acusarTamanho(linha, *tipo);
    receber(tipo->letra, nullptr, linha.lugar);
    perdaAntes_ = 0;
    janela_.avancar();
}

void PercursoCompleto::acusarTamanho(const LinhaDoArquivo& linha, const TipoDeLinha& tipo) {
    const std::size_t tamanho = linha.texto.size();
    Texto mensagem = junta("Linha com "_t, textoDe(static_cast<long long>(tamanho)), " posições em vez de "_t,
                           textoDe(tipo.registro->Tamanho()));
    Achado achado = estrutural("sequencia.tamanho"_t, linha.lugar, tipo.letra, {});
    if (const auto deslize = acharDeslize(*tipo.registro, linha.texto)) {
        mensagem += junta("; "_t, textoDoDeslize(*deslize));
        achado.campo = CampoDoAchado{.nome = deslize->campo,
                                     .inicio = deslize->posicao,
                                     .fim = deslize->ultima,
                                     .encontrado = deslize->bytes,
                                     .esperado = {}};
    }
    achado.mensagem = std::move(mensagem);
    acusar(std::move(achado), 0);
}

/// A record that stray line ends have split into several lines: together they have its length, give or take those of
/// the line ends that took the place of a character, and at their end the number that belongs here.
bool PercursoCompleto::juntarPartida(const LinhaDoArquivo& linha) {
    constexpr std::size_t maisPedacos = 8;
    constexpr std::size_t digitosDoNumero = 6;
    const std::size_t inteira = tipos_.tamanhoUsual();
    const Texto numero = comZeros(esperado(linha), digitosDoNumero);
    Texto junto = linha.texto;
    for (std::size_t pedacos = 1; pedacos < maisPedacos && junto.size() < inteira; ++pedacos) {
        const LinhaDoArquivo* const proxima = janela_.olhar(pedacos);
        if (!proxima) return false;
        junto += proxima->texto;
        if (junto.size() > inteira || junto.size() + 2 * pedacos < inteira || !junto.ends_with(numero)) continue;
        const std::size_t falta = inteira - junto.size();
        junto.insert(linha.texto.size(), falta, ' ');
        const TipoDeLinha* const tipo = tipos_.reconhecer(junto, linha.lugar);
        acusar(estrutural("estrutura.linhaPartida"_t, linha.lugar, tipo ? tipo->letra : '\0',
                          junta("Registro partido em "_t, contagemDeLinhas(static_cast<std::int64_t>(pedacos) + 1),
                                " por quebras de linha; a primeira está na posição "_t,
                                textoDe(static_cast<long long>(linha.texto.size()) + 1))),
               0);
        desvio_ -= static_cast<std::int64_t>(pedacos);
        if (tipo) receber(tipo->letra, nullptr, linha.lugar);
        ultimaLinha_ += static_cast<std::int64_t>(pedacos);
        perdaAntes_ = 0;
        janela_.avancar(pedacos + 1);
        return true;
    }
    return false;
}

/// Two records in one line, because the line end between them is missing.
bool PercursoCompleto::separarEmendada(const LinhaDoArquivo& linha, const TipoDeLinha& tipo) {
    const auto primeira = static_cast<std::size_t>(tipo.registro->Tamanho());
    const char letra = tipo.letra;
    if (linha.texto.size() < 2 * primeira || linha.texto.size() > 2 * primeira + 2) return false;
    const VistaTexto resto = ultimos(linha.texto, primeira);
    const TipoDeLinha* const segundo = tipos_.reconhecer(resto, linha.lugar);
    if (!segundo || sequencialDo(*segundo) != esperado(linha) + 1) return false;
    const char segundaLetra = segundo->letra;
    acusar(estrutural("estrutura.linhasEmendadas"_t, linha.lugar, letra,
                      "Dois registros na mesma linha: falta a quebra entre eles"_t),
           0);
    receber(letra, nullptr, linha.lugar);
    receber(segundaLetra, nullptr, linha.lugar);
    ++desvio_;
    perdaAntes_ = 0;
    janela_.avancar();
    return true;
}

// --- The number -----------------------------------------------------------------------------------------------------

PercursoCompleto::Depois PercursoCompleto::verificarNumero(const LinhaDoArquivo& linha, const TipoDeLinha& tipo) {
    if (numerosVistos_ > 0) {
        --numerosVistos_;
        return Depois::Continuar;
    }
    const auto numero = sequencialDo(tipo);
    if (numero == esperado(linha)) return Depois::Continuar;
    if (numero) return tratarQuebraDoNumero(linha, tipo, *numero);
    if (linhaDeslocada(tipo)) {
        receber(tipo.letra, nullptr, linha.lugar);
        janela_.avancar();
        return Depois::LinhaTratada;
    }
    acusarSequencial(linha, tipo);
    return Depois::Continuar;
}

/// A line that has slipped although it has the right length: its number is not where it should be.
bool PercursoCompleto::linhaDeslocada(const TipoDeLinha& tipo) {
    const auto deslize = acharDeslize(*tipo.registro, tipo.registro->linha());
    if (!deslize) return false;
    daLinha_ = coletor_.acusarDeslize(*tipo.registro, *deslize);
    return true;
}

PercursoCompleto::Depois PercursoCompleto::tratarQuebraDoNumero(const LinhaDoArquivo& linha, const TipoDeLinha& tipo,
                                                                std::int64_t numero) {
    const char letra = tipo.letra;
    const auto numeroDa = [&](std::size_t adiante) -> std::optional<std::int64_t> {
        const LinhaDoArquivo* const outra = janela_.olhar(adiante);
        return outra && !outra->texto.empty() ? tipos_.sequencialDe(outra->texto) : std::nullopt;
    };
    const std::int64_t certo = esperado(linha);
    const bool repetida = linha.texto == anterior_;
    const auto proximo = numeroDa(1);
    const auto terceiro = numeroDa(2);
    static_cast<void>(tipos_.reconhecer(linha.texto, linha.lugar)); // looking ahead has changed the record
    if (repetida) {
        acusar(estrutural("estrutura.linhaRepetida"_t, linha.lugar, letra, "Linha igual à anterior"_t), 0);
        --desvio_;
        janela_.avancar();
        return Depois::LinhaTratada;
    }
    if (numero == certo + 1 && proximo == certo && terceiro != certo + 1) {
        acusar(estrutural("estrutura.linhasTrocadas"_t, linha.lugar, letra,
                          junta("Esta linha e a seguinte estão trocadas: os sequenciais são "_t, textoDe(numero),
                                " e "_t, textoDe(certo))),
               0);
        numerosVistos_ = 2;
        janela_.trocar();
        return Depois::LinhaTratada;
    }
    if (proximo == certo) {
        acusar(estrutural("estrutura.linhasAMais"_t, linha.lugar, letra,
                          "Linha a mais: os sequenciais continuam na linha seguinte"_t),
               0);
        --desvio_;
    } else if (proximo != certo + 1 && proximo == numero + 1) {
        const std::int64_t linhas = numero - certo;
        const VistaTexto id = linhas > 0 ? "estrutura.linhasPerdidas"_t : "estrutura.linhasAMais"_t;
        const std::int64_t quantas = std::abs(linhas);
        const VistaTexto verbo =
            linhas > 0 ? (quantas == 1 ? "falta "_t : "faltam "_t) : (quantas == 1 ? "sobra "_t : "sobram "_t);
        const std::int64_t raiz =
            acusar(estrutural(id, linha.lugar, letra,
                              junta("O sequencial pula para "_t, textoDe(numero), " em vez de "_t, textoDe(certo),
                                    ": antes desta linha "_t, verbo, contagemDeLinhas(quantas))),
                   0);
        if (linhas > 0) perdaAqui_ = raiz;
        desvio_ += linhas;
    } else if (linhaDeslocada(tipo)) {
        receber(letra, nullptr, linha.lugar);
        janela_.avancar();
        return Depois::LinhaTratada;
    } else {
        acusarSequencial(linha, tipo);
    }
    return Depois::Continuar;
}

/// Only the number of this line is wrong, or cannot be read.
void PercursoCompleto::acusarSequencial(const LinhaDoArquivo& linha, const TipoDeLinha& tipo) {
    const bool lido = sequencialDo(tipo).has_value();
    Achado achado = estrutural(lido ? "sequencia.sequencial"_t : "leitura.numero"_t, linha.lugar, tipo.letra,
                               lido ? "Sequencial de registro inválido."_t : "Sequencial de registro ilegível."_t);
    if (tipo.sequencial)
        achado.campo = campoDo(tipo, *tipo.sequencial,
                               comZeros(esperado(linha), static_cast<std::size_t>(tipo.sequencial->Tamanho())));
    acusar(std::move(achado), 0);
}

void PercursoCompleto::verificarConvenio(const TipoDeLinha& tipo) {
    if (!tipo.convenio || tipo.registro->textoNaLinha(*tipo.convenio) == convenio_) return;
    Achado achado = estrutural("sequencia.convenio"_t, tipo.registro->lugar(), tipo.letra,
                               "Número de convênio diferente do constante no header."_t);
    achado.campo = campoDo(tipo, *tipo.convenio, convenio_);
    const std::int64_t raiz = coletor_.contar(std::move(achado), daLinha_);
    coletor_.marcar({.letra = tipo.letra, .campo = tipo.convenio->inicio(), .linha = tipo.registro->lugar()}, raiz);
}

// --- The letter: definitions ----------------------------------------------------------------------------------------

/// A record with this letter has come; `tipo` is null if its content cannot be looked at. Returns false if it has no
/// effect: what stands in a wrong place is missing in the right one.
bool PercursoCompleto::receber(char letra, const TipoDeLinha* tipo, std::int64_t lugar) {
    if (letra == 'A' && lugar == 1) return true; // the header itself, which is not whole
    if (letra == 'S')
        receberGuia(tipo, lugar);
    else if (letra == 'Z')
        receberTrailer(lugar);
    else
        return letra > 'S' ? receberDaGuia(letra, tipo, lugar) : receberDefinicao(letra, tipo, lugar);
    return true;
}

bool PercursoCompleto::receberDefinicao(char letra, const TipoDeLinha* tipo, std::int64_t lugar) {
    if (!temLugarNaDefinicao(letra, lugar)) return false;
    marcarPerdidas(letra);
    if (tipo) verificarIDRegistro(letra, *tipo);
    if (!tipo) static_cast<void>(ordem_.idRegistro(letra)); // it is counted all the same
    ordem_.anotar(letra);
    ultimaLetra_ = letra;
    if (tipo)
        conteudo_.definir(*tipo->registro, letra);
    else
        conteudo_.definirSemConteudo(letra, daLinha_);
    return true;
}

/// Whether a definition has its effect. One in a wrong place, or there for the second time, has none.
bool PercursoCompleto::temLugarNaDefinicao(char letra, std::int64_t lugar) {
    if (const Ordem::Quebra* const quebra = ordem_.foraDeOrdem(VistaTexto(&letra, 1))) {
        const std::int64_t dita = faltam_[indice(letra)];
        coletor_.marcar({.letra = letra}, acusar(*quebra, letra, lugar, dita != 0 ? dita : causaAqui()));
        return false;
    }
    if (letra == 'A') { // no rule asks for a second header
        Achado aviso = estrutural("sequencia.a.repetido"_t, lugar, letra, "Segundo header, que o log não estranha"_t);
        aviso.gravidade = Gravidade::Aviso;
        coletor_.contar(std::move(aviso), causaAqui());
        return false;
    }
    const Ordem::Quebra* const quebra = ordem_.quebra(letra);
    if (!quebra) return true;
    if (quebra->exigida == 0 || ordem_.naDefinicao(quebra->exigida)) {
        acusar(*quebra, letra, lugar, causaAqui());
        return false;
    }
    faltar(quebra->exigida, *quebra, letra, lugar);
    return true;
}

/// A definition is missing in front of a letter, and others of those that must be there may be too. It is told once.
void PercursoCompleto::faltar(char exigida, const Ordem::Quebra& quebra, char letra, std::int64_t lugar) {
    if (faltam_[indice(exigida)] != 0) return;
    const std::int64_t raiz = acusar(quebra, letra, lugar, causaAqui());
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
void PercursoCompleto::verificarIDRegistro(char letra, const TipoDeLinha& tipo) {
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
        const std::int64_t causa = causaAqui() != 0 ? causaAqui() : continua ? ultimo.causa : 0;
        ultimo = {campo.linha, diferenca,
                  coletor_.contar(achadoDoIDRegistro(*tipo.registro, letra, campo.linha, *certo), causa)};
        coletor_.marcar(campo, ultimo.causa);
    } catch (const FalhaDeLeitura& falha) {
        coletor_.naoLido(falha, *tipo.registro, campo);
    }
}

/// Where lines are missing in front of this one, what is missing of the definitions or of the slip may have been there.
void PercursoCompleto::marcarPerdidas(char letra) {
    if (perda() == 0) return;
    const char ate = letra >= 'S' ? 'L' : letra;
    if (ultimaLetra_ < 'S')
        for (char outra = ultimaLetra_; outra <= ate; ++outra)
            coletor_.marcar({.letra = outra}, perda());
    if (ultimaLetra_ >= 'S' && coletor_.temGuia())
        for (const char outra : letrasDaGuia)
            if (outra >= ultimaLetra_ && (letra <= 'S' || letra == 'Z' || outra <= letra))
                coletor_.marcar({.letra = outra}, perda());
}

// --- The letter: slips ----------------------------------------------------------------------------------------------

void PercursoCompleto::receberGuia(const TipoDeLinha* tipo, std::int64_t lugar) {
    marcarPerdidas('S');
    if (ordem_.temGuia()) acusarFimDaGuia(lugar);
    conteudo_.encerrarGuia();
    if (const Ordem::Quebra* const quebra = ordem_.quebra('S')) faltar(quebra->exigida, *quebra, 'S', lugar);
    faltamNaGuia_.fill(0);
    ordem_.anotar('S');
    ultimaLetra_ = 'S';
    if (tipo)
        conteudo_.iniciarGuia(*tipo->registro);
    else
        conteudo_.iniciarGuiaSemS(lugar);
    if (ignorada_ > 'S') { // it stands in front of the S to which it belongs
        faltamNaGuia_[indice(ignorada_)] = perdaAntes_;
        coletor_.marcar({.letra = ignorada_}, perdaAntes_);
    }
}

/// The slip in hand ends with the next S. The finding stands there, but is about this slip.
void PercursoCompleto::acusarFimDaGuia(std::int64_t lugar) {
    std::int64_t raiz = 0;
    if (const Ordem::Quebra* const quebra = ordem_.semParcelas()) {
        const std::int64_t causa = coletor_.causaDe({.letra = 'Y'});
        raiz = acusar(*quebra, 'S', lugar, causa != 0 ? causa : causaAqui());
        marcarQueFaltam(raiz);
    }
    if (const Ordem::Quebra* const quebra = ordem_.semObjeto()) {
        const std::int64_t causa = raiz != 0 ? raiz : coletor_.causaDe({.letra = 'V'});
        raiz = acusar(*quebra, 'S', lugar, causa != 0 ? causa : causaAqui());
        coletor_.marcar({.letra = 'V'}, raiz);
    }
}

/// The records behind the last one of the slip are missing because of this finding.
void PercursoCompleto::marcarQueFaltam(std::int64_t causa) {
    for (const char letra : letrasDaGuia)
        if (letra > ultimaLetra_ && !ordem_.naGuia(letra)) coletor_.marcar({.letra = letra}, causa);
}

void PercursoCompleto::abrirGuiaSemS(std::int64_t linha) {
    conteudo_.encerrarGuia();
    conteudo_.iniciarGuiaSemS(linha);
    faltamNaGuia_.fill(0);
    ordem_.anotar('S');
}

bool PercursoCompleto::receberDaGuia(char letra, const TipoDeLinha* tipo, std::int64_t lugar) {
    marcarPerdidas(letra);
    if (const Ordem::Quebra* const quebra = ordem_.quebra(letra); quebra && !temLugarNaGuia(*quebra, letra, lugar))
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
bool PercursoCompleto::temLugarNaGuia(const Ordem::Quebra& quebra, char letra, std::int64_t lugar) {
    const char definicao = letra == 'V' ? 'F' : letra == 'W' ? 'G' : '\0';
    if (definicao != '\0' && !ordem_.naDefinicao(definicao)) {
        faltar(definicao, quebra, letra, lugar);
        return ordem_.temGuia();
    }
    const std::int64_t atrasada = ordem_.temGuia() ? faltamNaGuia_[indice(letra)] : 0;
    const bool outraGuia = atrasada == 0 && abreOutraGuia(letra);
    if (outraGuia) abrirGuiaSemS(lugar);
    const std::int64_t dita = atrasada != 0 || outraGuia ? atrasada : faltamNaGuia_[indice(quebra.exigida)];
    const std::int64_t raiz = acusar(quebra, letra, lugar, dita != 0 ? dita : causaAqui());
    coletor_.marcar({.letra = letra, .campo = 0, .linha = lugar}, raiz);
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
bool PercursoCompleto::abreOutraGuia(char letra) {
    if (!ordem_.temGuia() && !ordem_.naDefinicao('L')) return false;
    if (perda() != 0) return !ordem_.temGuia() || (ordem_.naGuia('Y') && letra < 'X');
    const bool anteriorCompleta = !ordem_.temGuia() || ordem_.naGuia('U');
    const LinhaDoArquivo* const proxima = janela_.olhar(1);
    return letra == 'T' && anteriorCompleta && proxima && proxima->texto.starts_with('U');
}

void PercursoCompleto::receberTrailer(std::int64_t lugar) {
    marcarPerdidas('Z');
    if (const Ordem::Quebra* const quebra = ordem_.quebra('Z')) {
        const std::int64_t causa = coletor_.temGuia() ? coletor_.causaDe({.letra = 'Y'}) : 0;
        marcarQueFaltam(acusar(*quebra, 'Z', lugar, causa != 0 ? causa : causaAqui()));
    }
    conteudo_.encerrarGuia();
    ordem_.anotar('Z');
}

// --- The end --------------------------------------------------------------------------------------------------------

/// Reads what stands behind the trailer or from the first empty line on, which the log takes for the end of the file.
/// Without an effect is a second trailer, which passes the rules.
PercursoCompleto::Resto PercursoCompleto::lerResto() {
    Resto resto;
    bool acabou = false;
    for (; const LinhaDoArquivo* const linha = janela_.olhar(); janela_.avancar()) {
        ++resto.linhas;
        ultimaLinha_ = linha->lugar;
        acabou = acabou || linha->texto.empty();
        if (acabou) continue;
        const TipoDeLinha* const tipo = tipos_.reconhecer(linha->texto, linha->lugar);
        const bool outroTrailer =
            tipo && tipo->letra == 'Z' && tipo->temTamanho(linha->texto) && sequencialDo(*tipo) == esperado(*linha);
        resto.comEfeito = resto.comEfeito || !outroTrailer;
    }
    return resto;
}

void PercursoCompleto::acusarResto(std::int64_t primeira, const Resto& resto) {
    daLinha_ = 0;
    const bool temTrailer = ordem_.naDefinicao('Z');
    Achado achado =
        temTrailer
            ? estrutural("estrutura.depoisDoTrailer"_t, primeira, '\0',
                         junta("Depois do trailer (segmento Z) o arquivo ainda tem "_t, contagemDeLinhas(resto.linhas)))
            : estrutural("estrutura.linhaVazia"_t, primeira, '\0', linhaVazia(resto.linhas - 1));
    if (temTrailer && !resto.comEfeito) achado.gravidade = Gravidade::Aviso;
    fimForcado_ = acusar(std::move(achado), 0);
}

void PercursoCompleto::acusarCtrlZ() {
    const bool temTrailer = ordem_.naDefinicao('Z');
    Achado achado = estrutural("estrutura.ctrlZ"_t, ultimaLinha_, '\0',
                               "Ctrl-Z (1A) no arquivo: o que vem depois dele não é lido"_t);
    if (temTrailer) achado.gravidade = Gravidade::Aviso;
    fimForcado_ = acusar(std::move(achado), temTrailer ? 0 : fimForcado_);
}

void PercursoCompleto::terminarSemTrailer() {
    const Ordem::Quebra* const quebra = ordem_.semTrailer();
    if (!quebra) return;
    coletor_.conferirEmParte();
    marcarQueFaltam(acusar(*quebra, '\0', ultimaLinha_, fimForcado_ != 0 ? fimForcado_ : perdaAntes_));
    conteudo_.encerrarGuia();
}

} // namespace quilatador
