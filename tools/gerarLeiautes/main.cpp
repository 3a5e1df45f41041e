// Generates the document about the layouts from a template and the layout description.

#include "common/Falha.h"
#include "gerarLeiautes/Documento.h"
#include "layout/ArquivoRemessaBD.h"
#include "platform/ArquivosDoSistema.h"
#include "platform/RelogioDoSistema.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace {

using namespace quilatador;

constexpr int situacaoDeFalha = 2;

/// Prints the messages of the loading on the terminal. The other operations of a display are not needed.
class PainelDeErros final : public Painel {
  public:
    void rotulo(Rotulo, VistaTexto) override {}
    void iniciarProgresso(const Progresso&) override {}
    void avancar(const Progresso&) override {}
    void concluirProgresso(const Progresso&) override {}
    void processarEventos() override {}
    void mensagem(const Mensagem& mensagem) override { std::cerr << utf8DeTexto(mensagem.texto) << '\n'; }
    [[nodiscard]] std::optional<double> primeirasGuias() const override { return std::nullopt; }
};

std::string lerModelo(const std::filesystem::path& caminho) {
    std::ifstream arquivo(caminho, std::ios::binary);
    if (!arquivo) throw Falha(numeroDeFalha::arquivoNaoEncontrado, "Gravacao"_t, "Modelo não encontrado!"_t);
    return {std::istreambuf_iterator<char>(arquivo), {}};
}

void gerar(const std::filesystem::path& descricao, const std::filesystem::path& modelo,
           const std::filesystem::path& saida) {
    ArquivosDoSistema arquivos;
    PainelDeErros painel;
    const RelogioDoSistema relogio;
    const auto leiaute = ArquivoRemessaBD::obterArquivoRemessa(descricao, arquivos, painel, relogio);
    if (!leiaute) throw Falha(numeroDeFalha::arquivoNaoEncontrado, "Gravacao"_t, textoDoCaminho(descricao));
    const std::string documento = leiautes::preencher(lerModelo(modelo), *leiaute);
    std::filesystem::create_directories(saida.parent_path());
    const auto arquivo = arquivos.criarSaida(saida);
    arquivo->escrever(documento);
    arquivo->fechar();
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "Uso: gerarLeiautes LEIAUTE.xml MODELO.html SAIDA.html\n";
        return situacaoDeFalha;
    }
    try {
        gerar(argv[1], argv[2], argv[3]);
    } catch (const std::exception& falha) {
        std::cerr << "gerarLeiautes: " << falha.what() << '\n';
        return situacaoDeFalha;
    }
    return 0;
}
