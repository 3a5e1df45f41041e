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
    if (nome == "ZUL702") return TipoArquivo::ZUL702;
    if (nome == "ZUL708") return TipoArquivo::ZUL708;
    if (nome == "TAV001") return TipoArquivo::TAV001;
    return std::nullopt;
}

/// A path as a file dialog would give it.
std::filesystem::path caminhoCompleto(const std::string& caminho) {
    return std::filesystem::absolute(caminho).lexically_normal();
}

Argumentos recusa(Texto motivo) {
    Argumentos argumentos;
    argumentos.acao = Argumentos::Acao::Recusar;
    argumentos.motivo = std::move(motivo);
    return argumentos;
}

/// The parser's complaint in the user's language.
Texto motivoDaRecusa(const CLI::ParseError& erro, const CLI::App& app) {
    const auto listar = [](const std::vector<std::string>& itens) {
        Texto lista;
        for (const std::string& item : itens)
            lista += (lista.empty() ? "" : " ") + textoDeUtf8(item);
        return lista;
    };
    if (dynamic_cast<const CLI::ExtrasError*>(&erro)) return junta("Opção desconhecida: "_t, listar(app.remaining()));
    if (dynamic_cast<const CLI::RequiredError*>(&erro)) return Texto("Falta o nome do ARQUIVO."_t);
    // The parser's text has the option's name in it.
    const std::string texto = erro.what();
    const std::size_t nome = std::min(texto.find('-'), texto.size());
    return junta("Valor ausente ou inválido em "_t,
                 textoDeUtf8(texto.substr(nome, texto.find_first_of(": ", nome) - nome)));
}

} // namespace

Argumentos lerArgumentos(std::vector<std::string> argumentos) {
    Argumentos lidos;
    bool mostrarAjuda = false;
    bool mostrarVersao = false;
    std::vector<std::string> arquivos;
    std::string tipo;
    std::string posicao(posicaoInicial);
    std::string formato(formatoInicial);
    std::string primeiras;
    std::string pasta;
    std::string log;

    CLI::App app;
    app.set_help_flag();
    app.add_flag("-h,--ajuda", mostrarAjuda);
    app.add_flag("--versao", mostrarVersao);
    app.add_flag("--com-data", lidos.comData);
    app.add_flag("--abrir", lidos.abrir);
    app.add_flag("--json", lidos.json);
    app.add_flag("-q,--silencioso", lidos.silencioso);
    const auto* opcaoTipo = app.add_option("--tipo", tipo);
    app.add_option("--posicao", posicao);
    app.add_option("--formato", formato);
    const auto* opcaoPrimeiras = app.add_option("--primeiras", primeiras);
    const auto* opcaoPasta = app.add_option("--pasta", pasta);
    const auto* opcaoLog = app.add_option("--log", log);
    app.add_option("ARQUIVO", arquivos);
    try {
        std::ranges::reverse(argumentos); // the parser takes them from the back
        app.parse(argumentos);
    } catch (const CLI::ParseError& erro) {
        return recusa(motivoDaRecusa(erro, app));
    }
    if (mostrarAjuda)
        lidos.acao = Argumentos::Acao::MostrarAjuda;
    else if (mostrarVersao)
        lidos.acao = Argumentos::Acao::MostrarVersao;
    if (lidos.acao != Argumentos::Acao::Analisar) return lidos;

    if (arquivos.empty()) return recusa(Texto("Falta o nome do ARQUIVO."_t));
    lidos.tipo = tipoDeNome(tipo);
    if (*opcaoTipo && !lidos.tipo) return recusa(junta("Tipo de arquivo desconhecido: "_t, textoDeUtf8(tipo)));
    if (*opcaoPrimeiras) {
        if (!soDigitos(primeiras)) return recusa(junta("Quantidade de guias inválida: "_t, textoDeUtf8(primeiras)));
        lidos.primeiras = lerNumero(primeiras);
    }
    if (*opcaoLog && arquivos.size() > 1) return recusa("--log vale somente com um ARQUIVO.");
    lidos.posicao = lerNumero(textoDeUtf8(posicao));
    lidos.formato = textoDeUtf8(formato);
    if (*opcaoPasta) lidos.pasta = caminhoCompleto(pasta);
    if (*opcaoLog) lidos.log = caminhoCompleto(log);
    for (const std::string& arquivo : arquivos)
        lidos.arquivos.push_back(caminhoCompleto(arquivo));
    return lidos;
}

VistaTexto textoDeAjuda() {
    return ajuda;
}

Texto textoDaVersao() {
    return "quilatador-cli " QUILATADOR_VERSAO "\n";
}

} // namespace quilatador
