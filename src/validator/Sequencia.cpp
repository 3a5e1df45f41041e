#include "validator/Depurador.h"
#include "validator/ParadaEstrutural.h"

#include <algorithm>
#include <array>

namespace quilatador {

namespace {

constexpr VistaTexto naoEhHeader = "Primeira linha do arquivo não corresponde ao Header!"_t;

/// What must stand right before a letter, in the history of the definition or of the slip.
struct Exigencia {
    char letra;
    VistaTexto anteriores; ///< any of these letters
    VistaTexto id;
    VistaTexto mensagem;
};

constexpr std::array exigenciasDaDefinicao{
    Exigencia{'C', "B", "sequencia.c.semB", "Segmento 'C' exige segmento 'B' antecedendo."},
    Exigencia{'D', "C", "sequencia.d.semC", "Segmento 'D' exige segmento 'C' antecedendo."},
    Exigencia{'E', "D", "sequencia.e.semD", "Segmento 'E' exige segmento 'D' antecedendo."},
    Exigencia{'F', "E", "sequencia.f.semE", "Segmento 'F' exige segmento 'E' antecedendo."},
    Exigencia{'G', "FG", "sequencia.g.semF", "Segmento 'G' exige segmento 'F' antecedendo."},
    Exigencia{'L', "KL", "sequencia.l.semK", "Segmento 'L' exige segmento 'K' antecedendo."},
    Exigencia{'S', "L", "sequencia.s.semL", "Segmento 'S' exige segmento 'L'."}};

constexpr std::array exigenciasDaGuia{
    Exigencia{'T', "S", "sequencia.t.semS", "Segmento 'T' exige segmento 'S' antecedendo."},
    Exigencia{'U', "T", "sequencia.u.semT", "Segmento 'U' exige segmento 'T' antecedendo."},
    Exigencia{'V', "U", "sequencia.v.semUOuF", "Segmento 'V' exige segmento 'U' antecedendo e segmento 'F'."},
    Exigencia{'W', "V", "sequencia.w.semVOuG", "Segmento 'W' exige segmento 'V' antecedendo e segmento 'G'."},
    Exigencia{'X', "UVWX", "sequencia.x.foraDeLugar", "Segmento 'X' exige segmento 'U', 'V', 'W' ou 'X' antecedendo."},
    Exigencia{'Y', "UVWXY", "sequencia.y.foraDeLugar",
              "Segmento 'Y' exige segmento 'U', 'V', 'W', 'X', ou 'Y' antecedendo."},
    // Names 'Y' twice: kept on purpose, the sample sequencia-z-sem-y holds it.
    Exigencia{'Z', "Y", "sequencia.z.semY", "Segmento 'Y' exige segmento 'Y' antecedendo."}};

/// The requirements of a history, to be found by letter.
using PorLetra = std::array<const Exigencia*, 256>;

template <std::size_t N>
constexpr PorLetra porLetra(const std::array<Exigencia, N>& exigencias) {
    PorLetra tabela{};
    for (const Exigencia& exigencia : exigencias)
        tabela[static_cast<unsigned char>(exigencia.letra)] = &exigencia;
    return tabela;
}

constexpr PorLetra definicaoPorLetra = porLetra(exigenciasDaDefinicao);
constexpr PorLetra guiaPorLetra = porLetra(exigenciasDaGuia);

const Exigencia* exigenciaDe(const PorLetra& tabela, char letra) {
    // cppcheck-suppress CastIntegerToAddressAtReturn ; the table holds pointers
    return tabela[static_cast<unsigned char>(letra)];
}

/// Whether the last letter of a history is one of these.
bool terminaEm(VistaTexto historico, VistaTexto letras) {
    return !historico.empty() && letras.find(historico.back()) != VistaTexto::npos;
}

bool contem(VistaTexto historico, VistaTexto letras) {
    return historico.find(letras) != VistaTexto::npos;
}

/// A structural finding whose message tells no line, `linha` (1-based) being the one that it is about.
ParadaEstrutural paradaSemLinha(VistaTexto id, std::int32_t linha, VistaTexto mensagem) {
    return {Texto("Importação"_t), Achado{.id = id,
                                          .gravidade = Gravidade::Estrutural,
                                          .linha = linha,
                                          .segmento = 0,
                                          .campo = {},
                                          .mensagem = Texto(mensagem)}};
}

} // namespace

void Depurador::verificarSequencia() {
    escreverLog("VERIFICAÇÃO DA SEQUÊNCIA DE REGISTROS!"_t);
    iniciarFase("Verificando a integridade do arquivo..."_t, execucao_.totalRegistrosEstimado);
    execucao_.linhaAtual = 1;
    verificarHeader();
    for (;;) {
        const RegistroRemessa& registro = arquivoRemessa_->lerRegistro(false);
        if (registro.linha().empty()) break;
        verificarTamanho(registro);
        ++execucao_.linhaAtual;
        ambiente_.painel.avancar(progresso());
        if (Cancelado) return;
        verificarOrdem(registro);
    }
    if (!contem(execucao_.historicoDefinicao, "Z"))
        pararNaLinha("sequencia.z.ausente", 0, "Segmento 'Z' exigido ao final do arquivo");
    execucao_.totalRegistros = execucao_.linhaAtual;
}

/// The first line; one that is missing, empty or of no known type is no header.
const RegistroRemessa& Depurador::lerHeader() {
    try {
        const RegistroRemessa& registro = arquivoRemessa_->lerRegistro(false);
        if (!registro.linha().empty()) return registro;
    } catch (const Falha& falha) {
        if (falha.fonte() != "ArquivoRemessa") throw;
    }
    throw paradaSemLinha("sequencia.a.ausente", 1, naoEhHeader);
}

void Depurador::verificarHeader() {
    const RegistroRemessa& registro = lerHeader();
    verificarTamanho(registro);
    if (diferente(valorDaLinha(registro, camposDaLinha().tipoReg, "TipoReg"), "A"))
        throw paradaSemLinha("sequencia.a.ausente", 1, naoEhHeader);
    if (diferente(registro.getValorCampo("NomeArquivo"), "ZUL702"))
        throw paradaSemLinha("sequencia.a.nomeArquivo", 1, "Arquivo não é ZUL702!"_t);
    // Every revision of version 1.00 is accepted, "1.00.01" with its own checks.
    if (trecho(registro.getValorCampoString("VersaoLayout"), 1, 4) != "1.00")
        throw paradaSemLinha("sequencia.a.versaoLayout", 1, "Versao de layout incompatível. Esperada: 1.00"_t);
    execucao_.convenioHeader = registro.getValorCampoString("Convenio");
    execucao_.historicoDefinicao.assign(1, 'A');
    verificarIDRegistro(registro, 'A');
}

void Depurador::verificarTamanho(const RegistroRemessa& registro) const {
    if (registro.linha().size() == static_cast<std::size_t>(registro.Tamanho())) return;
    throw paradaSemLinha("sequencia.tamanho", arquivoRemessa_->contador(),
                         junta("Tamanho de registro inválido. Esperado "_t, std::to_string(registro.Tamanho())));
}

void Depurador::verificarOrdem(const RegistroRemessa& registro) {
    const CamposDeTodaLinha& campos = camposDaLinha();
    const Texto& tipo = tipoDaLinha(registro);
    const char letra = tipo.size() == 1 ? tipo.front() : '\0';
    if (diferente(valorDaLinha(registro, campos.sequencial, "Sequencial"), execucao_.linhaAtual))
        pararNaLinha("sequencia.sequencial", letra, "Sequencial de registro inválido."_t);
    if (tipo < ultimos(execucao_.historicoDefinicao, 1))
        pararNaLinha("sequencia.foraDeOrdem", letra, "Tipos de registro fora de sequência."_t);
    const bool mesmoConvenio = campos.convenio ? registro.textoNaLinha(*campos.convenio) == execucao_.convenioHeader
                                               : registro.getValorCampoString("Convenio") == execucao_.convenioHeader;
    if (!mesmoConvenio)
        pararNaLinha("sequencia.convenio", letra, "Número de convênio diferente do constante no header."_t);
    verificarRegrasDaLetra(letra);
    if (letra != 'A') verificarIDRegistro(registro, letra); // a second A has no rule
    anotarLetra(letra);
}

void Depurador::verificarRegrasDaLetra(char letra) {
    const Texto& definicao = execucao_.historicoDefinicao;
    Texto& guia = execucao_.historicoGuia;
    if (letra == 'S' && !guia.empty()) verificarFimDaGuia();
    if (const Exigencia* e = exigenciaDe(definicaoPorLetra, letra); e && !terminaEm(definicao, e->anteriores))
        pararNaLinha(e->id, letra, e->mensagem);
    if (const Exigencia* e = exigenciaDe(guiaPorLetra, letra)) {
        const bool faltaDefinicao =
            (letra == 'V' && !contem(definicao, "F")) || (letra == 'W' && !contem(definicao, "G"));
        if (faltaDefinicao || !terminaEm(guia, e->anteriores)) pararNaLinha(e->id, letra, e->mensagem);
    }
    if (letra == 'B' && contem(definicao, "B"))
        pararNaLinha("sequencia.b.duplicado", letra, "Encontrada duplicidade de registros do segmento 'B'.");
    if (letra == 'K' && !contem(definicao, "E"))
        pararNaLinha("sequencia.k.semE", letra, "Segmento 'K' exige segmento 'E'.");
    if (letra == 'X' && contem(guia, "XXXX"))
        pararNaLinha("sequencia.x.repetido", letra, "Segmento 'X' so pode ser repetido 4 vezes.");
}

/// The slip before a new "S" must be whole.
void Depurador::verificarFimDaGuia() {
    const Texto& guia = execucao_.historicoGuia;
    if (!contem(guia, "Y")) pararNaLinha("sequencia.s.semParcelas", 'S', "Recebimento sem parcelas (segmento 'Y').");
    // The parenthesis stays open: kept on purpose, the sample sequencia-s-sem-objeto holds it.
    if (contem(execucao_.historicoDefinicao, "F") && !contem(guia, "V"))
        pararNaLinha("sequencia.s.semObjeto", 'S', "Recebimento sem objeto (segmento 'V'.");
}

/// Record identifiers are zero in A, B and D, and count the records of their letter in G to L.
void Depurador::verificarIDRegistro(const RegistroRemessa& registro, char letra) {
    const bool zero = letra == 'A' || letra == 'B' || letra == 'D';
    const bool ordinal = letra >= 'G' && letra <= 'L';
    if (!zero && !ordinal) return;
    const std::int32_t esperado = ordinal ? ++execucao_.ordinais[static_cast<unsigned char>(letra)] : 0;
    if (!diferente(valorDaLinha(registro, camposDaLinha().idRegistro, "IDRegistro"), esperado)) return;
    const CampoRemessa& campo = registro.obterCampo("IDRegistro");
    escreverErro(Achado{.id = zero ? "sequencia.idRegistro.naoZero" : "sequencia.idRegistro.inesperado",
                        .gravidade = Gravidade::Erro,
                        .linha = execucao_.linhaAtual,
                        .segmento = letra,
                        .campo = CampoDoAchado{.nome = campo.nome(),
                                               .inicio = campo.inicio(),
                                               .fim = campo.Fim(),
                                               .encontrado = Texto(registro.textoNaLinha(campo)),
                                               .esperado = std::to_string(esperado)},
                        .mensagem = zero ? Texto("Número de identificação do registro inválido, deve ser Zero"_t)
                                         : junta("Número de identificação do registro inválido. Esperado "_t,
                                                 std::to_string(esperado))});
}

void Depurador::anotarLetra(char letra) {
    Texto& definicao = execucao_.historicoDefinicao;
    Texto& guia = execucao_.historicoGuia;
    const bool daGuia = letra >= 'T' && letra <= 'Y';
    const bool daDefinicao = (letra >= 'B' && letra <= 'G') || letra == 'K' || letra == 'L' || letra == 'Z';
    // A repeated letter is noted once, so that the histories do not grow with the file; X is counted up to four.
    if (letra == 'S') {
        guia.assign(1, 'S');
    } else if (daGuia && (letra == 'X' || guia.back() != letra)) {
        guia.push_back(letra);
    } else if (daDefinicao && definicao.back() != letra) {
        definicao.push_back(letra);
    }
}

void Depurador::pararNaLinha(VistaTexto id, char letra, VistaTexto mensagem) const {
    throw ParadaEstrutural("Depurador ",
                           Achado{.id = id,
                                  .gravidade = Gravidade::Estrutural,
                                  .linha = execucao_.linhaAtual,
                                  .segmento = letra,
                                  .campo = std::nullopt,
                                  .mensagem = junta("Linha: ", comZeros(execucao_.linhaAtual, 6), " -  ", mensagem)});
}

} // namespace quilatador
