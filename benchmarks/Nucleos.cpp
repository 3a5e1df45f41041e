// Measures the innermost functions of a run on generated input. The figure to look at is lines per second. The tests do
// not run this program.
#include "cli/PainelDoTerminal.h"
#include "common/DV.h"
#include "common/Falha.h"
#include "common/modDepuracao.h"
#include "gerarRemessa/Gerador.h"
#include "layout/ArquivoRemessaBD.h"
#include "platform/ArquivosDoSistema.h"
#include "platform/LancadorDoSistema.h"
#include "platform/LocalidadeDoSistema.h"
#include "platform/Pastas.h"
#include "platform/RelogioDoSistema.h"
#include "returns/modTrataTAV001.h"
#include "tables/BancoDeDados.h"
#include "validator/Depurador.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstring>
#include <sstream>

using namespace quilatador;

namespace {

class EntradaEmMemoria final : public ArquivoEntrada {
  public:
    explicit EntradaEmMemoria(std::string_view conteudo) : resto_(conteudo) {}
    std::size_t ler(std::span<char> destino) override {
        const std::size_t bytes = resto_.copy(destino.data(), destino.size());
        resto_.remove_prefix(bytes);
        return bytes;
    }

  private:
    std::string_view resto_;
};

/// Accepts what is written and discards it.
class SaidaPerdida final : public ArquivoSaida {
  public:
    void escrever(std::string_view bytes) override { benchmark::DoNotOptimize(bytes.data()); }
    void fechar() override {}
};

/// Serves one input from memory; all other files are read from the disk.
class ArquivosDaMedida final : public Arquivos {
  public:
    explicit ArquivosDaMedida(std::string_view entrada) : entrada_(entrada) {}
    std::unique_ptr<ArquivoEntrada> abrirEntrada(const std::filesystem::path& caminho) override {
        if (caminho == "entrada") return std::make_unique<EntradaEmMemoria>(entrada_);
        return disco_.abrirEntrada(caminho);
    }
    std::unique_ptr<ArquivoSaida> criarSaida(const std::filesystem::path&) override {
        return std::make_unique<SaidaPerdida>();
    }
    std::unique_ptr<ArquivoProvisorio> criarProvisorio(const std::filesystem::path& caminho) override {
        return disco_.criarProvisorio(caminho);
    }
    std::unique_ptr<SomaDoArquivo> somar(const std::filesystem::path& caminho) override {
        return disco_.somar(caminho);
    }
    bool existe(const std::filesystem::path& caminho) const override { return disco_.existe(caminho); }
    bool ehPasta(const std::filesystem::path& caminho) const override { return disco_.ehPasta(caminho); }
    std::uint64_t tamanho(const std::filesystem::path& caminho) const override {
        return caminho == "entrada" ? entrada_.size() : disco_.tamanho(caminho);
    }
    std::optional<VersaoDoArquivo> versao(const std::filesystem::path& caminho) const override {
        return caminho == "entrada" ? VersaoDoArquivo() : disco_.versao(caminho);
    }
    Destino destino(const std::filesystem::path& caminho) const override { return {.falta = caminho}; }
    std::optional<Data> modificadoEm(const std::filesystem::path&) const override { return std::nullopt; }

  private:
    std::string_view entrada_;
    ArquivosDoSistema disco_;
};

class LancadorParado final : public Lancador {
  public:
    void abrirTexto(const std::filesystem::path&) override {}
    void abrirDocumento(const std::filesystem::path&) override {}
};

/// Everything that a run needs, without a screen and without a log on the disk.
struct Mundo {
    explicit Mundo(std::string_view entrada) : arquivos(entrada) {}

