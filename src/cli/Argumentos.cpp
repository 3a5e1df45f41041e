#include "cli/Argumentos.h"

#include "cli/Caminho.h"
#include "cli/Sugestao.h"
#include "common/Numero.h"

#include <algorithm>
#include <CLI/CLI.hpp>

namespace quilatador {

namespace {

constexpr VistaTexto ajuda =
    R"(Uso: quilatador-cli [opções] ARQUIVO...

Confere arquivos de cobrança antes do envio ao banco e explica os seus retornos.
O resultado de cada arquivo fica num log ao lado dele.

Num ZUL702 a ordem dos registros e os caracteres são conferidos em todas as guias, mas o
conteúdo somente na última; --completa confere o de todas.

Opções:
  --tipo ZUL702|ZUL708|TAV001  tipo do arquivo (sem ela: reconhecido pela primeira linha)
  --com-data                   o código de barras contém uma data de vencimento
  --posicao N                  posição dessa data no código de barras, 20 a 41 (20)
  --formato F                  formato dessa data: AAAAMMDD, AAMMDD, DDMMAAAA, DDMMAA,
                               DDDA, AADDD ou ADDD (ADDD)
  --primeiras N                lê o conteúdo somente até as primeiras N guias (sem ela: todas);
                               se o arquivo tem mais, o conteúdo de nenhuma é conferido, a não ser
                               com --completa, que confere o das N
  --completa                   depois do log, confere todas as guias e mostra o que encontra: até 50
                               achados, as causas com as suas consequências
  --todos                      mostra todos os achados, um por um (com --completa)
  --csv CAMINHO                grava os achados de todos os arquivos numa tabela (faz o mesmo que
                               --completa)
  --laudo[=CAMINHO]            grava um laudo de cada arquivo, uma página HTML para ler, imprimir e
                               guardar, ao lado do log (x.log.laudo.html) ou, com um só ARQUIVO,
                               nesse caminho (faz o mesmo que --completa)
  --conferir LAUDO             diz se o ARQUIVO é o desse laudo (sem log)
  --linha N                    mostra a linha N, campo por campo, e o que a conferência completa
                               encontra nela (um ZUL702; sem log)
  --sugerir-data               diz em que formato e posição o código de barras tem a data
                               de vencimento das parcelas (um ZUL702; sem log)
  --pasta PASTA                pasta do programa, com Arquivo_ZUL702.xml e TabelaErrosZUL.mdb
  --log CAMINHO                grava o log nesse caminho (somente com um ARQUIVO)
  --pasta-de-logs PASTA        grava cada log nessa pasta, com o nome do arquivo e ".log" (x.rem.log)
  --abrir                      abre o log no editor de textos ao final
  --json                       escreve um objeto JSON por arquivo na saída padrão
  -q, --silencioso             sem progresso, sem resumo e sem achados; o que não pôde ser analisado
                               ainda é dito na saída de erros
  -h, --ajuda, --help          mostra esta ajuda
  --versao, --version          mostra a versão
  --                           o que vem depois é nome de arquivo, mesmo que comece com "-"

Exemplos:
  quilatador-cli remessa.rem
  quilatador-cli --com-data --posicao 20 --formato AAAAMMDD remessa.rem
  quilatador-cli --primeiras 50 --log /tmp/remessa.log remessa.rem
  quilatador-cli --completa remessa.rem
  quilatador-cli --laudo remessa.rem
  quilatador-cli --json -q *.rem > achados.ndjson
  quilatador-cli --linha 17 remessa.rem
  quilatador-cli --sugerir-data remessa.rem

Situação ao terminar:
  0    nada encontrado; com --linha, a linha foi mostrada; com --conferir, é o arquivo do
       laudo
  1    há erros, no log ou na conferência completa, ou o arquivo não é do tipo esperado; com
       --sugerir-data, nada confere em todas as parcelas; com --conferir, não é o arquivo do laudo
  2    não foi possível analisar (opção inválida, arquivo ou programa incompleto)
  130  interrompido (Ctrl-C)
)"_t;

std::optional<TipoArquivo> tipoDeNome(std::string_view nome) {
    for (const TipoArquivo tipo : {TipoArquivo::ZUL702, TipoArquivo::ZUL708, TipoArquivo::TAV001})
        if (iguaisSemCaixa(nomeDo(tipo), textoDeUtf8(nome))) return tipo;
    return std::nullopt;
}

Argumentos recusa(Texto motivo) {
    Argumentos argumentos;
    argumentos.acao = Argumentos::Acao::Recusar;
    argumentos.motivo = std::move(motivo);
    return argumentos;
}

Argumentos recusaDoValor(std::string_view opcao) {
    return recusa(junta("Valor ausente ou inválido em "_t, textoDeUtf8(opcao)));
}

/// The parser's error in the user's language.
Argumentos recusaDo(const CLI::ParseError& erro) {
    const std::string texto = erro.what(); // contains the name of the option
    const std::size_t nome = std::min(texto.find('-'), texto.size());
    return recusaDoValor(texto.substr(nome, texto.find_first_of(": ", nome) - nome));
}

/// Refuses options that do not exist, each with the one that may have been meant.
Argumentos recusaDas(const std::vector<std::string>& desconhecidas, const CLI::App& app) {
    std::vector<std::string> nomes;
    for (const CLI::Option* opcao : app.get_options())
        nomes.insert(nomes.end(), opcao->get_lnames().begin(), opcao->get_lnames().end());
    Texto motivo("Opção desconhecida:"_t);
    for (const std::string& desconhecida : desconhecidas) {
        motivo += junta(" "_t, textoDeUtf8(desconhecida));
        if (const auto sugestao = maisParecida(desconhecida, nomes))
            motivo += junta(" (quis dizer --"_t, textoDeUtf8(*sugestao), "?)"_t);
    }
    return recusa(motivo);
}

/// What the parser has left: names of files, and in front of a "--" also options that do not exist. It is not asked for
/// the files, because it would take a name like "[a,b]" for a list of two.
struct Sobras {
    explicit Sobras(const std::vector<std::string>& restantes) {
        bool soArquivos = false;
        for (const std::string& resto : restantes) {
            if (soArquivos || resto.size() < 2 || resto.front() != '-')
                arquivos.push_back(resto);
            else if (resto == "--")
                soArquivos = true;
            else
                desconhecidas.push_back(resto);
        }
    }

