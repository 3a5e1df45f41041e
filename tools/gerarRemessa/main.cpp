#include "common/Falha.h"
#include "gerarRemessa/Gerador.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <fstream>
#include <iostream>

namespace {

using namespace quilatador;

constexpr int estadoUso = 2;

constexpr const char* exemplos = R"(Exemplos:
  gerarRemessa remessa.rem                                   remessa pequena e sem erros
  gerarRemessa --guias 50 --falhas remessa.rem               remessa com erros nas definições e na última guia
  gerarRemessa --registros 999999 grande.rem                 remessa com exatamente tantos registros
  gerarRemessa --tipo ZUL708 --registros 100 retorno.ret     resposta do banco a essa remessa
  gerarRemessa --tipo TAV001 --registros 100 retorno.ret     liquidação de tantos pagamentos
)";

/// Words a wrong use in Portuguese by the type of the error, because the library's own messages are in English.
std::string mensagemDeUso(const CLI::App*, const CLI::Error& erro) {
    const std::string motivo = dynamic_cast<const CLI::RequiredError*>(&erro) ? "falta o nome do arquivo"
                               : dynamic_cast<const CLI::ExtrasError*>(&erro) ? "opção ou argumento desconhecido"
                                                                              : "valor ausente ou inválido";
    return "gerarRemessa: " + motivo + "; veja gerarRemessa --ajuda\n";
}

void gravar(const gerador::Opcoes& opcoes, const std::filesystem::path& caminho) {
    gerador::conferir(opcoes); // checked here too, so that no file is replaced for nothing
    std::ofstream arquivo(caminho, std::ios::binary);
    if (!arquivo) throw Falha(numeroDeFalha::acessoAoCaminho, "Gravacao"_t, "Não foi possível criar o arquivo!"_t);
    gerador::gerar(opcoes, arquivo);
}

} // namespace

int main(int argc, char** argv) {
    CLI::App app("Gera arquivos de cobrança para exemplos, testes e medições.", "gerarRemessa");
    app.option_defaults()->group("Opções");
    app.set_help_flag("-h,--ajuda", "mostra esta ajuda")->group("Opções");
    app.get_formatter()->label("OPTIONS", "OPÇÕES");
    app.get_formatter()->label("Usage", "Uso");
    app.get_formatter()->label("Positionals", "Argumentos");
    app.get_formatter()->label("REQUIRED", "obrigatório");
    app.footer(exemplos);
    app.failure_message(mensagemDeUso);

    gerador::Opcoes opcoes;
    std::string arquivo;
    app.add_option("--tipo", opcoes.tipo, "ZUL702 (se nada for dito), ZUL708 ou TAV001")
        ->type_name("TIPO")
        ->transform(CLI::CheckedTransformer(std::map<std::string, gerador::Tipo>{{"ZUL702", gerador::Tipo::ZUL702},
                                                                                 {"ZUL708", gerador::Tipo::ZUL708},
                                                                                 {"TAV001", gerador::Tipo::TAV001}})
                        .description(""));
    app.add_option("--guias", opcoes.guias, "número de guias da remessa")->type_name("N");
    app.add_option("--registros", opcoes.registros, "número exato de registros; num TAV001, de pagamentos")
        ->type_name("N");
    app.add_option("--semente", opcoes.semente, "com a mesma semente o arquivo é sempre igual")->type_name("N");
    app.add_flag("--falhas", opcoes.falhas, "põe erros na remessa");
    app.add_option("ARQUIVO", arquivo, "o arquivo a gravar")->required()->type_name("");

    try {
        app.parse(argc, argv);
        gravar(opcoes, arquivo);
    } catch (const CLI::ParseError& erro) {
        return app.exit(erro) == 0 ? 0 : estadoUso;
    } catch (const Falha& falha) {
        std::cerr << "gerarRemessa: " << falha.what() << '\n';
        return estadoUso;
    }
    return 0;
}
