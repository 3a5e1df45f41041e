#include "cli/Argumentos.h"

#include "common/Numero.h"

#include <algorithm>
#include <CLI/CLI.hpp>

namespace quilatador {

namespace {

constexpr VistaTexto ajuda =
    R"(Uso: quilatador-cli [opções] ARQUIVO...

Confere arquivos de cobrança antes do envio ao banco e explica os seus retornos.
O resultado de cada arquivo fica num log ao lado dele.

Opções:
  --tipo ZUL702|ZUL708|TAV001  tipo do arquivo (sem ela: reconhecido pela primeira linha)
  --com-data                   o código de barras contém uma data de vencimento
  --posicao N                  posição dessa data no código de barras, 20 a 41 (20)
  --formato F                  formato dessa data: AAAAMMDD, AAMMDD, DDMMAAAA, DDMMAA,
                               DDDA, AADDD ou ADDD (ADDD)
  --primeiras N                analisa somente as primeiras N guias (sem ela: todas)
  --pasta PASTA                pasta do programa, com Arquivo_ZUL702.xml e TabelaErrosZUL.mdb
  --log CAMINHO                grava o log nesse caminho (somente com um ARQUIVO)
  --pasta-de-logs PASTA        grava cada log nessa pasta, com o nome do arquivo e ".log" (x.rem.log)
  --abrir                      abre o log no editor de textos ao final
  --json                       escreve um objeto JSON por arquivo na saída padrão
  -q, --silencioso             sem progresso e sem resumo
  -h, --ajuda                  mostra esta ajuda
  --versao                     mostra a versão

Exemplos:
  quilatador-cli remessa.rem
  quilatador-cli --com-data --posicao 20 --formato AAAAMMDD remessa.rem
  quilatador-cli --primeiras 50 --log /tmp/remessa.log remessa.rem
  quilatador-cli --json -q *.rem > achados.ndjson

Situação ao terminar:
  0    nada encontrado
  1    há erros, ou o arquivo não é do tipo esperado
  2    não foi possível analisar (opção inválida, arquivo ou programa incompleto)
  130  interrompido (Ctrl-C)
)"_t;

std::optional<TipoArquivo> tipoDeNome(std::string_view nome) {
    for (const TipoArquivo tipo : {TipoArquivo::ZUL702, TipoArquivo::ZUL708, TipoArquivo::TAV001})
        if (bytesDoTexto(nomeDo(tipo)) == nome) return tipo;
    return std::nullopt;
}

/// The absolute path, as a file dialog would return it.
std::filesystem::path caminhoCompleto(const std::string& caminho) {
    return std::filesystem::absolute(caminho).lexically_normal();
}

Argumentos recusa(Texto motivo) {
    Argumentos argumentos;
    argumentos.acao = Argumentos::Acao::Recusar;
    argumentos.motivo = std::move(motivo);
    return argumentos;
}

/// The parser's error in the user's language.
Texto motivoDaRecusa(const CLI::ParseError& erro, const CLI::App& app) {
    const auto listar = [](const std::vector<std::string>& itens) {
        Texto lista;
        for (const std::string& item : itens)
            lista += junta(lista.empty() ? ""_t : " "_t, textoDeUtf8(item));
        return lista;
    };
    if (dynamic_cast<const CLI::ExtrasError*>(&erro)) return junta("Opção desconhecida: "_t, listar(app.remaining()));
    if (dynamic_cast<const CLI::RequiredError*>(&erro)) return Texto("Falta o nome do ARQUIVO."_t);
    // The text of the parser's error contains the name of the option.
    const std::string texto = erro.what();
    const std::size_t nome = std::min(texto.find('-'), texto.size());
    return junta("Valor ausente ou inválido em "_t,
                 textoDeUtf8(texto.substr(nome, texto.find_first_of(": ", nome) - nome)));
}

/// The values of options that are interpreted after all have been read; empty for those that were not given.
struct Valores {
    std::vector<std::string> arquivos;
    std::optional<std::string> tipo;
    std::optional<std::string> posicao;
    std::optional<std::string> formato;
    std::optional<std::string> primeiras;
    std::optional<std::string> pasta;
    std::optional<std::string> log;
    std::optional<std::string> pastaDeLogs;
};

/// Interprets the values, or refuses the first one that is wrong.
Argumentos interpretar(const Valores& valores, Argumentos lidos) {
    if (valores.arquivos.empty()) return recusa(Texto("Falta o nome do ARQUIVO."_t));
    if (valores.tipo) lidos.tipo = tipoDeNome(*valores.tipo);
    if (valores.tipo && !lidos.tipo)
        return recusa(junta("Tipo de arquivo desconhecido: "_t, textoDeUtf8(*valores.tipo)));
    if (valores.primeiras) {
        const Texto primeiras = textoDeUtf8(*valores.primeiras);
        if (!soDigitos(primeiras)) return recusa(junta("Quantidade de guias inválida: "_t, primeiras));
        lidos.primeiras = lerNumero(primeiras);
    }
    if (valores.log && valores.arquivos.size() > 1) return recusa(Texto("--log vale somente com um ARQUIVO."_t));
    if (valores.log && valores.pastaDeLogs) return recusa(Texto("--log e --pasta-de-logs não valem juntas."_t));
    lidos.posicao = lerNumero(valores.posicao ? textoDeUtf8(*valores.posicao) : Texto(posicaoInicial));
    lidos.formato = valores.formato ? textoDeUtf8(*valores.formato) : Texto(formatoInicial);
    if (valores.pasta) lidos.pasta = caminhoCompleto(*valores.pasta);
    if (valores.log) lidos.log = caminhoCompleto(*valores.log);
    if (valores.pastaDeLogs) lidos.pastaDeLogs = caminhoCompleto(*valores.pastaDeLogs);
    for (const std::string& arquivo : valores.arquivos)
        lidos.arquivos.push_back(caminhoCompleto(arquivo));
    return lidos;
}

} // namespace