    std::vector<std::string> arquivos;
    std::vector<std::string> desconhecidas;
};

/// An option like "--log=", for which the parser would take the argument that follows; "" if there is none.
std::string_view opcaoSemValor(const std::vector<std::string>& argumentos) {
    for (const std::string_view argumento : argumentos) {
        if (argumento == "--") break;
        if (argumento.starts_with("--") && argumento.ends_with('=')) return argumento.substr(0, argumento.size() - 1);
    }
    return {};
}

/// The values of options that are interpreted after all have been read; empty for those that were not given.
struct Valores {
    std::optional<std::string> tipo;
    std::optional<std::string> posicao;
    std::optional<std::string> formato;
    std::optional<std::string> primeiras;
    std::optional<std::string> linha;
    bool sugerirData = false;
    std::optional<std::string> pasta;
    std::optional<std::string> log;
    std::optional<std::string> pastaDeLogs;
    std::optional<std::string> csv;
    std::optional<std::string> laudo; ///< `laudoSemCaminho`, or where it is to lie
    std::optional<std::string> conferir;
};

/// What "--laudo" alone is taken for: a value that no argument can have.
const std::string laudoSemCaminho(1, '\0');

/// Makes the path of an option complete. Returns false if that is impossible.
bool completar(const std::optional<std::string>& valor, std::optional<std::filesystem::path>& caminho) {
    if (valor) caminho = caminhoCompleto(*valor);
    return !caminho || caminho->is_absolute();
}

/// The reason to refuse the option of a question about one file: it does not go together with the others. Nothing if
/// it does.
std::optional<Texto> recusaDaPergunta(VistaTexto pergunta, const Valores& valores, std::size_t arquivos,
                                      const Argumentos& lidos) {
    if (arquivos > 1) return junta(pergunta, " vale somente com um ARQUIVO."_t);
    const bool conferir = valores.conferir.has_value();
    const std::pair<bool, VistaTexto> incompativeis[] = {
        {conferir && valores.linha, "--linha"_t},
        {(conferir || valores.linha) && valores.sugerirData, "--sugerir-data"_t},
        {valores.log.has_value(), "--log"_t},
        {valores.pastaDeLogs.has_value(), "--pasta-de-logs"_t},
        {lidos.abrir, "--abrir"_t},
        {valores.csv.has_value(), "--csv"_t},
        {valores.laudo.has_value(), "--laudo"_t},
        {lidos.completa, "--completa"_t},
        {conferir && lidos.json, "--json"_t}};
    for (const auto& [dada, opcao] : incompativeis)
        if (dada) return junta(pergunta, " e "_t, opcao, " não valem juntas."_t);
    return std::nullopt;
}

/// The number of a line; one that no file has is as good as any other.
std::int64_t lerNumeroDeLinha(VistaTexto digitos) {
    constexpr double maior = 999'999'999'999'999;
    return static_cast<std::int64_t>(std::min(lerNumero(digitos), maior));
}

/// Interprets the options that ask a question about one file, or refuses them.
Argumentos interpretarPergunta(const Valores& valores, std::size_t arquivos, Argumentos lidos) {
    if (!valores.linha && !valores.sugerirData && !valores.conferir) return lidos;
    const VistaTexto pergunta = valores.conferir ? "--conferir"_t : valores.linha ? "--linha"_t : "--sugerir-data"_t;
    if (const auto motivo = recusaDaPergunta(pergunta, valores, arquivos, lidos)) return recusa(*motivo);
    if (valores.conferir) {
        lidos.acao = Argumentos::Acao::Conferir;
        lidos.conferir = caminhoCompleto(*valores.conferir);
        return lidos.conferir.is_absolute() ? lidos : recusaDoValor("--conferir");
    }
    lidos.acao = valores.linha ? Argumentos::Acao::MostrarLinha : Argumentos::Acao::SugerirData;
    if (!valores.linha) return lidos;
    const Texto linha = textoDeUtf8(*valores.linha);
    if (!soDigitos(linha)) return recusa(junta("Número de linha inválido: "_t, linha));
    lidos.linha = lerNumeroDeLinha(linha);
    return lidos;
}

/// Interprets the values, or refuses the first one that is wrong.
Argumentos interpretar(const Valores& valores, const std::vector<std::string>& arquivos, Argumentos lidos) {
    if (arquivos.empty()) return recusa(Texto("Falta o nome do ARQUIVO."_t));
    if (valores.tipo) lidos.tipo = tipoDeNome(*valores.tipo);
    if (valores.tipo && !lidos.tipo)
        return recusa(junta("Tipo de arquivo desconhecido: "_t, textoDeUtf8(*valores.tipo)));
    if (valores.primeiras) {
        const Texto primeiras = textoDeUtf8(*valores.primeiras);
        if (!soDigitos(primeiras)) return recusa(junta("Quantidade de guias inválida: "_t, primeiras));
        lidos.primeiras = lerNumero(primeiras);
    }
    lidos.posicao = lerNumero(posicaoInicial);
    if (valores.posicao) {
        const Texto posicao = textoDeUtf8(*valores.posicao);
        if (!soDigitos(posicao)) return recusa(junta("Posição inválida: "_t, posicao));
        lidos.posicao = lerNumero(posicao);
    }
    lidos.escolheuData = lidos.comData && (valores.posicao || valores.formato);
    if (valores.log && arquivos.size() > 1) return recusa(Texto("--log vale somente com um ARQUIVO."_t));
    if (valores.log && valores.pastaDeLogs) return recusa(Texto("--log e --pasta-de-logs não valem juntas."_t));
    lidos.formato = valores.formato ? textoDeUtf8(*valores.formato) : Texto(formatoInicial);
    if (!completar(valores.pasta, lidos.pasta)) return recusaDoValor("--pasta");
    if (!completar(valores.log, lidos.log)) return recusaDoValor("--log");
    if (!completar(valores.pastaDeLogs, lidos.pastaDeLogs)) return recusaDoValor("--pasta-de-logs");
    if (!completar(valores.csv, lidos.csv)) return recusaDoValor("--csv");
    lidos.laudo = valores.laudo.has_value();
    if (valores.laudo && *valores.laudo != laudoSemCaminho) {
        if (arquivos.size() > 1) return recusa(Texto("--laudo=CAMINHO vale somente com um ARQUIVO."_t));
        if (!completar(valores.laudo, lidos.caminhoDoLaudo)) return recusaDoValor("--laudo");
    }
    lidos.completa = lidos.completa || lidos.csv || lidos.laudo;
    if (lidos.todos && !lidos.completa) return recusa(Texto("--todos vale somente com --completa."_t));
    for (const std::string& arquivo : arquivos)
        lidos.arquivos.push_back(caminhoCompleto(arquivo));
    return interpretarPergunta(valores, arquivos.size(), std::move(lidos));
}

} // namespace

