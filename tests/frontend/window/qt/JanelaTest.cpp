#include "frontend/window/qt/JanelaDeTeste.h"

#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>

#include <algorithm>

namespace quilatador {
namespace {

using testes::JanelaDeTeste;
using Textos = std::vector<std::string>;

constexpr const char* mensagemDaPosicao =
    "Posição da data no código de barras deve estar entre 20 e 41 (limites do campo livre)!";

TEST_F(JanelaDeTeste, temOsControlesComSuasLegendasEDicas) {
    struct Caso {
        const char* nome;
        const char* tipo; ///< class of the toolkit
        const char* propriedade;
        const char* valor;
        const char* dica;
    };
    const Caso casos[] = {
        {"cmdSobre", "QPushButton", "text", "&Sobre o Quilatador...", ""},
        {"cmdAjuda", "QPushButton", "text", "", "Pressione para obter informações sobre a tela."},
        {"cmdLayout", "QPushButton", "text", "&Leiaute dos Arquivos", ""},
        {"cmdCancela", "QPushButton", "text", "&Sair", ""},
        {"cmdOK", "QPushButton", "text", "OK", ""},
        {"fraNomeArquivo", "QGroupBox", "title", "Nome do Arquivo", ""},
        {"optTAV", "QRadioButton", "text", "TAV001",
         "Selecione esta opção para efetuar a análise do arquivo TAV001 (Retorno de Liquidação)"},
        {"opt708", "QRadioButton", "text", "ZUL708",
         "Selecione esta opção para efetuar a análise do arquivo ZUL708 (Retorno da Remessa de Impressão)"},
        {"opt702", "QRadioButton", "text", "ZUL702",
         "Selecione esta opção para efetuar a análise do arquivo ZUL702 (Remessa para Impressão)"},
        {"Frame1", "QGroupBox", "title", "Data no código de barras", ""},
        {"cmbFormato", "QComboBox", "currentText", "ADDD", "Selecione o Formato da Data no código de barras."},
        {"txtPosicao", "QLineEdit", "text", "20", "Informe a posição da inicial da data no código de barras."},
        {"chkData", "QCheckBox", "text", "Com data",
         "Selecione esta opção caso o código de barras contenha uma data de vencimento."},
        {"Label8", "QLabel", "text", "Formato:", ""},
        {"Label7", "QLabel", "text", "Posição:", ""},
        {"fraDetalhes", "QGroupBox", "title", "Analisar detalhes", ""},
        {"txtNumeroDetalhes", "QLineEdit", "text", "50", "Informe a quantidade de guias a serem analisadas."},
        {"optPrimeirasGuias", "QRadioButton", nullptr, nullptr,
         "Selecione esta opção para analisar apenas algumas guias."},
        {"optTodosDetalhes", "QRadioButton", "text", "Todos",
         "Selecione esta opção para analisar todas as guias do arquivo."},
        {"cmdProcura", "QPushButton", nullptr, nullptr,
         "Pressione para informar o drive/diretório e o nome do arquivo para Análise."},
        {"txtNomeArquivo", "QLineEdit", "text", "", "Nome do arquivo para Análise."},
        {"fraImportacao", "QGroupBox", "title", "Progresso da Análise", ""},
        {"pbrImportacao", "QProgressBar", nullptr, nullptr, ""},
        {"lblGuiasDepuradas", "QLabel", "text", "", ""},
        {"Label6", "QLabel", "text", "Guias Depuradas:", ""},
        {"lblTotalGuias", "QLabel", "text", "", ""},
        {"Label2", "QLabel", "text", "Total de Guias:", ""},
        {"lblRemessa", "QLabel", "text", "Remessa", ""},
        {"lblEmpresa", "QLabel", "text", "NomeEmpresa", ""},
        {"lblRegistroAtual", "QLabel", "text", "", ""},
        {"lblTotalRegistros", "QLabel", "text", "", ""},
        {"Label5", "QLabel", "text", "Registro Atual:", ""},
        {"Label4", "QLabel", "text", "Total de Registros:", ""},
        {"lblTempoRestante", "QLabel", "text", "00:00:00", ""},
        {"lblTempoDecorrido", "QLabel", "text", "00:00:00", ""},
        {"Label3", "QLabel", "text", "Tempo restante:", ""},
        {"lblOperacao", "QLabel", "text", "Operação", ""},
        {"Label1", "QLabel", "text", "Tempo decorrido:", ""},
        {"Image1", "QWidget", nullptr, nullptr, ""}};
    abrir();
    EXPECT_EQ(janela.objectName(), u"frmImportacao");
    EXPECT_EQ(janela.windowTitle(), u"Solvara - Quilatador de Leiaute");
    for (const auto& [nome, tipo, propriedade, valor, dica] : casos) {
        const QWidget* widget = controle(nome);
        EXPECT_TRUE(widget->inherits(tipo)) << nome;
        if (propriedade) {
            EXPECT_EQ(widget->property(propriedade).toString().toStdString(), valor) << nome;
        }
        EXPECT_EQ(widget->toolTip().toStdString(), dica) << nome;
    }
    EXPECT_TRUE(controle<QPushButton>("cmdOK")->isDefault());
    EXPECT_EQ(controle<QRadioButton>("optPrimeirasGuias")->text().split(u' ', Qt::SkipEmptyParts),
              (QStringList{QStringLiteral("Primeiras"), QStringLiteral("guias")}));
}

TEST_F(JanelaDeTeste, comecaComOsValoresIniciais) {
    abrir();
    EXPECT_TRUE(controle<QRadioButton>("opt702")->isChecked());
    EXPECT_TRUE(controle<QRadioButton>("optTodosDetalhes")->isChecked());
    EXPECT_FALSE(controle<QCheckBox>("chkData")->isChecked());
    for (const char* desligado : {"txtPosicao", "cmbFormato", "txtNumeroDetalhes", "cmdOK"})
        EXPECT_FALSE(habilitado(desligado)) << desligado;
    EXPECT_TRUE(visivel("fraNomeArquivo"));
    EXPECT_FALSE(visivel("fraImportacao"));
    const auto* formato = controle<QComboBox>("cmbFormato");
    QStringList lista;
    for (int i = 0; i < formato->count(); ++i)
        lista += formato->itemText(i);
    EXPECT_EQ(lista.join(u' '), u"AAAAMMDD AAMMDD DDMMAAAA DDMMAA DDDA AADDD");
}

TEST_F(JanelaDeTeste, semAsTabelasNaoAbre) {
    mundo.arquivos.conteudo.erase("/programa/TabelaErrosZUL.mdb");
    EXPECT_FALSE(aplicacao.iniciar());
    EXPECT_FALSE(janela.isVisible());
    ASSERT_EQ(dialogos.mensagens.size(), 1u);
    EXPECT_EQ(dialogos.mensagens[0].icone, Mensagem::Icone::Exclamacao);
    EXPECT_EQ(dialogos.mensagens[0].titulo, "Solvara - Quilatador de Leiaute - Erro!");
    EXPECT_EQ(dialogos.textos(),
              Textos{"Não foi possível abrir o arquivo TabelaErrosZUL.mdb! Reinstale o aplicativo."});
}

TEST_F(JanelaDeTeste, asOpcoesDaRemessaVoltamComSeusValores) {
    abrir();
    escolher("chkData");
    digitar("txtPosicao", "25");
    controle<QComboBox>("cmbFormato")->setCurrentText(QStringLiteral("DDMMAA"));
    escolher("optPrimeirasGuias");
    digitar("txtNumeroDetalhes", "7");
    for (const char* outro : {"opt708", "optTAV"}) {
        escolher(outro);
        EXPECT_FALSE(visivel("Frame1") || visivel("fraDetalhes"));
    }
    escolher("opt702");
    EXPECT_TRUE(visivel("Frame1") && visivel("fraDetalhes"));
    const Pedido pedido = janela.pedido->pedido();
    EXPECT_TRUE(pedido.comData);
    EXPECT_EQ(pedido.PosicaoDataBarra, 25);
    EXPECT_EQ(pedido.FormatoDataBarra, "DDMMAA");
    EXPECT_EQ(janela.pedido->primeirasGuias(), 7);
}

TEST_F(JanelaDeTeste, asEscolhasHabilitamSuasCaixas) {
    abrir();
    escolher("chkData");
    EXPECT_TRUE(habilitado("txtPosicao") && habilitado("cmbFormato"));
    escolher("chkData");
    EXPECT_FALSE(habilitado("txtPosicao") || habilitado("cmbFormato"));
    clicar("txtNumeroDetalhes"); // a click on the box that is off chooses its option
    EXPECT_TRUE(habilitado("txtNumeroDetalhes"));
    escolher("optTodosDetalhes");
    EXPECT_FALSE(habilitado("txtNumeroDetalhes"));
}

TEST_F(JanelaDeTeste, asCaixasDeNumeroSoTomamDigitos) {
    abrir();
    escolher("chkData");
    digitar("txtPosicao", "3a-5 .");
    EXPECT_EQ(texto("txtPosicao"), "35");
    QApplication::clipboard()->setText(QStringLiteral(" 1.2x9\n"));
    auto* caixa = controle<QLineEdit>("txtPosicao");
    caixa->setCursorPosition(1);
    caixa->paste();
    EXPECT_EQ(texto("txtPosicao"), "31295");
    QTest::keyClick(caixa, Qt::Key_Backspace); // the caret stands behind what was pasted
    EXPECT_EQ(texto("txtPosicao"), "3125");
}

TEST_F(JanelaDeTeste, umNumeroDeGuiasVazioVoltaA50) {
    abrir();
    escolher("optPrimeirasGuias");
    auto* caixa = controle<QLineEdit>("txtNumeroDetalhes");
    caixa->setFocus();
    caixa->clear();
    QTest::keyClick(caixa, Qt::Key_Tab);
    EXPECT_EQ(texto("txtNumeroDetalhes"), "50");
}

TEST_F(JanelaDeTeste, deixarUmaPosicaoForaDoCampoLivreVoltaAEla) {
    abrir();
    escolher("chkData");
    for (const auto& [posicao, aceita] : {std::pair{"19", false}, {"42", false}, {"41", true}, {"20", true}}) {
        digitar("txtPosicao", posicao);
        QTest::keyClick(controle("txtPosicao"), Qt::Key_Tab);
        QApplication::processEvents();
        EXPECT_EQ(dialogos.textos(), aceita ? Textos{} : Textos{mensagemDaPosicao}) << posicao;
        EXPECT_EQ(focado(), aceita ? "cmbFormato" : "txtPosicao") << posicao;
        EXPECT_EQ(controle<QLineEdit>("txtPosicao")->hasSelectedText(), !aceita) << posicao;
    }
}

TEST_F(JanelaDeTeste, outraJanelaNaFrenteNaoEhDeixarAPosicao) {
    abrir();
    escolher("chkData");
    digitar("txtPosicao", "19");
    QWidget outra;
    outra.show();
    outra.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&outra));
    EXPECT_EQ(dialogos.textos(), Textos{});
}

