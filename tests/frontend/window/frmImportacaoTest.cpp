#include "frontend/window/frmImportacao.h"

#include "support/Remessas.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

/// Keeps what was done to the window, one line a call. Progress is not noted.
class TelaFalsa final : public Tela {
  public:
    void rotulo(Rotulo qual, VistaTexto texto) override {
        constexpr VistaTexto nomes[] = {"lblOperacao"_t, "lblEmpresa"_t, "lblRemessa"_t};
        anotar("rotulo"_t, nomes[static_cast<std::size_t>(qual)], texto);
    }
    void iniciarProgresso(const Progresso&) override {}
    void avancar(const Progresso&) override {}
    void concluirProgresso(const Progresso&) override {}
    void processarEventos() override { anotar("atender"_t, "eventos"_t, ""_t); }
    void mensagem(const Mensagem& dita) override {
        anotar(dita.icone == Mensagem::Icone::Exclamacao ? "mensagem !"_t : "mensagem"_t, dita.titulo, dita.texto);
    }
    [[nodiscard]] std::optional<double> primeirasGuias() const override { return 0; }
    void mostrar(Controle qual, bool visivel) override { anotar(visivel ? "mostrar"_t : "esconder"_t, qual); }
    void habilitar(Controle qual, bool sim) override { anotar(sim ? "habilitar"_t : "desabilitar"_t, qual); }
    void legenda(Controle qual, VistaTexto texto) override { anotar("legenda"_t, nomeDoControle(qual), texto); }
    void focar(Controle qual) override { anotar("focar"_t, qual); }
    void marcar(Controle qual, bool) override { anotar("marcar"_t, qual); }
    void escrever(Controle qual, VistaTexto texto) override { anotar("escrever"_t, nomeDoControle(qual), texto); }
    void nomeArquivo(const std::filesystem::path&) override { anotar("escrever"_t, Controle::txtNomeArquivo); }
    void fechar() override { anotar("fechar"_t, "janela"_t, ""_t); }

    std::string chamadas; ///< in UTF-8

  private:
    void anotar(VistaTexto operacao, Controle qual) { anotar(operacao, nomeDoControle(qual), ""_t); }
    void anotar(VistaTexto operacao, VistaTexto onde, VistaTexto texto) {
        chamadas += utf8DeTexto(junta(operacao, " "_t, onde, texto.empty() ? ""_t : ": "_t, texto)) + "\n";
    }
};

/// All that an analysis does to the window, in the order that the user sees.
std::string chamadasDe(TipoArquivo tipo) {
    testes::MundoComRemessa mundo;
    TelaFalsa tela;
    Ambiente ambiente{tela, mundo.relogio, mundo.localidade, mundo.lancador, mundo.arquivos, "/programa"};
    modVariaveis globais;
    frmImportacao(ambiente, globais, tela)
        .confirmar({.tipoArquivo = tipo, .nomeArquivo = "/d/remessa.rem", .nomeArquivoLog = {}});
    return tela.chamadas;
}

TEST(frmImportacao, aRemessaMudaDeFaceEVolta) {
    EXPECT_EQ(chamadasDe(TipoArquivo::ZUL702), testes::lerTudo(QUILATADOR_CHAMADAS "/remessa.txt"));
}

/// Each button by itself, and the labels of the progress that a return does not have.
TEST(frmImportacao, oRetornoDesligaOsBotoesEEscondeOsRotulos) {
    EXPECT_EQ(chamadasDe(TipoArquivo::ZUL708), testes::lerTudo(QUILATADOR_CHAMADAS "/retorno.txt"));
    EXPECT_EQ(chamadasDe(TipoArquivo::TAV001), testes::lerTudo(QUILATADOR_CHAMADAS "/retorno.txt"));
}

} // namespace
} // namespace quilatador
