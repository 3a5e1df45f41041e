#include "validator/completa/PercursoCompleto.h"

#include "common/Diversos.h"
#include "common/Numero.h"
#include "validator/completa/Deslize.h"
#include "validator/completa/SegundaMetade.h"

#include <algorithm>
#include <utility>

namespace quilatador {

namespace {

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
    : janela_(janela)
    , tipos_(tipos)
    , coletor_(coletor)
    , conteudo_(conteudo)
    , todosTem_(std::move(todosTem))
    , faltas_(coletor)
    , ordem_(janela, coletor, conteudo, faltas_) {}

void PercursoCompleto::percorrer(const std::function<bool()>& cancelada) {
    if (!verificarHeader()) return;
    const LinhaDoArquivo* linha = nullptr;
    while ((linha = janela_.olhar()) && !linha->texto.empty() && !ordem_.temTrailer()) {
        const bool guia = linha->texto.starts_with('S');
        if (guia && linha->lugar < primeiraGuia_)
            saltarGuias();
        else if (guia && restoEstaLimpo(linha->lugar))
            return;
        else
            verificarLinha(*linha);
    }
    const std::int64_t primeira = linha ? linha->lugar : 0;
    const Resto resto = linha ? lerResto() : Resto();
    if (cancelada()) return;
    if (linha) acusarResto(primeira, resto);
    if (janela_.terminouEmCtrlZ()) acusarCtrlZ();
    const std::int64_t corte = ultimaTorta_ ? faltas_.daLinha() : 0; // the file may have been cut in its last line
    ordem_.terminar(ultimaLinha_, fimForcado_ != 0 ? fimForcado_ : corte);
}

void PercursoCompleto::saltarGuias() {
    while (const LinhaDoArquivo* const linha = janela_.olhar()) {
        if (linha->lugar >= primeiraGuia_ && linha->texto.starts_with('S')) break;
        janela_.avancar();
    }
}

/// Whether the other thread has checked everything from this slip on, and has nothing to tell of it. That holds if it
/// started from the same definitions, and as many lines as records lie in front of the slip.
bool PercursoCompleto::restoEstaLimpo(std::int64_t linha) {
    if (!outra_ || !outra_->comecaEm(linha)) return false;
    const auto limpa = std::exchange(outra_, nullptr)->esperar([this] { return coletor_.canceladaAgora(); });
    if (!limpa || limpa->definicoes != conteudo_.definicoes() || desvio_ != 0) return false;
    faltas_.proximaLinha();
    ordem_.encerrarGuia(linha);
    conteudo_.somar(limpa->guias, limpa->datas);
    coletor_.resumo().registros = limpa->registros;
    return true;
}

bool PercursoCompleto::verificarHeader() {
    const LinhaDoArquivo* const linha = janela_.olhar();
    const VistaTexto texto = linha ? VistaTexto(linha->texto) : VistaTexto();
    const TipoDeLinha* tipo = tipos_.reconhecer(texto, 1);
    if (!tipo) tipo = tipos_.reconhecerDeslocada(texto, 1);
    if (!linha || !tipo || tipo->letra != 'A') {
        faltas_.acusar(faltaDeEstrutura("sequencia.a.ausente"_t, 1, '\0',
                                        "Primeira linha do arquivo não corresponde ao Header!"_t));
        return false;
    }
    const bool inteiro = tipo->temTamanho(texto) && texto == tipo->registro->linha();
    if (inteiro ? diferente(tipo->registro->getValorCampo("NomeArquivo"_t), "ZUL702"_t) : !dizOTipo(*linha)) {
        faltas_.acusar(faltaDeEstrutura("sequencia.a.nomeArquivo"_t, 1, 'A', "Arquivo não é ZUL702!"_t));
        return false;
    }
    ultimaLinha_ = 1;
    if (inteiro) {
        verificarHeaderInteiro(*tipo, *linha);
        janela_.avancar();
    } else {
        conteudo_.headerTorto(*tipo->registro);
        verificarLinhaTorta(*linha, tipo);
        coletor_.marcarAusente('A', faltas_.daLinha());
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
        faltas_.acusar(
            faltaDeEstrutura("sequencia.a.versaoLayout"_t, 1, 'A', "Versao de layout incompatível. Esperada: 1.00"_t));
    ordem_.verificarIDRegistro('A', tipo);
    if (sequencialDo(tipo) != 1) {
        Achado aviso =
            faltaDeEstrutura("a.sequencial.naoConferido"_t, 1, 'A', "Sequencial do header, que o log não confere"_t);
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
            Achado achado =
                faltaDeEstrutura("sequencia.convenio"_t, 1, 'A',
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

void PercursoCompleto::verificarLinha(const LinhaDoArquivo& linha) {
    faltas_.proximaLinha();
    ultimaLinha_ = linha.lugar;
    coletor_.irParaLinha(linha.lugar);
    const TipoDeLinha* const tipo = tipos_.reconhecer(linha.texto, linha.lugar);
    ultimaTorta_ = !tipo || !tipo->temTamanho(linha.texto);
    if (!ultimaTorta_) return verificarRegistro(linha, *tipo);
    verificarLinhaTorta(linha, tipo);
    numerosVistos_ -= std::min<std::size_t>(numerosVistos_, 1);
}

void PercursoCompleto::verificarRegistro(const LinhaDoArquivo& linha, const TipoDeLinha& tipo) {
    if (verificarNumero(linha, tipo) == Depois::LinhaTratada) return;
    conteudo_.verificarCaracteres(*tipo.registro, tipo.letra);
    avisarDatasTrocadas(tipo);
    verificarConvenio(tipo);
    ordem_.receber(tipo.letra, &tipo, linha.lugar);
    anterior_.assign(linha.texto);
    janela_.avancar();
}

/// A field reads a date of year and day of the year with day and month exchanged, as far as that gives a date.
void PercursoCompleto::avisarDatasTrocadas(const TipoDeLinha& tipo) {
    for (const CampoRemessa* const campo : tipo.julianas) {
        const auto escrita =
            Diversos::String2Data(tipo.registro->textoNaLinha(*campo), campo->formato(), tipo.registro->anoCorrente());
        if (!escrita || igual(tipo.registro->getValorCampo(*campo), *escrita)) continue;
        Achado aviso = faltaDeEstrutura("data.trocada"_t, tipo.registro->lugar(), tipo.letra,
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
        faltas_.acusar(faltaDeEstrutura("leitura.tipo"_t, linha.lugar, '\0', "Tipo de registro não identificado!"_t));
        faltas_.semEfeito('\0');
        return janela_.avancar();
    }
    if (separarEmendada(linha, *tipo)) return;
    acusarTamanho(linha, *tipo);
    ordem_.receber(tipo->letra, nullptr, linha.lugar);
    janela_.avancar();
}

void PercursoCompleto::acusarTamanho(const LinhaDoArquivo& linha, const TipoDeLinha& tipo) {
    const std::size_t tamanho = linha.texto.size();
    Texto mensagem = junta("Linha com "_t, textoDe(static_cast<long long>(tamanho)), " posições em vez de "_t,
                           textoDe(tipo.registro->Tamanho()));
    Achado achado = faltaDeEstrutura("sequencia.tamanho"_t, linha.lugar, tipo.letra, {});
    if (const auto deslize = acharDeslize(*tipo.registro, linha.texto)) {
        mensagem += junta("; "_t, textoDoDeslize(*deslize));
        achado.campo = CampoDoAchado{.nome = deslize->campo,
                                     .inicio = deslize->posicao,
                                     .fim = deslize->ultima,
                                     .encontrado = deslize->bytes,
                                     .esperado = {}};
    }
    achado.mensagem = std::move(mensagem);
    faltas_.acusar(std::move(achado));
}

/// A record that stray line ends have split into several lines: together they have its length, give or take those of
/// the line ends that took the place of a character, and at their end the number that belongs here.
std::optional<PercursoCompleto::Partida> PercursoCompleto::procurarPedacos(const LinhaDoArquivo& linha) {
    constexpr std::size_t maisPedacos = 8;
    constexpr std::size_t digitosDoNumero = 6;
    const std::size_t inteira = tipos_.tamanhoUsual();
    const Texto numero = comZeros(esperado(linha), digitosDoNumero);
    Partida partida{.texto = linha.texto, .pedacos = 1};
    for (; partida.pedacos < maisPedacos && partida.texto.size() < inteira; ++partida.pedacos) {
        const LinhaDoArquivo* const proxima = janela_.olhar(partida.pedacos);
        if (!proxima) break;
        Texto& texto = partida.texto += proxima->texto;
        if (texto.size() > inteira || texto.size() + 2 * partida.pedacos < inteira || !texto.ends_with(numero))
            continue;
        texto.insert(linha.texto.size(), inteira - texto.size(), ' ');
        ++partida.pedacos;
        return partida;
    }
    return std::nullopt;
}

bool PercursoCompleto::juntarPartida(const LinhaDoArquivo& linha) {
    const auto partida = procurarPedacos(linha);
    if (!partida) return false;
    const auto pedacos = static_cast<std::int64_t>(partida->pedacos);
    const TipoDeLinha* const tipo = tipos_.reconhecer(partida->texto, linha.lugar);
    faltas_.acusar(faltaDeEstrutura("estrutura.linhaPartida"_t, linha.lugar, tipo ? tipo->letra : '\0',
                                    junta("Registro partido em "_t, contagemDeLinhas(pedacos),
                                          " por quebras de linha; a primeira está na posição "_t,
                                          textoDe(static_cast<long long>(linha.texto.size()) + 1))));
    desvio_ -= pedacos - 1;
    ultimaLinha_ += pedacos - 1;
    if (tipo) ordem_.receber(tipo->letra, nullptr, linha.lugar);
    janela_.avancar(partida->pedacos);
    return true;
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
    faltas_.acusar(faltaDeEstrutura("estrutura.linhasEmendadas"_t, linha.lugar, letra,
                                    "Dois registros na mesma linha: falta a quebra entre eles"_t));
    ordem_.receber(letra, nullptr, linha.lugar);
    ordem_.receber(segundaLetra, nullptr, linha.lugar);
    ++desvio_;
    janela_.avancar();
    return true;
}

PercursoCompleto::Depois PercursoCompleto::verificarNumero(const LinhaDoArquivo& linha, const TipoDeLinha& tipo) {
    if (numerosVistos_ > 0) {
        --numerosVistos_;
        return Depois::Continuar;
    }
    const auto numero = sequencialDo(tipo);
    if (numero == esperado(linha)) return Depois::Continuar;
    if (numero) return tratarQuebraDoNumero(linha, tipo, *numero);
    if (linhaDeslocada(tipo)) return receberSemConteudo(linha, tipo.letra);
    acusarSequencial(linha, tipo);
    return Depois::Continuar;
}

/// A line that has slipped although it has the right length: its number is not where it should be.
bool PercursoCompleto::linhaDeslocada(const TipoDeLinha& tipo) {
    const auto deslize = acharDeslize(*tipo.registro, tipo.registro->linha());
    if (!deslize) return false;
    faltas_.acusada(coletor_.acusarDeslize(*tipo.registro, *deslize));
    return true;
}

PercursoCompleto::Depois PercursoCompleto::tratarQuebraDoNumero(const LinhaDoArquivo& linha, const TipoDeLinha& tipo,
                                                                std::int64_t numero) {
    const char letra = tipo.letra;
    const std::int64_t certo = esperado(linha);
    const auto proximo = sequencialAdiante(1);
    const auto terceiro = sequencialAdiante(2);
    static_cast<void>(tipos_.reconhecer(linha.texto, linha.lugar)); // looking ahead has changed the record
    if (linha.texto == anterior_) return saltarRepetida(linha, letra);
    if (numero == certo + 1 && proximo == certo && terceiro != certo + 1) return destrocar(linha, letra, numero);
    if (proximo == certo)
        acusarLinhaAMais(linha, letra);
    else if (proximo != certo + 1 && proximo == numero + 1)
        acusarSalto(linha, letra, numero);
    else if (linhaDeslocada(tipo))
        return receberSemConteudo(linha, letra);
    else
        acusarSequencial(linha, tipo);
    return Depois::Continuar;
}

std::optional<std::int64_t> PercursoCompleto::sequencialAdiante(std::size_t adiante) {
    const LinhaDoArquivo* const outra = janela_.olhar(adiante);
    return outra && !outra->texto.empty() ? tipos_.sequencialDe(outra->texto) : std::nullopt;
}

PercursoCompleto::Depois PercursoCompleto::saltarRepetida(const LinhaDoArquivo& linha, char letra) {
    faltas_.acusar(faltaDeEstrutura("estrutura.linhaRepetida"_t, linha.lugar, letra, "Linha igual à anterior"_t));
    --desvio_;
    janela_.avancar();
    return Depois::LinhaTratada;
}

/// Two lines in exchange: both go on in their right order.
PercursoCompleto::Depois PercursoCompleto::destrocar(const LinhaDoArquivo& linha, char letra, std::int64_t numero) {
    faltas_.acusar(faltaDeEstrutura("estrutura.linhasTrocadas"_t, linha.lugar, letra,
                                    junta("Esta linha e a seguinte estão trocadas: os sequenciais são "_t,
                                          textoDe(numero), " e "_t, textoDe(numero - 1))));
    numerosVistos_ = 2;
    janela_.trocar();
    return Depois::LinhaTratada;
}

/// The next line has the number that this one should have.
void PercursoCompleto::acusarLinhaAMais(const LinhaDoArquivo& linha, char letra) {
    faltas_.acusar(faltaDeEstrutura("estrutura.linhasAMais"_t, linha.lugar, letra,
                                    "Linha a mais: os sequenciais continuam na linha seguinte"_t));
    --desvio_;
}

/// The numbers go on from this one: lines were lost or added in front of it.
void PercursoCompleto::acusarSalto(const LinhaDoArquivo& linha, char letra, std::int64_t numero) {
    const std::int64_t certo = esperado(linha);
    const std::int64_t perdidas = numero - certo;
    const bool uma = std::abs(perdidas) == 1;
    const VistaTexto verbo = perdidas > 0 ? (uma ? "falta "_t : "faltam "_t) : (uma ? "sobra "_t : "sobram "_t);
    const std::int64_t raiz = faltas_.acusar(faltaDeEstrutura(
        perdidas > 0 ? "estrutura.linhasPerdidas"_t : "estrutura.linhasAMais"_t, linha.lugar, letra,
        numero == 1 ? Texto("Os sequenciais recomeçam em 1 nesta linha"_t)
                    : junta("O sequencial pula para "_t, textoDe(numero), " em vez de "_t, textoDe(certo),
                            ": antes desta linha "_t, verbo, contagemDeLinhas(std::abs(perdidas)))));
    if (perdidas > 0) faltas_.faltamLinhas(raiz);
    desvio_ += perdidas;
}

/// What the line says cannot be looked at, but its letter takes its place.
PercursoCompleto::Depois PercursoCompleto::receberSemConteudo(const LinhaDoArquivo& linha, char letra) {
    ordem_.receber(letra, nullptr, linha.lugar);
    janela_.avancar();
    return Depois::LinhaTratada;
}

/// Only the number of this line is wrong, or cannot be read.
void PercursoCompleto::acusarSequencial(const LinhaDoArquivo& linha, const TipoDeLinha& tipo) {
    const bool lido = sequencialDo(tipo).has_value();
    Achado achado =
        faltaDeEstrutura(lido ? "sequencia.sequencial"_t : "leitura.numero"_t, linha.lugar, tipo.letra,
                         lido ? "Sequencial de registro inválido."_t : "Sequencial de registro ilegível."_t);
    if (tipo.sequencial)
        achado.campo = campoDo(tipo, *tipo.sequencial,
                               comZeros(esperado(linha), static_cast<std::size_t>(tipo.sequencial->Tamanho())));
    faltas_.acusar(std::move(achado));
}

void PercursoCompleto::verificarConvenio(const TipoDeLinha& tipo) {
    if (!tipo.convenio || tipo.registro->textoNaLinha(*tipo.convenio) == convenio_) return;
    Achado achado = faltaDeEstrutura("sequencia.convenio"_t, tipo.registro->lugar(), tipo.letra,
                                     "Número de convênio diferente do constante no header."_t);
    achado.campo = campoDo(tipo, *tipo.convenio, convenio_);
    const std::int64_t raiz = coletor_.contar(std::move(achado), faltas_.daLinha());
    coletor_.marcar({.letra = tipo.letra, .campo = tipo.convenio->inicio(), .linha = tipo.registro->lugar()}, raiz);
}

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
    faltas_.proximaLinha();
    const bool temTrailer = ordem_.temTrailer();
    Achado achado = temTrailer
                        ? faltaDeEstrutura("estrutura.depoisDoTrailer"_t, primeira, '\0',
                                           junta("Depois do trailer (segmento Z) o arquivo ainda tem "_t,
                                                 contagemDeLinhas(resto.linhas)))
                        : faltaDeEstrutura("estrutura.linhaVazia"_t, primeira, '\0', linhaVazia(resto.linhas - 1));
    if (temTrailer && !resto.comEfeito) achado.gravidade = Gravidade::Aviso;
    fimForcado_ = faltas_.acusar(std::move(achado));
}

void PercursoCompleto::acusarCtrlZ() {
    const bool temTrailer = ordem_.temTrailer();
    Achado achado = faltaDeEstrutura("estrutura.ctrlZ"_t, ultimaLinha_, '\0',
                                     "Ctrl-Z (1A) no arquivo: o que vem depois dele não é lido"_t);
    if (temTrailer) achado.gravidade = Gravidade::Aviso;
    fimForcado_ = faltas_.acusar(std::move(achado), temTrailer ? 0 : fimForcado_);
}

} // namespace quilatador