TEST_F(JanelaDeTeste, oOKExigeUmNomeDeArquivo) {
    abrir();
    digitar("txtNomeArquivo", "x");
    EXPECT_TRUE(habilitado("cmdOK"));
    QTest::keyClick(controle("txtNomeArquivo"), Qt::Key_Backspace);
    EXPECT_FALSE(habilitado("cmdOK"));
}

TEST_F(JanelaDeTeste, procurarTomaOArquivoEscolhidoESeguePorEle) {
    mundo.arquivos.conteudo["/d/ação-Ω.rem"] = "";
    abrir();
    clicar("cmdProcura"); // given up
    EXPECT_EQ(texto("txtNomeArquivo"), "");
    EXPECT_FALSE(habilitado("cmdOK"));
    dialogos.escolhido = "/d/ação-Ω.rem"; // with a letter that the logs cannot write
    clicar("cmdProcura");
    EXPECT_EQ(texto("txtNomeArquivo"), "/d/ação-Ω.rem");
    EXPECT_EQ(janela.pedido->pedido().nomeArquivo, "/d/ação-Ω.rem");
    EXPECT_TRUE(habilitado("cmdOK"));
    dialogos.escolhido = std::nullopt;
    clicar("cmdProcura");
    EXPECT_EQ(texto("txtNomeArquivo"), "/d/ação-Ω.rem");
    EXPECT_EQ(dialogos.ultimos, (std::vector<std::filesystem::path>{"", "", "/d/ação-Ω.rem"}));
}

