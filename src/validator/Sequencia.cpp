#include "validator/Sequencia.h"

#include "run/ParadaEstrutural.h"

#include <algorithm>
#include <array>

namespace quilatador {

namespace {

constexpr VistaTexto naoEhHeader = "Primeira linha do arquivo não corresponde ao Header!"_t;

/// The letters that must come right before a letter, in the history of the definition or of the slip.
struct Antecedente {
    char letra;
    VistaTexto anteriores; ///< any one of these letters
    VistaTexto id;
    VistaTexto mensagem;
};

constexpr std::array antecedentesNaDefinicao{
    Antecedente{'C', "B"_t, "sequencia.c.semB"_t, "Segmento 'C' exige segmento 'B' antecedendo."_t},
    Antecedente{'D', "C"_t, "sequencia.d.semC"_t, "Segmento 'D' exige segmento 'C' antecedendo."_t},
    Antecedente{'E', "D"_t, "sequencia.e.semD"_t, "Segmento 'E' exige segmento 'D' antecedendo."_t},
    Antecedente{'F', "E"_t, "sequencia.f.semE"_t, "Segmento 'F' exige segmento 'E' antecedendo."_t},
    Antecedente{'G', "FG"_t, "sequencia.g.semF"_t, "Segmento 'G' exige segmento 'F' antecedendo."_t},
    Antecedente{'L', "KL"_t, "sequencia.l.semK"_t, "Segmento 'L' exige segmento 'K' antecedendo."_t},
    Antecedente{'S', "L"_t, "sequencia.s.semL"_t, "Segmento 'S' exige segmento 'L'."_t}};

constexpr std::array antecedentesNaGuia{
    Antecedente{'T', "S"_t, "sequencia.t.semS"_t, "Segmento 'T' exige segmento 'S' antecedendo."_t},
    Antecedente{'U', "T"_t, "sequencia.u.semT"_t, "Segmento 'U' exige segmento 'T' antecedendo."_t},
    Antecedente{'V', "U"_t, "sequencia.v.semUOuF"_t, "Segmento 'V' exige segmento 'U' antecedendo e segmento 'F'."_t},
    Antecedente{'W', "V"_t, "sequencia.w.semVOuG"_t, "Segmento 'W' exige segmento 'V' antecedendo e segmento 'G'."_t},
    Antecedente{'X', "UVWX"_t, "sequencia.x.foraDeLugar"_t,
                "Segmento 'X' exige segmento 'U', 'V', 'W' ou 'X' antecedendo."_t},
    Antecedente{'Y', "UVWXY"_t, "sequencia.y.foraDeLugar"_t,
                "Segmento 'Y' exige segmento 'U', 'V', 'W', 'X', ou 'Y' antecedendo."_t},
    // The text names 'Y' twice: kept on purpose, the sample sequencia-z-sem-y holds it.
    Antecedente{'Z', "Y"_t, "sequencia.z.semY"_t, "Segmento 'Y' exige segmento 'Y' antecedendo."_t}};

/// The requirements of one history, indexed by letter.
using PorLetra = std::array<const Antecedente*, 256>;

template <std::size_t N>
constexpr PorLetra porLetra(const std::array<Antecedente, N>& antecedentes) {
    PorLetra tabela{};
    for (const Antecedente& antecedente : antecedentes)
        tabela[static_cast<unsigned char>(antecedente.letra)] = &antecedente;
    return tabela;
}

constexpr PorLetra definicaoPorLetra = porLetra(antecedentesNaDefinicao);
constexpr PorLetra guiaPorLetra = porLetra(antecedentesNaGuia);

const Antecedente* antecedenteDe(const PorLetra& tabela, char letra) {
    // cppcheck-suppress CastIntegerToAddressAtReturn ; the table holds pointers
    return tabela[static_cast<unsigned char>(letra)];
}

/// Whether a history ends in one of these letters.
bool terminaEm(VistaTexto historico, VistaTexto letras) {
    return !historico.empty() && letras.find(historico.back()) != VistaTexto::npos;
}

bool contem(VistaTexto historico, VistaTexto letras) {
    return historico.find(letras) != VistaTexto::npos;
}

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
    if (!contem(historicoDefinicao_, "Z"_t))
        pararNaLinha("sequencia.z.ausente"_t, 0, "Segmento 'Z' exigido ao final do arquivo"_t);
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
    historicoDefinicao_.assign(1, 'A');
    verificarIDRegistro(registro, 'A');
}

void Sequencia::verificarTamanho(const RegistroRemessa& registro) const {
    if (registro.linha().size() == static_cast<std::size_t>(registro.Tamanho())) return;
    throw paradaSemLinha("sequencia.tamanho"_t, leitor_.lidas(),
                         junta("Tamanho de registro inválido. Esperado "_t, textoDe(registro.Tamanho())));
}

void Sequencia::verificarOrdem(const RegistroRemessa& registro) {
    const Texto& tipo = leitor_.tipo();
    const char letra = leitor_.letra();
    if (diferente(leitor_.sequencial(), linhaAtual()))
        pararNaLinha("sequencia.sequencial"_t, letra, "Sequencial de registro inválido."_t);
    if (tipo < ultimos(historicoDefinicao_, 1))
        pararNaLinha("sequencia.foraDeOrdem"_t, letra, "Tipos de registro fora de sequência."_t);
    if (leitor_.convenio() != convenioHeader_)
        pararNaLinha("sequencia.convenio"_t, letra, "Número de convênio diferente do constante no header."_t);
    verificarRegrasDaLetra(letra);
    if (letra != 'A') verificarIDRegistro(registro, letra); // there is no rule for a second A
    anotarLetra(letra);
}

void Sequencia::verificarRegrasDaLetra(char letra) const {
    const Texto& definicao = historicoDefinicao_;
    const Texto& guia = historicoGuia_;
    if (letra == 'S' && !guia.empty()) verificarFimDaGuia();
    if (const Antecedente* e = antecedenteDe(definicaoPorLetra, letra); e && !terminaEm(definicao, e->anteriores))
        pararNaLinha(e->id, letra, e->mensagem);
    if (const Antecedente* e = antecedenteDe(guiaPorLetra, letra)) {
        const bool faltaDefinicao =
            (letra == 'V' && !contem(definicao, "F"_t)) || (letra == 'W' && !contem(definicao, "G"_t));
        if (faltaDefinicao || !terminaEm(guia, e->anteriores)) pararNaLinha(e->id, letra, e->mensagem);
    }
    if (letra == 'B' && contem(definicao, "B"_t))
        pararNaLinha("sequencia.b.duplicado"_t, letra, "Encontrada duplicidade de registros do segmento 'B'."_t);
    if (letra == 'K' && !contem(definicao, "E"_t))
        pararNaLinha("sequencia.k.semE"_t, letra, "Segmento 'K' exige segmento 'E'."_t);
    if (letra == 'X' && contem(guia, "XXXX"_t))
        pararNaLinha("sequencia.x.repetido"_t, letra, "Segmento 'X' so pode ser repetido 4 vezes."_t);
}

/// The slip before a new "S" must be complete.
void Sequencia::verificarFimDaGuia() const {
    const Texto& guia = historicoGuia_;
    if (!contem(guia, "Y"_t))
        pararNaLinha("sequencia.s.semParcelas"_t, 'S', "Recebimento sem parcelas (segmento 'Y')."_t);
    // The text does not close its parenthesis: kept on purpose, the sample sequencia-s-sem-objeto holds it.
    if (contem(historicoDefinicao_, "F"_t) && !contem(guia, "V"_t))
        pararNaLinha("sequencia.s.semObjeto"_t, 'S', "Recebimento sem objeto (segmento 'V'."_t);
}

/// Record identifiers must be zero in A, B and D. In G to L they must count the records of their letter, starting at 1.
void Sequencia::verificarIDRegistro(const RegistroRemessa& registro, char letra) {
    const bool zero = letra == 'A' || letra == 'B' || letra == 'D';
    const bool ordinal = letra >= 'G' && letra <= 'L';
    if (!zero && !ordinal) return;
    const std::int64_t esperado = ordinal ? ++ordinais_[static_cast<unsigned char>(letra)] : 0;
    if (!diferente(leitor_.idRegistro(), esperado)) return;
    const CampoRemessa& campo = registro.obterCampo("IDRegistro"_t);
    rodada_.escreverErro(Achado{
        .id = zero ? "sequencia.idRegistro.naoZero"_t : "sequencia.idRegistro.inesperado"_t,
        .gravidade = Gravidade::Erro,
        .linha = linhaAtual(),
        .segmento = letra,
        .campo = CampoDoAchado{.nome = campo.nome(),
                               .inicio = campo.inicio(),
                               .fim = campo.Fim(),
                               .encontrado = Texto(registro.textoNaLinha(campo)),
                               .esperado = textoDe(esperado)},
        .mensagem = zero ? Texto("Número de identificação do registro inválido, deve ser Zero"_t)
                         : junta("Número de identificação do registro inválido. Esperado "_t, textoDe(esperado))});
}

void Sequencia::anotarLetra(char letra) {
    Texto& definicao = historicoDefinicao_;
    Texto& guia = historicoGuia_;
    const bool daGuia = letra >= 'T' && letra <= 'Y';
    const bool daDefinicao = (letra >= 'B' && letra <= 'G') || letra == 'K' || letra == 'L' || letra == 'Z';
    // A repeated letter is noted once, so that the histories do not grow with the file. X is noted each time, because
    // it is limited to four.
    if (letra == 'S') {
        guia.assign(1, 'S');
    } else if (daGuia && (letra == 'X' || guia.back() != letra)) {
        guia.push_back(letra);
    } else if (daDefinicao && definicao.back() != letra) {
        definicao.push_back(letra);
    }
}

void Sequencia::pararNaLinha(VistaTexto id, char letra, VistaTexto mensagem) const {
    throw ParadaEstrutural("Depurador "_t,
                           Achado{.id = id,
                                  .gravidade = Gravidade::Estrutural,
                                  .linha = linhaAtual(),
                                  .segmento = letra,
                                  .campo = std::nullopt,
                                  .mensagem = junta("Linha: "_t, comZeros(linhaAtual(), 6), " -  "_t, mensagem)});
}

} // namespace quilatador