    std::ostringstream tela_;
    RelogioDoSistema relogio;
    LocalidadeDoSistema localidade;
    LancadorParado lancador;
    ArquivosDaMedida arquivos;
    PainelDoTerminal tela{tela_, relogio, {.primeiras = std::nullopt, .aoAtender = {}}};
    modVariaveis globais;
    std::atomic<bool> cancelado = false;
    Ambiente ambiente{tela, relogio, localidade, lancador, arquivos, pastaDoExecutavel()};
};

std::string gerado(gerador::Tipo tipo, std::uint32_t registros) {
    std::ostringstream destino;
    gerador::gerar({.tipo = tipo, .registros = registros}, destino);
    return destino.str();
}

const std::string& remessa() {
    static const std::string bytes = gerado(gerador::Tipo::ZUL702, 10'000);
    return bytes;
}

void contarLinhas(benchmark::State& estado, std::size_t porVolta) {
    estado.SetItemsProcessed(estado.iterations() * static_cast<std::int64_t>(porVolta));
}

void leituraDeLinhas(benchmark::State& estado) {
    std::size_t linhas = 0;
    for (auto _ : estado) {
        LeitorDeLinhas leitor(std::make_unique<EntradaEmMemoria>(remessa()));
        for (linhas = 0; leitor.proxima(); ++linhas) {
        }
    }
    contarLinhas(estado, linhas);
}
BENCHMARK(leituraDeLinhas);

void caracteresEspeciais(benchmark::State& estado) {
    Texto linha(textoDosBytes(remessa()).substr(0, 240));
    if (estado.range(0) == 1) linha[100] = static_cast<char>(0xC9);
    for (auto _ : estado)
        benchmark::DoNotOptimize(modDepuracao::caracteresEspeciais(linha));
    contarLinhas(estado, 1);
}
BENCHMARK(caracteresEspeciais)->Arg(0)->Arg(1);

void reconhecimentoDeRegistros(benchmark::State& estado) {
    Mundo mundo(remessa());
    const auto leiaute = ArquivoRemessaBD::obterArquivoRemessa(mundo.ambiente.pastaDoPrograma / "Arquivo_ZUL702.xml",
                                                               mundo.arquivos, mundo.tela, mundo.ambiente.relogio);
    leiaute->criarCopias(false);
    std::size_t linhas = 0;
    for (auto _ : estado) {
        leiaute->abrirArquivoEntrada("entrada");
        for (linhas = 0; !leiaute->avancar(false).linha().empty(); ++linhas) {
        }
    }
    contarLinhas(estado, linhas);
}
BENCHMARK(reconhecimentoDeRegistros);

void leituraDeCampos(benchmark::State& estado) {
    Mundo mundo(remessa());
    const auto leiaute = ArquivoRemessaBD::obterArquivoRemessa(mundo.ambiente.pastaDoPrograma / "Arquivo_ZUL702.xml",
                                                               mundo.arquivos, mundo.tela, mundo.ambiente.relogio);
    leiaute->abrirArquivoEntrada("entrada");
    RegistroRemessa registro = leiaute->lerRegistro(false)->copia();
    while (registro.nome() != "Y"_t)
        registro = leiaute->lerRegistro(false)->copia();
    for (auto _ : estado)
        for (const auto& campo : registro.campos())
            benchmark::DoNotOptimize(registro.getValorCampo(*campo));
    contarLinhas(estado, 1);
}
BENCHMARK(leituraDeCampos);

void digitosVerificadores(benchmark::State& estado) {
    constexpr VistaTexto barra = "8163000000105134321000000000000000000135089"_t;
    for (auto _ : estado) {
        benchmark::DoNotOptimize(DV::CalcularMod10(barra));
        benchmark::DoNotOptimize(DV::CalculaMod11Barra(barra));
        benchmark::DoNotOptimize(DV::VerificarCNPJ("11892180000180"_t));
    }
    contarLinhas(estado, 1);
}
BENCHMARK(digitosVerificadores);

/// In a remittance with one slip, nearly all the time goes into the checks of the definitions and of the slip.
void umaGuia(benchmark::State& estado) {
    const std::string entrada = gerado(gerador::Tipo::ZUL702, gerador::menorRemessa);
    Mundo mundo(entrada);
    Depurador depurador(mundo.ambiente, mundo.globais, mundo.cancelado);
    for (auto _ : estado)
        benchmark::DoNotOptimize(depurador.DepurarArquivo("entrada"));
    contarLinhas(estado, gerador::menorRemessa);
}
BENCHMARK(umaGuia);

void remessaInteira(benchmark::State& estado) {
    const auto registros = static_cast<std::uint32_t>(estado.range(0));
    const std::string entrada = gerado(gerador::Tipo::ZUL702, registros);
    Mundo mundo(entrada);
    Depurador depurador(mundo.ambiente, mundo.globais, mundo.cancelado);
    for (auto _ : estado)
        benchmark::DoNotOptimize(depurador.DepurarArquivo("entrada"));
    contarLinhas(estado, registros);
}
BENCHMARK(remessaInteira)->Arg(1'000)->Arg(300'000)->Unit(benchmark::kMillisecond);

void relatorioDePagamentos(benchmark::State& estado) {
    const auto pagamentos = static_cast<std::uint32_t>(estado.range(0));
    const std::string entrada = gerado(gerador::Tipo::TAV001, pagamentos);
    Mundo mundo(entrada);
    BancoDeDados banco(mundo.arquivos, mundo.ambiente.bancoDeDados());
    mundo.globais.bancoDeDados = &banco;
    for (auto _ : estado) {
        Rodada rodada(mundo.ambiente, {.tipoArquivo = TipoArquivo::TAV001, .nomeArquivo = "entrada"}, mundo.cancelado);
        benchmark::DoNotOptimize(tratarRetornoTAV001(rodada, mundo.globais));
    }
    contarLinhas(estado, pagamentos);
}
BENCHMARK(relatorioDePagamentos)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace
