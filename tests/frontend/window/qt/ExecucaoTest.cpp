#include "frontend/window/qt/JanelaDeTeste.h"

#include <QTimer>

namespace quilatador {
namespace {

using Textos = std::vector<std::string>;

/// A whole analysis, as a user makes it.
class Execucao : public testes::JanelaDeTeste {
  protected:
    void pedir(const char* arquivo, Texto conteudo) {
        mundo.arquivos.conteudo[arquivo] = std::move(conteudo);
        abrir();
        digitar("txtNomeArquivo", arquivo);
    }

    /// Does something once, when the run has shown that it has come some way.
    template <typename Acao>
    void noMeio(Acao acao) {
        QObject::connect(&relance_, &QTimer::timeout, &janela, [this, acao] {
            if (controle<QLabel>("lblRegistroAtual")->text().toInt() < 1000) return;
            relance_.stop();
            relance_.disconnect();
            EXPECT_TRUE(visivel("fraImportacao"));
            acao();
        });
        relance_.start(0);
    }

    [[nodiscard]] bool naFaceDoPedido() { return visivel("fraNomeArquivo") && !visivel("fraImportacao"); }

  private:
    QTimer relance_;
};

constexpr const char* grande = "/d/grande.rem";
constexpr VistaTexto fimCancelado = "\r\n\r\nDEPURACAO CANCELADA!\r\nDepuração terminada!\r\n"_t;

Texto remessaGrande() {
    return testes::remessa({.registros = 20'000});
}

TEST_F(Execucao, daOLogDosExemplos) {
    abrir();
    escolher("chkData");
    controle<QComboBox>("cmbFormato")->setCurrentText(QStringLiteral("AAAAMMDD"));
    for (const auto& [exemplo, opcao] : {std::pair{"remessa-valida/remessa.rem", "opt702"},
                                         {"remessa-com-erros/remessa.rem", "opt702"},
                                         {"retorno-impressao/retorno.ret", "opt708"},
                                         {"retorno-liquidacao/retorno.ret", "optTAV"}}) {
        std::filesystem::path origem = std::filesystem::path(QUILATADOR_SAMPLES) / exemplo;
        std::filesystem::path arquivo = "/exemplo" / origem.filename();
        mundo.arquivos.conteudo[arquivo] = testes::lerTexto(origem);
        clicar(opcao);
        digitar("txtNomeArquivo", arquivo.c_str());
        clicar("cmdOK");
        EXPECT_EQ(mundo.arquivos.conteudo[arquivo.replace_extension("log")],
                  testes::lerTexto(origem.replace_extension("log")));
        EXPECT_EQ(dialogos.textos(), Textos{"Análise finalizada!"});
        EXPECT_TRUE(naFaceDoPedido());
    }
    EXPECT_EQ(mundo.lancador.textos.size(), 4u);
    EXPECT_EQ(legenda("cmdCancela"), "&Fechar");
    clicar("cmdCancela");
    EXPECT_FALSE(janela.isVisible());
}

TEST_F(Execucao, mostraAteOndeChegou) {
    pedir(grande, remessaGrande());
    QString operacao;
    noMeio([&] { operacao = controle<QLabel>("lblOperacao")->text(); });
    clicar("cmdOK");
    EXPECT_EQ(operacao, QStringLiteral("Verificando a integridade do arquivo..."));
    EXPECT_EQ(legenda("lblOperacao"), "Depurando guias");
    EXPECT_EQ(legenda("lblRegistroAtual"), "20000");
    EXPECT_EQ(legenda("lblTotalRegistros"), "20000");
    EXPECT_EQ(legenda("lblTotalGuias"), "todas");
    EXPECT_TRUE(legenda("lblRemessa").starts_with("Remessa: "));
    EXPECT_TRUE(legenda("lblEmpresa").starts_with("Convenente: "));
    EXPECT_EQ(controle<QProgressBar>("pbrImportacao")->value(), 19999);
    escolher("optPrimeirasGuias");
    digitar("txtNumeroDetalhes", "3");
    clicar("cmdOK");
    EXPECT_EQ(legenda("lblGuiasDepuradas"), "3");
    EXPECT_EQ(legenda("lblTotalGuias"), "3");
    janela.progresso->mostrar({.registroAtual = 3'000'000'000, .totalRegistros = 6'000'000'000, .barra = 3'000'000'000},
                              {});
    EXPECT_EQ(legenda("lblRegistroAtual"), "3000000000");
    EXPECT_EQ(controle<QProgressBar>("pbrImportacao")->value() * 2, controle<QProgressBar>("pbrImportacao")->maximum());
}

TEST_F(Execucao, cancelarNoMeioVoltaAoPedido) {
    pedir(grande, remessaGrande());
    for (const bool comEscape : {true, false}) {
        noMeio([&] {
            EXPECT_EQ(legenda("cmdCancela"), "&Cancela");
            EXPECT_FALSE(habilitado("cmdOK"));
            aplicacao.receber("/d/outra.rem"); // which is not taken meanwhile
            comEscape ? QTest::keyClick(&janela, Qt::Key_Escape) : clicar("cmdCancela");
        });
        QTest::keyClick(controle("txtNomeArquivo"), Qt::Key_Return);
        EXPECT_TRUE(mundo.arquivos.conteudo["/d/grande.log"].ends_with(fimCancelado));
        EXPECT_EQ(dialogos.textos(), Textos{"Análise finalizada!"});
        EXPECT_TRUE(naFaceDoPedido());
        EXPECT_EQ(focado(), "txtNomeArquivo");
        EXPECT_EQ(texto("txtNomeArquivo"), grande);
    }
}

TEST_F(Execucao, cancelarAntesDaPrimeiraLinhaVale) {
    pedir(grande, remessaGrande());
    QTimer::singleShot(0, &janela, [&] { clicar("cmdCancela"); }); // the face has changed, the run not yet begun
    controle<QPushButton>("cmdOK")->click();
    EXPECT_TRUE(mundo.arquivos.conteudo["/d/grande.log"].ends_with(fimCancelado));
    EXPECT_TRUE(janela.isVisible());
}

/// By its own means, or asked from outside.
TEST_F(Execucao, fecharNoMeioCancelaEFechaOLog) {
    bool pedido = false;
    aplicacao.encerrarQuando([&] { return pedido; });
    for (const auto& [opcao, tipo, deFora] : {std::tuple{"opt702", gerador::Tipo::ZUL702, false},
                                              {"opt708", gerador::Tipo::ZUL708, false},
                                              {"opt702", gerador::Tipo::ZUL702, true}}) {
        pedir(grande, testes::remessa({.tipo = tipo, .registros = 20'000}));
        escolher(opcao);
        noMeio([&, &deFora = deFora] {
            pedido = deFora;
            if (deFora)
                QTest::qWait(150);
            else
                EXPECT_FALSE(janela.close());
        });
        clicar("cmdOK");
        EXPECT_FALSE(janela.isVisible());
        EXPECT_TRUE(mundo.arquivos.tudoFechado());
        EXPECT_NE(mundo.arquivos.conteudo["/d/grande.log"].find("CANCELAD"_t), Texto::npos);
    }
}

/// Enter leaves no box, so that only the test of OK itself is made. A click leaves the box, however quick it is.
TEST_F(Execucao, oOKConfereOFormatoEUmCliqueTambemAPosicao) {
    pedir("/d/remessa.rem", testes::remessa());
    escolher("chkData");
    controle<QComboBox>("cmbFormato")->setCurrentText(QStringLiteral("AAAAMMDD"));
    for (const auto& [posicao, mensagem] :
         {std::pair{"37", "Posição da data no código de barras para este formato não pode ser maior que 36"},
          {"36", "Análise finalizada!"},
          {"19", "Análise finalizada!"}}) {
        digitar("txtPosicao", posicao);
        QTest::keyClick(controle("txtPosicao"), Qt::Key_Return);
        QApplication::processEvents();
        EXPECT_EQ(dialogos.textos(), Textos{mensagem});
        EXPECT_EQ(focado(), mundo.lancador.textos.empty() ? "txtPosicao" : "txtNomeArquivo");
        EXPECT_TRUE(naFaceDoPedido());
    }
    digitar("txtPosicao", "19");
    clicar("cmdOK");
    QApplication::processEvents();
    EXPECT_EQ(dialogos.textos(),
              Textos{"Posição da data no código de barras deve estar entre 20 e 41 (limites do campo livre)!"});
    EXPECT_EQ(focado(), "txtPosicao");
    escolher("optTAV"); // which has no such position
    clicar("cmdOK");
    EXPECT_EQ(dialogos.textos(), Textos{"Análise finalizada!"});
}

/// Also where the desktop has Enter press option buttons and check boxes.
TEST_F(Execucao, aTeclaEnterPressionaOKDeTodoLugar) {
    pedir("/d/remessa.rem", testes::remessa());
    escolher("chkData");
    escolher("optPrimeirasGuias");
    for (const char* nome :
         {"opt702", "chkData", "txtPosicao", "cmbFormato", "optPrimeirasGuias", "txtNumeroDetalhes"}) {
        controle(nome)->setFocus();
        QTest::keyClick(janela.focusWidget(), Qt::Key_Enter);
        EXPECT_EQ(dialogos.textos(), Textos{"Análise finalizada!"}) << nome;
    }
}

TEST_F(Execucao, oLogVaiParaOndeOUsuarioEscolhe) {
    pedir("/d/nada.rem", {});
    mundo.arquivos.conteudo.erase("/d/nada.rem");
    mundo.arquivos.falhar(testes::ArquivosEmMemoria::Operacao::Criar, 1, testes::discoCheio);
    dialogos.escolhido = "/outra/x.log";
    clicar("cmdOK");
    EXPECT_EQ(mundo.lancador.textos, std::vector{*dialogos.escolhido});
    EXPECT_TRUE(legenda("lblTempoDecorrido").starts_with("00:00:")); // since the run began, not the machine
    for (const char* arquivo : {"/d/nada.rem", "/outra/x.log"})
        aplicacao.semPrograma(arquivo);
    EXPECT_EQ(dialogos.textos(), (Textos{"Erro na criacao do arquivo de log: /d/nada.log", "Análise finalizada!",
                                         "Nenhum programa deste computador abriu o arquivo:\n/outra/x.log"}));
}

TEST_F(Execucao, umaExcecaoEContadaEAJanelaContinua) {
    pedir("/d/remessa.rem", testes::remessa());
    for (const auto& [excecao, mensagem] :
         {std::pair<void (*)(), const char*>{[] { throw std::bad_alloc(); }, "Memória insuficiente!"},
          {[] { throw std::runtime_error("ação"); }, "Ocorreu um erro inesperado: ação"},
          {nullptr, "Análise finalizada!"}}) {
        dialogos.falha = excecao;
        clicar("cmdOK");
        EXPECT_EQ(dialogos.textos(), Textos{mensagem});
        EXPECT_TRUE(naFaceDoPedido() && habilitado("cmdOK"));
    }
}

} // namespace
} // namespace quilatador
