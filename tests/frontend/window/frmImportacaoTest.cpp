#include "frontend/window/frmImportacao.h"

#include "frontend/window/TelaFalsa.h"
#include "support/Remessas.h"

#include <gtest/gtest.h>

namespace quilatador {
namespace {

constexpr const char* mensagemDaPosicao =
    "mensagem [Solvara - Quilatador de Leiaute] Posição da data no código de barras deve estar entre 20 e 41 (limites "
    "do campo livre)!\nfocar txtPosicao\n";
constexpr const char* faceDaRemessa = "legenda cmdCancela &Cancela\nhabilitar cmdCancela 1\nhabilitar cmdOK 0\n"
                                      "mostrar fraNomeArquivo 0\nmostrar fraImportacao 1\n";
constexpr const char* fimDaRemessa =
    "mensagem [Aviso!] ! Análise finalizada!\nlegenda cmdCancela &Fechar\nmostrar fraImportacao 0\n"
    "mostrar fraNomeArquivo 1\nhabilitar cmdCancela 1\nhabilitar cmdOK 1\n";
constexpr const char* opcoesVisiveis = "mostrar Frame1 1\nmostrar fraDetalhes 1\n";
constexpr const char* opcoesEscondidas = "mostrar Frame1 0\nmostrar fraDetalhes 0\n";

/// The rules of the window in a world that has one remittance, the layout description and the code tables.
struct Formulario {
    Formulario() {
        static const Texto tabelas = testes::lerTudo(QUILATADOR_TABELAS);
        mundo.arquivos.conteudo["/programa/TabelaErrosZUL.mdb"] = tabelas;
        tela.aoAtender = [this] { regras.atender(); };
    }

    [[nodiscard]] const Texto& log() { return mundo.arquivos.conteudo["/d/remessa.log"]; }