TEST_F(JanelaDeTeste, oArquivoSoltoViraOPedido) {
    const testes::PastaTemporaria pasta;
    const auto arquivo = pasta.escrever("solto.ret", "A2");
    mundo.arquivos.conteudo[arquivo] = "A2";
    abrir();
    QMimeData dados;
    const auto soltar = [&](const std::filesystem::path& caminho) {
        dados.setUrls({QUrl::fromLocalFile(caminhoParaQt(caminho))});
        QDragEnterEvent entrada({1, 1}, Qt::CopyAction, &dados, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&janela, &entrada);
        QDropEvent queda({1, 1}, Qt::CopyAction, &dados, Qt::LeftButton, Qt::NoModifier);
        if (entrada.isAccepted()) QApplication::sendEvent(&janela, &queda);
        return entrada.isAccepted();
    };
    EXPECT_FALSE(soltar(pasta.caminho())); // a folder is none
    EXPECT_TRUE(soltar(arquivo));
    EXPECT_EQ(texto("txtNomeArquivo"), arquivo.string());
    EXPECT_TRUE(controle<QRadioButton>("optTAV")->isChecked());
    EXPECT_FALSE(visivel("Frame1"));
    EXPECT_TRUE(habilitado("cmdOK"));
}

TEST_F(JanelaDeTeste, ajudaELeiauteAbremSeusDocumentos) {
    abrir();
    clicar("cmdAjuda");
    clicar("cmdLayout");
    EXPECT_EQ(mundo.lancador.documentos,
              (std::vector<std::filesystem::path>{"/programa/Documentos/TAV/Ajuda/Quilatador.htm",
                                                  "/programa/Documentos/TAV/Layouts/layouts.html"}));
}

