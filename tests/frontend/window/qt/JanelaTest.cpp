#include "frontend/window/qt/JanelaDeTeste.h"

#include <QAccessible>
#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>

namespace quilatador {
namespace {

using testes::JanelaDeTeste;
using Textos = std::vector<std::string>;

constexpr const char* mensagemDaPosicao =
    "Posição da data no código de barras deve estar entre 20 e 41 (limites do campo livre)!";

/// The first class of the toolkit that a control is.
const char* tipoDe(const QWidget& widget) {
    const QMetaObject* tipo = widget.metaObject();
    while (tipo->className()[0] != 'Q')
        tipo = tipo->superClass();
    return tipo->className();
}

/// What a user meets: caption, what a screen reader says, hint, and how it stands.
QString descricao(const QWidget& widget) {
    QStringList partes{widget.objectName(), QLatin1String(tipoDe(widget))};
    for (const char* propriedade : {"text", "title", "currentText", "toolTip"})
        partes += widget.property(propriedade).toString().simplified();
    auto* ouvido = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget));
    partes.insert(3, ouvido->text(QAccessible::Name).simplified());
    if (!widget.isVisible()) partes += QStringLiteral("hidden");
    if (!widget.isEnabled()) partes += QStringLiteral("off");
    if (widget.property("checked").toBool()) partes += QStringLiteral("chosen");
    if (widget.property("default").toBool()) partes += QStringLiteral("default");
    partes.removeAll(QString());
    partes.removeDuplicates();
    return partes.join(u" | ");
}

/// The file has every named control of the window that has just been opened, in alphabetical order.
TEST_F(JanelaDeTeste, osControlesSaoOsDaLista) {
    abrir();
    QStringList linhas;
    for (const QWidget* widget : janela.findChildren<QWidget*>())
        if (const QString nome = widget->objectName(); !nome.isEmpty() && !nome.startsWith(u"qt_"))
            linhas += descricao(*widget);
    linhas.sort();
    linhas += QStringList{janela.objectName(), janela.windowTitle()}.join(u" | ");
    const auto* formato = controle<QComboBox>("cmbFormato");
    for (int i = 0; i < formato->count(); ++i)
        linhas += QStringLiteral("cmbFormato | ") + formato->itemText(i);
    linhas += descricao(*formato->lineEdit());
    EXPECT_EQ(linhas.join(u'\n').toStdString() + "\n", testes::lerTudo(QUILATADOR_CONTROLES));
}

TEST_F(JanelaDeTeste, semAsTabelasNaoAbre) {
    mundo.arquivos.conteudo.erase("/programa/TabelaErrosZUL.mdb");
    EXPECT_FALSE(aplicacao.iniciar());
    EXPECT_FALSE(janela.isVisible());
    ASSERT_EQ(dialogos.mensagens.size(), 1u);
    EXPECT_EQ(dialogos.mensagens[0].icone, Mensagem::Icone::Exclamacao);
    EXPECT_EQ(dialogos.mensagens[0].titulo, "Solvara - Quilatador de Leiaute - Erro!"_t);
    EXPECT_EQ(dialogos.textos(),
              Textos{"Não foi possível abrir o arquivo TabelaErrosZUL.mdb! Reinstale o aplicativo."});
}

TEST_F(JanelaDeTeste, asEscolhasHabilitamSuasCaixasQueGuardamSeusValores) {
    abrir();
    escolher("chkData");
    digitar("txtPosicao", "25");
    controle<QComboBox>("cmbFormato")->setCurrentText(QStringLiteral("DDMMAA"));
    clicar("txtNumeroDetalhes"); // a click on the box that is off chooses its option
    digitar("txtNumeroDetalhes", "7");
    EXPECT_TRUE(habilitado("txtPosicao") && habilitado("cmbFormato") && habilitado("txtNumeroDetalhes"));
    for (const char* opcao : {"opt708", "optTAV", "opt702"}) {
        escolher(opcao);
        for (const char* quadro : {"Frame1", "fraDetalhes"})
            EXPECT_EQ(visivel(quadro), opcao == std::string_view("opt702")) << opcao;
    }
    const Pedido pedido = janela.pedido->pedido();
    EXPECT_TRUE(pedido.comData);
    EXPECT_EQ(pedido.PosicaoDataBarra, 25);
    EXPECT_EQ(pedido.FormatoDataBarra, "DDMMAA"_t);
    EXPECT_EQ(janela.pedido->primeirasGuias(), 7);
    escolher("chkData");
    escolher("optTodosDetalhes");
    EXPECT_FALSE(habilitado("txtPosicao") || habilitado("cmbFormato") || habilitado("txtNumeroDetalhes"));
}

TEST_F(JanelaDeTeste, asCaixasDeNumeroSoTomamDigitos) {
    abrir();
    escolher("optPrimeirasGuias");
    digitar("txtNumeroDetalhes", "\b"); // which does not stay empty
    QTest::keyClick(controle("txtNumeroDetalhes"), Qt::Key_Tab);
    EXPECT_EQ(texto("txtNumeroDetalhes"), "50");
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
    digitar("txtPosicao", "19");
    QWidget outra; // to change to another window is not to leave the box
    outra.show();
    outra.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&outra));
    EXPECT_EQ(dialogos.textos(), Textos{});
}