Argumentos lerArgumentos(std::vector<std::string> argumentos) {
    Argumentos lidos;
    Valores valores;
    bool mostrarAjuda = false;
    bool mostrarVersao = false;

    CLI::App app;
    app.set_help_flag();
    app.allow_extras();
    app.add_flag("-h,--ajuda,--help", mostrarAjuda);
    app.add_flag("--versao,--version", mostrarVersao);
    app.add_flag("--com-data", lidos.comData);
    app.add_flag("--abrir", lidos.abrir);
    app.add_flag("--completa", lidos.completa);
    app.add_flag("--todos", lidos.todos);
    app.add_flag("--json", lidos.json);
    app.add_flag("-q,--silencioso", lidos.silencioso);
    app.add_option("--tipo", valores.tipo);
    app.add_option("--posicao", valores.posicao);
    app.add_option("--formato", valores.formato);
    app.add_option("--primeiras", valores.primeiras);
    app.add_option("--linha", valores.linha);
    app.add_flag("--sugerir-data", valores.sugerirData);
    app.add_option("--pasta", valores.pasta);
    app.add_option("--log", valores.log);
    app.add_option("--pasta-de-logs", valores.pastaDeLogs);
    app.add_option("--csv", valores.csv);
    // A flag, which takes a value behind "=" only, so that no ARQUIVO is taken for it.
    app.add_flag("--laudo{" + laudoSemCaminho + "}", valores.laudo);
    app.add_option("--conferir", valores.conferir);
    if (const auto opcao = opcaoSemValor(argumentos); !opcao.empty()) return recusaDoValor(opcao);
    try {
        std::ranges::reverse(argumentos); // the parser reads them from the end
        app.parse(argumentos);
    } catch (const CLI::ParseError& erro) {
        return recusaDo(erro);
    }
    const Sobras sobras(app.remaining());
    if (!sobras.desconhecidas.empty()) return recusaDas(sobras.desconhecidas, app);
    if (mostrarAjuda) lidos.acao = Argumentos::Acao::MostrarAjuda;
    if (mostrarVersao && !mostrarAjuda) lidos.acao = Argumentos::Acao::MostrarVersao;
    return lidos.acao == Argumentos::Acao::Analisar ? interpretar(valores, sobras.arquivos, std::move(lidos)) : lidos;
}

VistaTexto textoDeAjuda() {
    return ajuda;
}

Texto textoDaVersao() {
    return Texto("quilatador-cli " QUILATADOR_VERSAO "\n"_t);
}

} // namespace quilatador