    testes::MundoComRemessa mundo;
    testes::TelaFalsa tela;
    Ambiente ambiente{tela,           mundo.relogio,  mundo.localidade,
                      mundo.lancador, mundo.arquivos, mundo.ambiente.pastaDoPrograma};
    modVariaveis globais;
    frmImportacao regras{ambiente, globais, tela};
    Pedido pedido{.nomeArquivo = "/d/remessa.rem", .nomeArquivoLog = {}};
};

TEST(frmImportacao, aoCarregarPoeOsValoresIniciais) {
    Formulario formulario;
    EXPECT_TRUE(formulario.regras.Form_Load());
    EXPECT_EQ(formulario.tela.novas(),
              "marcar chkData 0\nescrever txtPosicao 20\nescrever cmbFormato ADDD\nescrever txtNumeroDetalhes 50\n"
              "marcar optTodosDetalhes 1\nmarcar opt702 1\nhabilitar txtPosicao 0\nhabilitar cmbFormato 0\n"
              "habilitar txtNumeroDetalhes 0\nmostrar Frame1 1\nmostrar fraDetalhes 1\nhabilitar cmdOK 0\n");
    EXPECT_NE(formulario.globais.bancoDeDados, nullptr);
}

TEST(frmImportacao, semAsTabelasOProgramaNaoComeca) {
    Formulario formulario;
    formulario.mundo.arquivos.conteudo["/programa/TabelaErrosZUL.mdb"] = "no database";
    EXPECT_FALSE(formulario.regras.iniciar());
    EXPECT_EQ(formulario.tela.novas(), "mensagem [Solvara - Quilatador de Leiaute - Erro!] ! Não foi possível abrir o "
                                       "arquivo TabelaErrosZUL.mdb! Reinstale o aplicativo.\n");
}

TEST(frmImportacao, asEscolhasMudamOutrosControles) {
    Formulario formulario;
    formulario.regras.escolherTipo(TipoArquivo::ZUL702);
    EXPECT_EQ(formulario.tela.novas(), opcoesVisiveis);
    formulario.regras.escolherTipo(TipoArquivo::ZUL708);
    EXPECT_EQ(formulario.tela.novas(), opcoesEscondidas);
    formulario.regras.escolherTipo(TipoArquivo::TAV001);
    EXPECT_EQ(formulario.tela.novas(), opcoesEscondidas);
    formulario.regras.escolherComData(true);
    EXPECT_EQ(formulario.tela.novas(), "habilitar txtPosicao 1\nhabilitar cmbFormato 1\n");
    formulario.regras.escolherPrimeirasGuias(true);
    EXPECT_EQ(formulario.tela.novas(), "habilitar txtNumeroDetalhes 1\n");
    formulario.regras.mudarNomeArquivo(false);
    EXPECT_EQ(formulario.tela.novas(), "habilitar cmdOK 1\n");
}

TEST(frmImportacao, oFiltroDeixaSoOsDigitos) {
    for (const auto& [entrada, saida] : {std::pair{"0123456789"_t, VistaTexto("0123456789")},
                                         {" -1.234,5e6\n\0²½"_t, "123456"},
                                         {"cem"_t, ""},
                                         {""_t, ""}})
        EXPECT_EQ(frmImportacao::filtrarDigitos(entrada), saida);
}

TEST(frmImportacao, umNumeroDeGuiasVazioVolta) {
    Formulario formulario;
    formulario.regras.sairDoNumeroDeGuias("7");
    EXPECT_EQ(formulario.tela.novas(), "");
    formulario.regras.sairDoNumeroDeGuias("");
    EXPECT_EQ(formulario.tela.novas(), "escrever txtNumeroDetalhes 50\n");
}

TEST(frmImportacao, sairDaPosicaoConfereSoComData) {
    Formulario formulario;
    for (const double posicao : {0.0, 19.0, 20.0, 41.0, 42.0}) {
        for (const bool comData : {false, true}) {
            formulario.pedido.comData = comData;
            formulario.pedido.PosicaoDataBarra = posicao;
            formulario.regras.sairDaPosicao(formulario.pedido);
            const bool recusada = comData && (posicao < 20 || posicao > 41);
            EXPECT_EQ(formulario.tela.novas(), recusada ? mensagemDaPosicao : "") << posicao << comData;
        }
    }
}

TEST(frmImportacao, soTomaOArquivoQueExiste) {
    Formulario formulario;
    formulario.regras.tomarArquivo("/d/outro.rem");
    EXPECT_EQ(formulario.tela.novas(), "");
    formulario.regras.tomarArquivo("/d/remessa.rem");
    EXPECT_EQ(formulario.tela.novas(), "escrever txtNomeArquivo /d/remessa.rem\nhabilitar cmdOK 1\n");
    EXPECT_EQ(formulario.regras.ultimoArquivo(), "/d/remessa.rem");
}

TEST(frmImportacao, oArquivoRecebidoDizOSeuTipo) {
    Formulario formulario;
    const std::string tomado = "escrever txtNomeArquivo /d/a\nhabilitar cmdOK 1\n";
    for (const auto& [linha, efeito] : {std::pair{"A0000000000ZUL702", junta("marcar opt702 1\n", opcoesVisiveis)},
                                        {"A0000000000ZUL708", junta("marcar opt708 1\n", opcoesEscondidas)},
                                        {"A2", junta("marcar optTAV 1\n", opcoesEscondidas)},
                                        {"nothing", ""}}) {
        formulario.mundo.arquivos.conteudo["/d/a"] = linha;
        formulario.regras.receberArquivo("/d/a");
        EXPECT_EQ(formulario.tela.novas(), tomado + efeito);
    }
}

TEST(frmImportacao, abreOsDocumentosDaPastaDoPrograma) {
    Formulario formulario;
    formulario.regras.abrirAjuda();
    formulario.regras.abrirLeiaute();
    EXPECT_EQ(formulario.mundo.lancador.documentos,
              (std::vector<std::filesystem::path>{"/programa/Documentos/TAV/Ajuda/Quilatador.htm",
                                                  "/programa/Documentos/TAV/Layouts/layouts.html"}));
}

TEST(frmImportacao, aRemessaMudaDeFaceEVolta) {
    Formulario formulario;
    formulario.regras.confirmar(formulario.pedido);
    const std::string chamadas = formulario.tela.novas();
    EXPECT_TRUE(chamadas.starts_with(junta("rotulo lblEmpresa: \nrotulo lblRemessa: \n", faceDaRemessa))) << chamadas;
    EXPECT_TRUE(chamadas.ends_with(junta(fimDaRemessa, "focar txtNomeArquivo\n"))) << chamadas;
    EXPECT_EQ(formulario.mundo.lancador.textos, (std::vector<std::filesystem::path>{"/d/remessa.log"}));
}

TEST(frmImportacao, oRetornoDesligaOsBotoesEEscondeOsRotulos) {
    const std::string rotulos[] = {"Label1",
                                   "Label2",
                                   "Label3",
                                   "Label4",
                                   "Label5",
                                   "Label6",
                                   "lblTotalGuias",
                                   "lblTotalRegistros",
                                   "lblTempoDecorrido",
                                   "lblTempoRestante",
                                   "lblGuiasDepuradas",
                                   "lblRegistroAtual"};
    const std::string botoes[] = {"cmdAjuda", "cmdCancela", "cmdLayout", "cmdOK", "cmdSobre"};
    const auto todos = [](const std::string& operacao, const auto& controles, const std::string& valor) {
        std::string linhas;
        for (const std::string& controle : controles)
            linhas += operacao + " " + controle + " " + valor + "\n";
        return linhas;
    };
    for (const TipoArquivo tipo : {TipoArquivo::ZUL708, TipoArquivo::TAV001}) {
        Formulario formulario;
        formulario.pedido.tipoArquivo = tipo; // of which the file is none: the log says so
        formulario.regras.confirmar(formulario.pedido);
        EXPECT_EQ(formulario.tela.novas(),
                  "rotulo lblEmpresa: Empresa\nrotulo lblRemessa: Remessa\n" + todos("mostrar", rotulos, "0") +
                      todos("habilitar", botoes, "0") + "mostrar fraNomeArquivo 0\nmostrar fraImportacao 1\n" +
                      "rotulo lblOperacao: Aguarde. Analisando Arquivo...\n" +
                      "mensagem [Aviso!] ! Análise finalizada!\nlegenda cmdCancela &Fechar\n" +
                      "mostrar fraImportacao 0\nmostrar fraNomeArquivo 1\n" + todos("habilitar", botoes, "1") +
                      todos("mostrar", rotulos, "1") + "focar txtNomeArquivo\n");
    }
}

TEST(frmImportacao, umaPosicaoLongeDemaisNaoAnalisa) {
    Formulario formulario;
    formulario.pedido.comData = true;
    formulario.pedido.PosicaoDataBarra = 41;
    EXPECT_EQ(formulario.regras.analisar(formulario.pedido), std::nullopt);
    EXPECT_EQ(formulario.tela.novas(),
              "mensagem [Solvara - Quilatador de Leiaute] Posição da data no código de barras para este formato não "
              "pode ser maior que 40\nfocar txtPosicao\n");
    formulario.pedido.PosicaoDataBarra = 40;
    EXPECT_NE(formulario.regras.analisar(formulario.pedido), std::nullopt);
}

TEST(frmImportacao, oOKConfereTambemOCampoLivreDaRemessaComData) {
    Formulario formulario;
    formulario.pedido.comData = true;
    formulario.pedido.PosicaoDataBarra = 19;
    formulario.regras.confirmar(formulario.pedido);
    EXPECT_EQ(formulario.tela.novas(), mensagemDaPosicao);
    formulario.pedido.tipoArquivo = TipoArquivo::TAV001;
    formulario.regras.confirmar(formulario.pedido);
    EXPECT_EQ(formulario.mundo.lancador.textos.size(), 1u);
}

TEST(frmImportacao, semDataAPosicaoNaoConta) {
    Formulario formulario;
    formulario.mundo.arquivos.conteudo["/d/remessa.rem"] =
        testes::lerTudo(QUILATADOR_SAMPLES "/remessa-valida/remessa.rem");
    formulario.pedido.FormatoDataBarra = "AAAAMMDD";
    formulario.pedido.PosicaoDataBarra = 30;
    EXPECT_EQ(formulario.regras.analisar(formulario.pedido)->totalErros, 0);
    formulario.pedido.comData = true;
    EXPECT_NE(formulario.regras.analisar(formulario.pedido)->totalErros, 0);
}

TEST(frmImportacao, cancelarFechaAJanelaForaDeUmaAnalise) {
    Formulario formulario;
    formulario.regras.cancelar();
    EXPECT_EQ(formulario.tela.novas(), "fechar\n");
    EXPECT_TRUE(formulario.regras.podeFechar());
}

TEST(frmImportacao, cancelarParaAAnaliseEmCurso) {
    Formulario formulario;
    formulario.tela.aoAvancar = [&](std::int32_t registro) {
        if (registro == 3) formulario.regras.cancelar();
    };
    EXPECT_EQ(formulario.regras.analisar(formulario.pedido)->desfecho, Desfecho::Cancelada);
    EXPECT_TRUE(formulario.log().ends_with("\r\nDEPURACAO CANCELADA!\r\nDepuração terminada!\r\n"_t));
    EXPECT_TRUE(formulario.tela.novas().ends_with(fimDaRemessa));
    formulario.tela.aoAvancar = nullptr;
    EXPECT_EQ(formulario.regras.analisar(formulario.pedido)->desfecho, Desfecho::Concluida);
}

TEST(frmImportacao, umPedidoDePararAntesDaPrimeiraLinhaVale) {
    Formulario formulario;
    bool pedido = false;
    formulario.tela.aoAtender = [&] { // the face has just changed, and the run not yet begun
        if (!std::exchange(pedido, true)) formulario.regras.cancelar();
    };
    formulario.tela.aoAvancar = [&](std::int32_t) { formulario.regras.atender(); };
    EXPECT_EQ(formulario.regras.analisar(formulario.pedido)->desfecho, Desfecho::Cancelada);
}

TEST(frmImportacao, fecharNoMeioCancelaEFechaDepois) {
    for (const TipoArquivo tipo : {TipoArquivo::ZUL702, TipoArquivo::ZUL708}) {
        Formulario formulario;
        formulario.pedido.tipoArquivo = tipo;
        formulario.mundo.arquivos.conteudo["/d/remessa.rem"].replace(11, 6,
                                                                     tipo == TipoArquivo::ZUL702 ? "ZUL702" : "ZUL708");
        bool perguntado = false;
        formulario.tela.aoAvancar = [&](std::int32_t registro) {
            if (registro != 3) return;
            perguntado = true;
            EXPECT_FALSE(formulario.regras.podeFechar());
            formulario.regras.receberArquivo("/d/remessa.rem"); // what is dropped meanwhile is not taken
        };
        formulario.regras.confirmar(formulario.pedido);
        EXPECT_TRUE(perguntado);
        const std::string chamadas = formulario.tela.novas();
        EXPECT_TRUE(chamadas.ends_with("\nfechar\n")) << chamadas;
        EXPECT_EQ(chamadas.find("escrever"), std::string::npos);
        EXPECT_NE(formulario.log().find("CANCELAD"), Texto::npos) << formulario.log();
        EXPECT_TRUE(formulario.mundo.arquivos.tudoFechado());
        EXPECT_TRUE(formulario.regras.podeFechar());
    }
}

} // namespace
} // namespace quilatador