TEST_F(JanelaDeTeste, oOKExigeUmArquivoQueProcurarToma) {
    mundo.arquivos.conteudo["/d/ação-Ω.rem "] = {};
    abrir();
    clicar("cmdProcura"); // given up
    EXPECT_EQ(texto("txtNomeArquivo"), "");
    digitar("txtNomeArquivo", "x");
    EXPECT_TRUE(habilitado("cmdOK"));
    QTest::keyClick(controle("txtNomeArquivo"), Qt::Key_Backspace);
    EXPECT_FALSE(habilitado("cmdOK"));
    dialogos.escolhido = "/d/ação-Ω.rem "; // with a letter that the logs cannot write, and a blank
    clicar("cmdProcura");
    EXPECT_EQ(texto("txtNomeArquivo"), "/d/ação-Ω.rem ");
    EXPECT_EQ(janela.pedido->pedido().nomeArquivo, "/d/ação-Ω.rem ");
    EXPECT_TRUE(habilitado("cmdOK"));
    dialogos.escolhido = "/d/nada"; // which does not exist
    clicar("cmdProcura");
    dialogos.escolhido = std::nullopt;
    clicar("cmdProcura");
    EXPECT_EQ(texto("txtNomeArquivo"), "/d/ação-Ω.rem ");
    EXPECT_EQ(dialogos.ultimos, (std::vector<std::filesystem::path>{"", "", "/d/ação-Ω.rem ", "/d/nada"}));
}

/// Whichever way a name comes, its type is chosen once; the user may then choose another.
TEST_F(JanelaDeTeste, oTipoDeUmNomeNovoEReconhecido) {
    const testes::PastaTemporaria pasta;
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
    const auto deixar = [&] {
        controle("txtNomeArquivo")->setFocus();
        QTest::keyClick(controle("txtNomeArquivo"), Qt::Key_Tab);
    };
    using Caminho = const std::filesystem::path&;
    const std::function<void(Caminho)> digitado = [&](Caminho arquivo) { digitar("txtNomeArquivo", arquivo.c_str()); };
    const std::function<void(Caminho)> procurado = [&](Caminho arquivo) {
        dialogos.escolhido = arquivo;
        clicar("cmdProcura");
    };
    const char* semTipo = "Tipo não reconhecido pelo conteúdo. Confira o tipo escolhido.";
    int vez = 0;
    for (const auto& tomar : {digitado, procurado, std::function<void(Caminho)>(soltar)})
        for (const auto& [linha, opcao, aviso] : {std::tuple{"A2 and so on"_t, "optTAV", ""},
                                                  {"A2000000000ZUL702...\r\nZ"_t, "opt702", ""},
                                                  {"A1000000000ZUL708"_t, "opt708", ""},
                                                  {"A100000000ZUL702"_t, "optTAV", semTipo},
                                                  {"\r\nA2"_t, "optTAV", semTipo},
                                                  {""_t, "optTAV", semTipo}}) {
            const auto arquivo = pasta.escrever(std::to_string(++vez), bytesDoTexto(linha));
            mundo.arquivos.conteudo[arquivo] = linha;
            tomar(arquivo);
            deixar();
            EXPECT_EQ(texto("txtNomeArquivo"), arquivo.string());
            EXPECT_TRUE(controle<QRadioButton>(opcao)->isChecked()) << linha;
            EXPECT_EQ(visivel("Frame1"), opcao == std::string_view("opt702"));
            EXPECT_EQ(legenda("lblAviso"), aviso);
            EXPECT_TRUE(habilitado("cmdOK"));
            escolher("optTAV");
            deixar();
            EXPECT_TRUE(controle<QRadioButton>("optTAV")->isChecked());
        }
    digitado("/d/nada");
    EXPECT_EQ(legenda("lblAviso"), "");
    deixar();
    EXPECT_EQ(legenda("lblAviso"), "Não existe arquivo com este nome.");
    aplicacao.receber("/d/nenhum");
    EXPECT_EQ(dialogos.textos(), Textos{"Arquivo não encontrado: /d/nenhum"});
}

/// As on a screen of 1024 by 600 that shows everything at twice its size.
TEST_F(JanelaDeTeste, cabeNumaTelaPequena) {
    abrir();
    EXPECT_LE(janela.sizeHint().width(), 510);
    janela.resize(510, 270);
    controle("optPrimeirasGuias")->setFocus();
    for (const char* nome : {"optPrimeirasGuias", "cmdOK"})
        EXPECT_EQ(controle(nome)->visibleRegion(), QRegion(controle(nome)->rect())) << nome;
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
    for (auto* rotulo : janela.findChildren<QLabel*>())
        if (rotulo->text() == QStringLiteral("Retorno de Liquidação")) QTest::mouseClick(rotulo, Qt::LeftButton);
    EXPECT_TRUE(controle<QRadioButton>("optTAV")->isChecked());
    escolher("opt702");
    controle("opt702")->setFocus();
    QTest::keyClick(controle("opt702"), Qt::Key_Down);
    EXPECT_TRUE(controle<QRadioButton>("opt708")->isChecked());
    EXPECT_FALSE(visivel("Frame1"));
    QTest::keyClick(&janela, Qt::Key_Escape);
    EXPECT_TRUE(janela.isVisible());
    for (const auto tecla : {Qt::Key_Return, Qt::Key_Space}) { // a key held down presses nothing again
        QKeyEvent repetida(QEvent::KeyPress, tecla, Qt::NoModifier, QString(), true);
        QApplication::sendEvent(controle("cmdAjuda"), &repetida);
    }
    QTest::keyClick(controle("txtNomeArquivo"), Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return mundo.lancador.documentos.size() == 1; }));
    QTest::keyClick(controle("txtNomeArquivo"), Qt::Key_F1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return mundo.lancador.documentos.size() == 2; }));
    EXPECT_EQ(mundo.lancador.documentos,
              (std::vector<std::filesystem::path>{"/programa/Documentos/TAV/Layouts/layouts.html",
                                                  "/programa/Documentos/TAV/Ajuda/Quilatador.htm"}));
}

} // namespace
} // namespace quilatador