TEST_F(JanelaDeTeste, oTecladoChegaATudo) {
    abrir();
    escolher("chkData");
    clicar("optPrimeirasGuias");
    digitar("txtNomeArquivo", "x");
    Textos ordem{focado()};
    for (int i = 0; i < 13; ++i) {
        QTest::keyClick(janela.focusWidget(), Qt::Key_Tab);
        ordem.push_back(focado());
    }
    EXPECT_EQ(ordem, (Textos{"txtNomeArquivo", "cmdProcura", "opt702", "chkData", "txtPosicao", "cmbFormato",
                             "optPrimeirasGuias", "txtNumeroDetalhes", "cmdOK", "cmdCancela", "cmdAjuda", "cmdLayout",
                             "cmdSobre", "txtNomeArquivo"}));
    controle("opt702")->setFocus();
    QTest::keyClick(controle("opt702"), Qt::Key_Down);
    EXPECT_TRUE(controle<QRadioButton>("opt708")->isChecked());
    EXPECT_FALSE(visivel("Frame1"));
    QTest::keyClick(&janela, Qt::Key_Escape);
    EXPECT_TRUE(janela.isVisible());
    QTest::keyClick(controle("txtNomeArquivo"), Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return mundo.lancador.documentos.size() == 1; }));
    QTest::keyClick(controle("txtNomeArquivo"), Qt::Key_F1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return mundo.lancador.documentos.size() == 2; }));
}

TEST_F(JanelaDeTeste, umaTeclaPresaPressionaUmaVez) {
    abrir();
    for (const auto tecla : {Qt::Key_Return, Qt::Key_Space}) {
        QKeyEvent repetida(QEvent::KeyPress, tecla, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(controle("cmdLayout"), &repetida);
    }
    EXPECT_TRUE(mundo.lancador.documentos.empty());
}

TEST_F(JanelaDeTeste, todoControleTemUmNomeParaQuemNaoVe) {
    abrir();
    for (const QWidget* widget : janela.findChildren<QWidget*>()) {
        const bool interno = widget->objectName().isEmpty() || widget->objectName().startsWith(u"qt_");
        if (interno || widget->focusPolicy() == Qt::NoFocus) continue;
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
    }
}

TEST_F(JanelaDeTeste, sairFechaAJanela) {
    abrir();
    clicar("cmdCancela");
    EXPECT_FALSE(janela.isVisible());
}

} // namespace
} // namespace quilatador