Argumentos lerArgumentos(std::vector<std::string> argumentos) {
    Argumentos lidos;
    Valores valores;
    bool mostrarAjuda = false;
    bool mostrarVersao = false;

    CLI::App app;
    app.set_help_flag();
    app.add_flag("-h,--ajuda", mostrarAjuda);
    app.add_flag("--versao", mostrarVersao);
    app.add_flag("--com-data", lidos.comData);
    app.add_flag("--abrir", lidos.abrir);
    app.add_flag("--json", lidos.json);
    app.add_flag("-q,--silencioso", lidos.silencioso);
    app.add_option("--tipo", valores.tipo);
    app.add_option("--posicao", valores.posicao);
    app.add_option("--formato", valores.formato);
    app.add_option("--primeiras", valores.primeiras);
    app.add_option("--pasta", valores.pasta);
    app.add_option("--log", valores.log);
    app.add_option("--pasta-de-logs", valores.pastaDeLogs);
    app.add_option("ARQUIVO", valores.arquivos);
    try {
        std::ranges::reverse(argumentos); // the parser reads them from the end
        app.parse(argumentos);
    } catch (const CLI::ParseError& erro) {
        return recusa(motivoDaRecusa(erro, app));
    }
    if (mostrarAjuda) lidos.acao = Argumentos::Acao::MostrarAjuda;
    if (mostrarVersao && !mostrarAjuda) lidos.acao = Argumentos::Acao::MostrarVersao;
    return lidos.acao == Argumentos::Acao::Analisar ? interpretar(valores, std::move(lidos)) : lidos;
}

VistaTexto textoDeAjuda() {
    return ajuda;
}

Texto textoDaVersao() {
    return Texto("quilatador-cli " QUILATADOR_VERSAO "\n"_t);
}

} // namespace quilatador
